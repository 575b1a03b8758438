// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/copy_classes.h"

#include "platform/paths.h"

namespace tessarine::engine {

void RequireAllRows(const CopyFacts& facts, std::int64_t held) {
  if (held == facts.rows) return;
  if (held > facts.rows) {
    Raise(kInvalidCall, "'" + ToNativePath(facts.full_name) + "' reads back with " + std::to_string(held) +
                            " rows where " + std::to_string(facts.rows) +
                            " were written: the format doesn't keep these records as they are. Name another format. "
                            "Nothing of the copy is kept.");
  }
  RaiseEngineFault("Only " + std::to_string(held) + " of the " + std::to_string(facts.rows) +
                   " rows that were written are in '" + ToNativePath(facts.full_name) +
                   "': check the room on the disk. Nothing of the copy is kept.");
}

}  // namespace tessarine::engine
