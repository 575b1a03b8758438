// SPDX-License-Identifier: GPL-2.0-or-later
// The rows of a copy.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "engine/copy_columns.h"
#include "engine/copy_shapes.h"
#include "platform/run_journal.h"

namespace tessarine::engine {

/// Stands for the identifier of a record that isn't in the copy. No record has it.
constexpr std::int64_t kNoRow = OGRNullFID;

struct CopiedRows {
  std::int64_t count = 0;
  std::vector<std::int64_t>
      oids;  ///< in the copy, in the order of the source's chosen records; `kNoRow` for one that isn't there
};

/// Writes the chosen rows of the source into a new class; shapes are made to fit its type. `keeps` gives rows the
/// identifiers of the source. A row that can't be written with its shape is written without it, and one that can't be
/// written at all left out; the notes tell both, and each value that became another. Polls the stop.
[[nodiscard]] CopiedRows CopyRows(const std::shared_ptr<OgrClass>& source, const ChosenOids& chosen,
                                  const CopyColumns& columns, OGRwkbGeometryType type, const Format& format, bool keeps,
                                  const std::shared_ptr<OgrClass>& target, RunJournal& notes);

}  // namespace tessarine::engine
