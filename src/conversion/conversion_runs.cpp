#include "conversion/conversion_runs.h"

#include <array>

#include "conversion/steps.h"

namespace tessarine::modCreateVertices {
namespace {

constexpr std::array<std::string_view, 2> kCoordinateFields = {"X_Coord", "Y_Coord"};

const std::array kRuns = {
    ConversionRun{
        .ConversionOption = 1,
        .Worker = "ConvertToVertices",
        .Shape = OutputShape::Point,
        .ProgressThreshold = 500,
        .MeasureFields = kCoordinateFields,
        .ReportsSkipped = false,
        .FlushesEachFeature = true,
        .Words = {.StatusLeadIn = "Generating Vertices from ",
                  .ActionText = "Extracting Vertices...",
                  .RepeatedAction = "Extracting Vertices...",
                  .NamePrompt = "Specify New Vertex Feature Class Name:",
                  .SkippedHeading = "\\b Empty Geometries Found:\\b0  These features were skipped in the "
                                    "analysis...\\par",
                  .ReportTitle = "Shapes to Vertices",
                  .AllLabel = "Convert All Records (n = ",
                  .SelectedLabel = "Convert Selected Records (n = ",
                  .CountNoun = " vertex points"},
        .MakeStep = MakeVertexStep,
    },
};

}  // namespace

std::span<const ConversionRun> AllRuns() { return kRuns; }

const ConversionRun* FindRun(std::int32_t conversion_option) {
  for (const ConversionRun& run : kRuns) {
    if (run.ConversionOption == conversion_option) return &run;
  }
  return nullptr;
}

esriGeometryType OutputGeometry(OutputShape shape, esriGeometryType input) {
  switch (shape) {
    case OutputShape::Point:
      return esriGeometryPoint;
    case OutputShape::Polyline:
      return esriGeometryPolyline;
    case OutputShape::Polygon:
      return esriGeometryPolygon;
    case OutputShape::LikeInputPart:
      return input == esriGeometryMultipoint ? esriGeometryPoint : input;
    case OutputShape::LikeInput:
      return input;
  }
  return input;
}

}  // namespace tessarine::modCreateVertices
