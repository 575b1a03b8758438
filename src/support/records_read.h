// SPDX-License-Identifier: GPL-2.0-or-later
// What a run must know of the records that it read, and of those that it never saw.
#pragma once

#include <cstdint>
#include <string_view>

#include "platform/data.h"
#include "platform/run_journal.h"

namespace tessarine {

/// Counts the records of the class's layer that no class holds as skipped, and warns of them by kind.
void NoteLeftOut(const IFeatureClass& features, RunJournal& journal);

/// Fault when the layer announced records and not one of them came: its data are gone or damaged.
void RequireRecords(const RunJournal& journal, std::int64_t announced, std::string_view layer);

}  // namespace tessarine
