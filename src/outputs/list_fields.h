// SPDX-License-Identifier: GPL-2.0-or-later
// Fields whose values are several in a row, which no new class keeps as such.
#pragma once

#include <cstdint>

#include "platform/data.h"

namespace tessarine {

/// Rows of a host's own that may have such fields.
class IListFields : public virtual Object {
 public:
  /// False for an index outside the fields.
  [[nodiscard]] virtual bool HoldsLists(std::int32_t field) const = 0;
};

/// Whether the values of the field are lists; they are read as texts of JSON. False for an index outside the fields.
[[nodiscard]] bool HoldsLists(const IFeatureClass& rows, std::int32_t field);

}  // namespace tessarine
