// SPDX-License-Identifier: GPL-2.0-or-later
// What became of the rows of an output.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/data.h"
#include "platform/run_journal.h"

namespace tessarine {

/// How many rows of an output can be read, all of them looked at; 0 for none and for one that can't be read. For runs
/// that failed: a count in a header may promise more than there is.
[[nodiscard]] std::int64_t ReadableRows(const std::shared_ptr<IFeatureClass>& output);

/// Compares the rows that were written with those that the closed output holds, and fails the run where some are
/// missing. `journal.written` ends as what the output holds.
void CheckRowsWritten(RunJournal& journal, const IFeatureClass& output);

}  // namespace tessarine
