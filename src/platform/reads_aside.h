// SPDX-License-Identifier: GPL-2.0-or-later
// Cursors that can be read beside the run's own thread.
#pragma once

#include "platform/object.h"

namespace tessarine {

/// What a cursor may be beside being one.
class IReadsAside : public virtual Object {
 public:
  /// Whether another thread may read the next rows, while the run's own thread works with rows that it has and writes
  /// elsewhere. Only one thread at a time may be at the cursor.
  [[nodiscard]] virtual bool MayReadAside() const = 0;
};

}  // namespace tessarine
