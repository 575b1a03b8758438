// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/calculation_report.h"

#include <cmath>

#include "platform/report_heads.h"
#include "platform/rich_text.h"
#include "platform/text_formats.h"
#include "support/MyGeneralOperations.h"
#include "support/journal_report.h"

namespace tessarine {
namespace {

constexpr std::string_view kInput =
    "\\par\r\n"
    "\\pard ---------------------------------------------\\par\r\n"
    "Input Parameters:\\b0\\par\r\n"
    "  ** Input Feature Layer: zzzFClass\\par\r\n"
    "  ** zzzNumRecs\\par\r\n"
    "  ** zzzDoAll\\par\r\n"
    "  ** zzzSpRef\\par\r\n"
    "  ** Geometry Statistics:\\par\r\n"
    "zzzFieldReport\r\n"
    "\\b ---------------------------------------------\\par\r\n"
    "Spheroid Parameters:\\b0\\par\r\n";

constexpr std::string_view kRule = "\\b ---------------------------------------------\\par\r\n";

constexpr std::string_view kEnd =
    "zzzProbReport\\pard\\qc TimeSpentString\\par\r\n"
    "}";

constexpr std::string_view kEmptyFeatures =
    "\\b Empty Features Found:\\b0  These features have no geometry and were skipped in the analysis. \r\n"
    "\\b Note:\\b0  All field values for these records have been set to -9999.  Please be "
    "aware of this if you calculate statistics on the geometry fields...\\par\r\n"
    "zzzRunningProblems\r\n"
    "\\b ---------------------------------------------\\b0\\par\r\n";

constexpr std::string_view kFaultConsequence =
    "Values of these features that could not be calculated are set to -9999, or left null where a measure has no such "
    "mark; fields that have no room for a value keep what they held.";

constexpr std::string_view kCopyConsequence =
    "These records could not be copied as they are: they are without their shapes, or not in the copy at all.";

std::string SpheroidLines(const CalculationFacts& facts) {
  const auto radius = [](double value) { return MyGeneralOperations::TrimZerosAndDecimals(value, false); };
  return "  ** Spheroid Name: " + EscapeRtf(facts.spheroid_name) + "\\par\r\n" +
         "  ** Spheroid Semi-Major (Equatorial) Radius: " + radius(facts.semi_major) + " meters\\par\r\n" +
         "  ** Spheroid Semi-Minor (Polar) Radius: " + radius(facts.semi_minor) + " meters\\par\r\n" +
         "  ** Coordinate System: " +
         (facts.geocentric ? "Data are in Planetocentric Coordinates" : "Data are in Planetographic Coordinates") +
         "\\par\r\n" + facts.longitude_line;
}

// Puts the facts into the tokens of a report.
std::string Filled(std::string report, const CalculationFacts& facts) {
  const std::string count = std::to_string(facts.record_count);
  report = Replace(report, "zzzProbReport", facts.problem_report);
  report = Replace(report, "zzzFieldReport", facts.field_report);
  report = Replace(report, "zzzFClass", EscapeRtf(facts.layer_name));
  report = Replace(report, "zzzSpRef", "Spatial Reference:  " + EscapeRtf(facts.reference_name));
  report = Replace(report, "zzzDoAll",
                   facts.all_records ? "Calculated Geometry for All Features (n = " + count + ")"
                                     : "Calculated Geometry for Selected Features (n = " + count + ")");
  report =
      Replace(report, "zzzNumRecs", "Contains " + std::to_string(facts.total_count) + " " + std::string(facts.noun));
  return Replace(report, "TimeSpentString", facts.time_spent);
}

}  // namespace

std::string FieldReport(std::span<const OptionEntry> entries, esriGeometryType shape, SpatialKind kind) {
  std::string report;
  std::int32_t number = 0;
  for (const OptionEntry& entry : entries) {
    const MeasureRow* row = FindMeasure(shape, kind, entry.OptionId());
    if (row == nullptr) continue;
    for (std::size_t position = 0; position < row->FieldCount(); ++position) {
      const std::string name = entry.Field(static_cast<std::int32_t>(position));
      if (name.empty()) continue;
      report += "       " + std::to_string(++number) + "] " + std::string(row->report_labels[position]) +
                ": \\i Field Name = [" + EscapeRtf(name) + "]\\i0\\par\r\n";
    }
  }
  return report;
}

bool HasSlowMeasure(std::span<const OptionEntry> entries, esriGeometryType shape, SpatialKind kind) {
  for (const OptionEntry& entry : entries) {
    const MeasureRow* row = FindMeasure(shape, kind, entry.OptionId());
    if (row != nullptr && row->slow) return true;
  }
  return false;
}

std::string CalculationReport(const CalculationFacts& facts) {
  return Filled(ReportHead() + "Geometry Calculation " + std::string(facts.outcome) + ":" + std::string(kInput) +
                    SpheroidLines(facts) + std::string(kRule) + std::string(kEnd),
                facts);
}

std::string CopySections(const RunJournal& notes, const std::string& layer_name) {
  return ProblemSections(notes, layer_name, kCopyConsequence);
}

std::string NoCopyLine() { return "\\b Nothing of the copy is kept.\\b0\\par\r\n" + std::string(kRule); }

std::string NoCopyReport(const RunJournal& journal, const std::string& layer_name) {
  const std::string cause =
      journal.stopped ? "The run was stopped while the records of " + layer_name + " were copied." : journal.failure;
  return ReportHead() + "Geometry Calculation " + (journal.stopped ? "Stopped" : "Failed") + ":\\par\r\n\\pard\\b0 " +
         EscapeRtf(cause) + "\\par\r\nNothing of the copy is kept.\\par\r\n}";
}

std::string PlannedCalculation(const CalculationFacts& facts, const std::string& new_fields,
                               const std::string& overwritten_fields) {
  const auto listed = [](const std::string& names) { return names.empty() ? std::string("none") : EscapeRtf(names); };
  std::string foretold = facts.foretold.empty() ? "" : std::string(kRule) + "The Copy:\\b0\\par\r\n";
  std::string rounded;
  for (const std::string& sentence : facts.rounded) rounded += "  ** " + EscapeRtf(sentence) + "\\par\r\n";
  for (const std::string& sentence : facts.foretold) foretold += "  ** " + EscapeRtf(sentence) + "\\par\r\n";
  return Filled(ReportHead() + "Geometry Calculation, planned only: nothing was written" + std::string(kInput) +
                    SpheroidLines(facts) + std::string(kRule) + "Fields:\\b0\\par\r\n" +
                    "  ** New: " + listed(new_fields) + "\\par\r\n" +
                    "  ** Overwritten: " + listed(overwritten_fields) + "\\par\r\n" + rounded + foretold + "}",
                facts);
}

std::string CompressedGeodatabaseReport(const std::string& layer_name) {
  return RtfHead("{\\f0\\fnil\\fcharset0 MS Sans Serif;}{\\f1\\fswiss\\fcharset0 Arial;}") +
         std::string(kRtfGenerator) +
         "\\viewkind4\\uc1\\pard\\qc\\b\\f0\\fs17 FUNCTION FAILED\\par\r\n"
         "---------------------------------------------------\\par\r\n"
         "\\pard\\b0 The layer '" +
         EscapeRtf(layer_name) +
         "' comes from a compressed file geodatabase.  Compressed file geodatabases cannot be edited!  Please "
         "uncompress the file geodatabase before running this operation.\\par\r\n"
         "\\par\r\n"
         "\\b Hint: \\b0  You can uncompress it by either right-clicking on it in ArcCatalog and choosing the option "
         "'Uncompress File Geodatabase...', or you can find the uncompress tool in the ArcToolbox 'Data Management "
         "Tools', and then File Geodatabase...\\f1\\fs20\\par\r\n"
         "}";
}

std::string EditSessionReport() {
  return "FUNCTION FAILED:  This fuction is written to run outside of an edit session and therefore "
         "requires that ArcMap not be in edit mode.  Please turn off your edit session before running this function.";
}

std::string NotEditableReport() {
  return "FUNCTION FAILED:  This layer cannot be edited outside of an edit session.  It may be a versioned dataset. "
         "Please try copying this feature class to a stand-alone dataset and calculating the geometric attributes "
         "on the dataset copy.";
}

std::string EditRefusedReport(const std::string& layer_name, const std::string& why) {
  return "FUNCTION FAILED:  The layer '" + layer_name + "' can't be changed now.  " + why;
}

std::string FieldNotAddedReport(const std::string& field_name, const std::string& layer_name) {
  return "Failed to add field '" + field_name + "' to Feature Layer " + layer_name + "!";
}

std::string LongitudeLine(const SpatialReferenceRef& reference) {
  const auto geographic = GeographicOf(reference);
  if (!geographic) return "";
  const PrimeMeridian& meridian = geographic->PrimeMeridian();
  std::string line;
  if (meridian.Longitude != 0.0) {
    line += "  ** Longitudes: relative to the meridian of " + EscapeRtf(meridian.Name) + ", " +
            NumberText(std::fabs(meridian.Longitude)) + " degrees " + (meridian.Longitude > 0.0 ? "east" : "west") +
            " of Greenwich\\par\r\n";
  }
  if (geographic->InDegrees()) {
    line += "  ** Positions: in the unit of the data, " + EscapeRtf(geographic->CoordinateUnit().Name) + "\\par\r\n";
  }
  return line;
}

std::string ProblemReport(const RunJournal& journal, const std::string& layer_name) {
  std::string empty_features;
  for (const std::int64_t oid : journal.skipped_oids)
    empty_features += "  ** OID Value = " + std::to_string(oid) + "\\par\r\n";
  return (empty_features.empty() ? "" : Replace(kEmptyFeatures, "zzzRunningProblems", empty_features)) +
         ProblemSections(journal, layer_name, kFaultConsequence);
}

std::string StoppedProblemReport(const RunJournal& journal, const std::string& layer_name, std::int32_t record) {
  const std::string problems = ProblemReport(journal, layer_name);
  return problems + (problems.empty() ? "" : "Note:  ") + "Exited Function Prematurely at Record " +
         std::to_string(record) + "\\par\r\n";
}

std::string FailedProblemReport(const RunJournal& journal, const std::string& layer_name, std::int32_t record,
                                const Fault& fault) {
  return ProblemReport(journal, layer_name) + FailureSection(fault) + "Analyzing Record #" + std::to_string(record) +
         "\\par\r\n";
}

std::string FailedCalculation(const Fault& fault) {
  return ReportHead() + "Geometry Calculation Failed:\\par\r\n\\pard " + FailureSection(fault) + "}";
}

}  // namespace tessarine
