// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/build_reports.h"

#include "conversion/run_reports.h"
#include "platform/report_heads.h"
#include "platform/rich_text.h"
#include "platform/text_formats.h"
#include "support/MyGeneralOperations.h"
#include "support/journal_report.h"

namespace tessarine {
namespace {

constexpr std::string_view kBody =
    "Build Polygons Function zzzOutcome:\\par\r\n"
    "\\pard ---------------------------------------------\\par\r\n"
    "Input Parameters:\\b0\\par\r\n"
    "  ** Input Polyline Feature Layer:  \\b zzzFClass\\b0\\par\r\n"
    "  ** zzzDoAll\\par\r\n"
    "  ** Cluster Tolerance: zzzTolerance\\par\\b ---------------------------------------------\\par\r\n"
    "zzzLabelReport\r\n"
    "\\b ---------------------------------------------\\par\r\n"
    "Output:\\b0\\par\r\n"
    "  ** zzzFilename\\par\r\n"
    "  ** zzzSpRef\\par\r\n"
    "  ** zzzNumRecs\\par\r\n"
    "\\b ---------------------------------------------\\b0\\par\r\n"
    "zzzProbReport\r\n"
    "\\pard\\qc TimeSpentString\\par\r\n"
    "}\r\n";

constexpr std::string_view kMissingLabels =
    "\\b Missing Label Points:\\b0  These polygons had no label points within the polygon boundary...\\par";

constexpr std::string_view kConsequence = "These features could not be used.";

std::string LabelReport(const BuildFacts& facts) {
  if (!facts.transfers_labels) return "  ** No label point attributes used...\\par\r\n";
  return "\\b Label Point Layer:   \\b0 " + EscapeRtf(facts.point_layer) + "\\par\r\n" +
         "  ** Option: " + (facts.all_points ? " Consider all label points" : " Consider only selected label points") +
         "\\par\r\n" + "  ** Option: " +
         (facts.first_point ? " If multiple points in polygon, use first point"
                            : " If multiple points in polygon, use point closest to polygon centroid") +
         "\\par\r\n" + "  ** Attribute Fields to Include:\\par\r\n" + facts.field_report + "\r\n";
}

}  // namespace

std::string BuildReport(const BuildFacts& facts, const RunJournal& journal) {
  std::string report = ReportHead() + std::string(kBody);
  const std::string problems = ProblemSections(journal, facts.line_layer, kConsequence);
  report = Replace(report, "zzzOutcome",
                   journal.Outcome() == RunOutcome::Done ? "Complete" : std::string(OutcomeTitle(journal)));
  report = Replace(report, "zzzLabelReport", LabelReport(facts));
  report = Replace(report, "zzzProbReport",
                   (facts.unlabelled.empty() ? "" : ProblemBlock(kMissingLabels, facts.unlabelled)) + problems);
  report =
      Replace(report, "zzzTolerance",
              MyGeneralOperations::TrimZerosAndDecimals(facts.cluster_tolerance, false) + " " + EscapeRtf(facts.unit));
  report = Replace(report, "zzzDoAll",
                   std::string(facts.all_lines ? "Used all polylines to build polygons (n = "
                                               : "Used only selected polylines to build polygons (n = ") +
                       std::to_string(facts.line_count) + ")");
  report = Replace(report, "zzzFilename", PathForReport(facts.output_path));
  report = Replace(report, "zzzSpRef", "Spatial Reference:  " + EscapeRtf(facts.reference_name));
  report = Replace(report, "zzzNumRecs", "Contains " + std::to_string(facts.output_count) + " features");
  report = Replace(report, "TimeSpentString", facts.time_spent);
  return Replace(report, "zzzFClass", EscapeRtf(facts.line_layer));
}

std::string BuildFailureReport(const Fault& fault, const RunJournal& journal, const std::string& line_layer) {
  return ReportHead() + "!!!  Build Polygons Function Failed  !!!\\par\r\n" + "\\pard " + FailureSection(fault) +
         ProblemSections(journal, line_layer, kConsequence) + "}";
}

std::string UnitWord(const SpatialReferenceRef& reference) {
  if (Is<const GeographicCoordinateSystem>(reference)) return "Decimal Degrees";
  const auto projected = Cast<const ProjectedCoordinateSystem>(reference);
  return projected ? projected->CoordinateUnit().Name : "Unknown Coordinates";
}

}  // namespace tessarine
