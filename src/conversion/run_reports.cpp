// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/run_reports.h"

#include "platform/paths.h"
#include "platform/report_heads.h"
#include "platform/rich_text.h"
#include "platform/text_formats.h"
#include "support/journal_report.h"

namespace tessarine {
namespace {

constexpr std::string_view kModule = "modCreateVertices";
constexpr std::string_view kModuleFile = "conversion/modCreateVertices.cpp";

constexpr std::string_view kSuccessBody =
    ":\\par\r\n"
    "\\pard ---------------------------------------------\\par\r\n"
    "Input Parameters:\\b0\\par\r\n"
    "  ** Input Feature Layer: zzzFClass\\par\r\n"
    "  ** zzzDoAll\\par\r\n"
    "  ** Fields to Include:\\par\r\n"
    "zzzFieldReport\r\n"
    "\\b ---------------------------------------------\\par\r\n"
    "Output:\\b0\\par\r\n"
    "  ** zzzFilename\\par\r\n"
    "  ** zzzSpRef\\par\r\n"
    "  ** zzzNumRecs\\par\r\n"
    "\\b ---------------------------------------------\\b0\\par\r\n"
    "zzzProbReport\r\n"
    "\\pard\\qc TimeSpentString\\par\r\n"
    "}";

constexpr std::string_view kProblemLine = "zzzProbReport\r\n";

std::string SkippedBlock(const modCreateVertices::ConversionRun& run, const RunJournal& journal) {
  std::string list;
  for (const std::int64_t oid : journal.skipped_oids) list += "  ** OID Value = " + std::to_string(oid) + "\\par\r\n";
  return list.empty() ? "" : ProblemBlock(run.words.skipped_heading, list);
}

std::string Problems(const RunFacts& facts, const RunJournal& journal) {
  return ProblemSections(journal, facts.layer_name, "These features could not be converted and were left out.");
}

std::string RecordLine(const modCreateVertices::ConversionRun& run, const RunFacts& facts) {
  return std::string(facts.all_records ? run.words.all_label : run.words.selected_label) +
         std::to_string(facts.record_count) + ")";
}

}  // namespace

std::string ProblemBlock(std::string_view heading, const std::string& list) {
  const std::string block =
      std::string(heading) + "\r\nzzzRunningProblems\r\n\\b ---------------------------------------------\\b0\\par\r\n";
  return Replace(block, "zzzRunningProblems", list);
}

std::string PathForReport(const std::string& path) { return EscapeRtf(ToNativePath(path)); }

std::string SuccessReport(const modCreateVertices::ConversionRun& run, const RunFacts& facts,
                          const RunJournal& journal) {
  std::string report = ReportHead() + std::string(run.words.report_title) + " " + std::string(OutcomeTitle(journal)) +
                       std::string(kSuccessBody);
  const std::string problems = Problems(facts, journal);
  if (!run.reports_skipped && problems.empty()) report = Replace(report, kProblemLine, "");
  report = Replace(report, "zzzProbReport", (run.reports_skipped ? SkippedBlock(run, journal) : "") + problems);
  report = Replace(report, "zzzFieldReport", facts.field_report);
  report = Replace(report, "zzzFClass", EscapeRtf(facts.layer_name));
  report = Replace(report, "zzzSpRef", "Spatial Reference:  " + EscapeRtf(facts.reference_name));
  report = Replace(report, "zzzDoAll", RecordLine(run, facts));
  report = Replace(report, "zzzFilename", PathForReport(facts.output_path));
  report = Replace(report, "zzzNumRecs",
                   "Contains " + std::to_string(facts.output_count) + std::string(run.words.count_noun));
  return Replace(report, "TimeSpentString", facts.time_spent);
}

std::string StoppedReport(const modCreateVertices::ConversionRun& run, const RunFacts& facts,
                          const RunJournal& journal) {
  return ReportHead() + "Exited Function Prematurely at Record " + std::to_string(facts.records_done) +
         "\\par\r\nPartial output saved to " + PathForReport(facts.output_path) + "\\par\r\n" +
         SkippedBlock(run, journal) + Problems(facts, journal) + "}";
}

std::string FailureReport(const modCreateVertices::ConversionRun& run, const RunFacts& facts, const RunJournal& journal,
                          const Fault& fault) {
  return ReportHead() + "!!!  " + std::string(run.words.report_title) + " Failed  !!!\\par\r\n" +
         "\\pard ---------------------------------------------\\b0\\par\r\n" + "Module = " + std::string(kModule) +
         "\\par\r\n" +
         FaultBlock(run.worker, fault, kModuleFile,
                    "----------------------------------------------------------\\par\r\n", facts.records_done) +
         (facts.output_path.empty()
              ? ""
              : "Rows in " + PathForReport(facts.output_path) + ": " + std::to_string(journal.written) + "\\par\r\n") +
         Problems(facts, journal) + "}";
}

std::string UnknownReferenceReport(const modCreateVertices::ConversionRun& run) {
  return ReportHead() + "!!!  " + std::string(run.words.report_title) + " Failed  !!!\\par\r\n" +
         "Selected Feature Class has unknown coordinate system...\\par\r\n"
         "\\par\r\n"
         "This function must know the projection of the data in order to calculate the geographic centroid!  Bailing "
         "out...\\par\r\n"
         "----------------------------------------------------------\\par\r\n"
         "}\r\n";
}

}  // namespace tessarine
