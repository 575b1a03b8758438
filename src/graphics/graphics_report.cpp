// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/graphics_report.h"

#include "platform/paths.h"
#include "platform/report_heads.h"
#include "platform/rich_text.h"
#include "support/aml_func_mod.h"

namespace tessarine {
namespace {

constexpr const char* kRule = "------------------------------------------------------------------------\\par\r\n";
constexpr const char* kLineEnd = "\\par\r\n";

std::string ReferenceName(const SpatialReferenceRef& reference) {
  return EscapeRtf(reference ? reference->Name() : UnknownCoordinateSystem().Name());
}

std::string CoordinateLines(bool selected, const SpatialReferenceRef& output, const SpatialReferenceRef& map) {
  const std::string stamp =
      selected ? "          *** Data Frame Projection  " : "          *** Data Frame Projection = ";
  return "   [X_Coord]:  Coordinates in " + ReferenceName(output) + kLineEnd + "   [Y_Coord]:  Coordinates in " +
         ReferenceName(output) + kLineEnd + stamp + ReferenceName(map) + kLineEnd;
}

}  // namespace

std::string ReportText(const GraphicsReport& report) {
  std::string text = LargeReportHead() + report.title + "\\b0\\fs17\\par\r\n";
  text += "   " + aml_func_mod::InsertCommas(report.records) + " Records\\par\r\n" + report.names + kRule;
  text += "\\pard\\b " + report.option_title + "\\b0\\par\r\n   " + report.option + kLineEnd;
  if (!report.counts.empty()) text += "\\b Conversion Count:\\b0\\par\r\n" + report.counts;
  text += "\\b Attribute Fields:\\b0\\par\r\n" + report.fields;
  text += "\\b " + report.output_title + "\\b0\\par\r\n   " + EscapeRtf(ToNativePath(report.path)) + kLineEnd;
  if (!report.planned_fields.empty()) text += "\\b Columns:\\b0\\par\r\n" + report.planned_fields;
  if (!report.foretold.empty()) text += "\\b Foretold:\\b0\\par\r\n" + report.foretold;
  if (!report.questions.empty()) text += "\\b Questions:\\b0\\par\r\n" + report.questions;
  return text + report.problems + "}";
}

std::string EmptyFieldLines(GraphicMeasure measure) {
  switch (measure) {
    case GraphicMeasure::Coordinates:
      return "   [X_Coord]\\par\r\n   [Y_Coord]\\par\r\n";
    case GraphicMeasure::Length:
      return "   [Length]\\par\r\n";
    case GraphicMeasure::Area:
      return "   [Area]\\par\r\n";
  }
  return "";
}

std::string FieldLines(GraphicMeasure measure, bool names, bool selected, const SpatialReferenceRef& output,
                       const SpatialReferenceRef& map) {
  std::string lines;
  switch (measure) {
    case GraphicMeasure::Coordinates:
      lines = CoordinateLines(selected, output, map);
      break;
    case GraphicMeasure::Length:
      lines = "   [Length]: Length (m) calculated from geodesic curves over WGS84 spheroid\\par\r\n";
      break;
    case GraphicMeasure::Area:
      lines = "   [Area]: Area (m^2) calculated on spherical polygon (sphere radius ~6371 km)\\par\r\n";
      break;
  }
  return names ? lines + "   [Name]:  Names of graphic elements\\par\r\n" : lines;
}

std::string CountLine(std::int32_t count, const char* words) { return std::to_string(count) + words + "\r\n"; }

std::string NameLines(const NameCounts& names) {
  if (names.IsEmpty()) return "";
  std::string lines = "\\b The following graphic element names were added to the attribute table:\\b0\\par\r\n";
  int number = 0;
  for (const std::string& name : names.SortedNames()) {
    lines += "   " + std::to_string(++number) + "] " + (name.empty() ? "<- NO NAME ->" : EscapeRtf(name)) + "  (" +
             std::to_string(names.CountOf(name)) + " elements)\\par\r\n";
  }
  return lines;
}

}  // namespace tessarine
