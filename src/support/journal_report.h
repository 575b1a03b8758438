// SPDX-License-Identifier: GPL-2.0-or-later
// What a report tells of the records of a run that met faults or gave reason to warn, as RTF.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/run_journal.h"

namespace tessarine {

/// A line for each kind of fault, and below it the records that it met: the first ones by layer and OID, the others
/// counted. Empty without faults.
[[nodiscard]] std::string FaultLines(const RunJournal& journal, std::string_view layer);
/// The same for warnings.
[[nodiscard]] std::string WarningLines(const RunJournal& journal, std::string_view layer);

/// A line for each field and kind of values that the output can't hold as they are: their number, and the first record.
[[nodiscard]] std::string ChangeLines(const RunJournal& journal);

/// A line for each name that the format of the output changed.
[[nodiscard]] std::string ChangedNameLines(const RunJournal& journal);

/// All three under headings of their own, each closed by a rule; empty where there is nothing to tell. `consequence` is
/// a sentence about the records that met a fault.
[[nodiscard]] std::string ProblemSections(const RunJournal& journal, std::string_view layer,
                                          std::string_view consequence);

/// Why a run failed, as a section: number, description and place of the fault that ended it.
[[nodiscard]] std::string FailureSection(const Fault& fault);
/// "Line Number = 120", with the name of the file where that isn't the module's.
[[nodiscard]] std::string LineNumberLine(const Fault& fault, std::string_view module_file);

/// Where a run failed: routine, line, number and description, a rule, and the record that it was at.
[[nodiscard]] std::string FaultBlock(std::string_view worker, const Fault& fault, std::string_view module_file,
                                     std::string_view rule, std::int64_t record);

/// "Successful", unless something is missing.
[[nodiscard]] std::string_view OutcomeTitle(const RunJournal& journal);

}  // namespace tessarine
