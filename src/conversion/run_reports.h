// SPDX-License-Identifier: GPL-2.0-or-later
// The reports of the conversion runs, as RTF.
#pragma once

#include <cstdint>
#include <string>

#include "conversion/conversion_runs.h"
#include "platform/run_journal.h"

namespace tessarine {

/// What the reports tell of a run. Texts are plain; the reports escape them.
struct RunFacts {
  std::string layer_name;
  bool all_records = true;
  std::int32_t record_count = 0;
  std::int32_t records_done = 0;
  std::string field_report;  ///< RTF already
  std::string output_path;   ///< a backslash path
  std::string reference_name;
  std::int32_t output_count = 0;
  std::string time_spent;  ///< RTF already
};

[[nodiscard]] std::string SuccessReport(const modCreateVertices::ConversionRun& run, const RunFacts& facts,
                                        const RunJournal& journal);
/// The report of a run that the user stopped.
[[nodiscard]] std::string StoppedReport(const modCreateVertices::ConversionRun& run, const RunFacts& facts,
                                        const RunJournal& journal);
/// The report of a run that a fault ended; `journal` tells what came of it until then.
[[nodiscard]] std::string FailureReport(const modCreateVertices::ConversionRun& run, const RunFacts& facts,
                                        const RunJournal& journal, const Fault& fault);
/// The report of a run that needs to know the projection of data that doesn't tell it.
[[nodiscard]] std::string UnknownReferenceReport(const modCreateVertices::ConversionRun& run);

/// A block of records that a report lists: its heading, the list, and the rule below.
[[nodiscard]] std::string ProblemBlock(std::string_view heading, const std::string& list);

/// A path as it stands in a report: native, escaped.
[[nodiscard]] std::string PathForReport(const std::string& path);

}  // namespace tessarine
