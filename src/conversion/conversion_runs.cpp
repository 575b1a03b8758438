// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/conversion_runs.h"

#include <array>

#include "conversion/steps.h"

namespace tessarine::modCreateVertices {
namespace {

constexpr std::array<std::string_view, 2> kCoordinates = {"X_Coord", "Y_Coord"};
constexpr std::array<std::string_view, 1> kArea = {"Area"};
constexpr std::array<std::string_view, 1> kLength = {"Length"};
constexpr std::array<std::string_view, 1> kCount = {"Count"};

constexpr std::array kToPoints = {ShapeRule{esriGeometryNull, esriGeometryPoint, kCoordinates}};
constexpr std::array kToPolygons = {ShapeRule{esriGeometryNull, esriGeometryPolygon, kArea}};
constexpr std::array kToPolylines = {ShapeRule{esriGeometryNull, esriGeometryPolyline, kLength}};
constexpr std::array kToParts = {
    ShapeRule{esriGeometryMultipoint, esriGeometryPoint, kCoordinates},
    ShapeRule{esriGeometryPolyline, esriGeometryPolyline, kLength},
    ShapeRule{esriGeometryPolygon, esriGeometryPolygon, kArea},
};
constexpr std::array kToOne = {
    // What is built is a multipoint; the class is one of points all the same.
    ShapeRule{esriGeometryPoint, esriGeometryPoint, kCount},
    ShapeRule{esriGeometryPolyline, esriGeometryPolyline, kLength},
    ShapeRule{esriGeometryPolygon, esriGeometryPolygon, kArea},
};

constexpr std::string_view kConvertAll = "Convert All Records (n = ";
constexpr std::string_view kConvertSelected = "Convert Selected Records (n = ";
constexpr std::string_view kEmptyGeometries =
    "\\b Empty Geometries Found:\\b0  These features were skipped in the analysis...\\par";
constexpr std::string_view kEmptyPolygons =
    "\\b Empty Polygons Found:\\b0  These features were skipped in the analysis...\\par";
constexpr std::string_view kEmptyPolylines =
    "\\b Empty Polylines Found:\\b0  These features were skipped in the analysis...\\par";
constexpr std::string_view kEmptyFeatures =
    "\\b Empty Features Found:\\b0  These features were skipped in the analysis...\\par";

const std::array kRuns = {
    ConversionRun{
        .ConversionOption = 1,
        .Worker = "ConvertToVertices",
        .Kind = RunKind::Planar,
        .Rules = kToPoints,
        .ProgressThreshold = 500,
        .ReportsSkipped = false,
        .FlushesEachFeature = true,
        .Words = {.StatusLeadIn = "Generating Vertices from ",
                  .ActionText = "Extracting Vertices...",
                  .RepeatedAction = "Extracting Vertices...",
                  .NamePrompt = "Specify New Vertex Feature Class Name:",
                  .SkippedHeading = kEmptyGeometries,
                  .ReportTitle = "Shapes to Vertices",
                  .AllLabel = kConvertAll,
                  .SelectedLabel = kConvertSelected,
                  .CountNoun = " vertex points"},
        .MakeStep = MakeVertexStep,
    },
    ConversionRun{
        .ConversionOption = 2,
        .Worker = "ConvertToLabelPoints",
        .Kind = RunKind::Planar,
        .Rules = kToPoints,
        .ProgressThreshold = 2000,
        .ReportsSkipped = true,
        .FlushesEachFeature = false,
        .Words = {.StatusLeadIn = "Generating Label Points from ",
                  .ActionText = "Calculating Label Points...",
                  .RepeatedAction = "Calculating Centroids...",
                  .NamePrompt = "Specify New Label Point Feature Class Name:",
                  .SkippedHeading = kEmptyPolygons,
                  .ReportTitle = "Polygons to Label Points",
                  .AllLabel = kConvertAll,
                  .SelectedLabel = kConvertSelected,
                  .CountNoun = " label points"},
        .MakeStep = MakeLabelPointStep,
    },
    ConversionRun{
        .ConversionOption = 4,
        .Worker = "ConvertToCentroids",
        .Kind = RunKind::Planar,
        .Rules = kToPoints,
        .ProgressThreshold = 2000,
        .ReportsSkipped = true,
        .FlushesEachFeature = false,
        .Words = {.StatusLeadIn = "Generating Centroids from ",
                  .ActionText = "Calculating Centroids...",
                  .RepeatedAction = "Calculating Spherical Centroids...",
                  .NamePrompt = "Specify New Centroid Feature Class Name:",
                  .SkippedHeading = kEmptyGeometries,
                  .ReportTitle = "Shapes to Centroids",
                  .AllLabel = kConvertAll,
                  .SelectedLabel = kConvertSelected,
                  .CountNoun = " centroids"},
        .MakeStep = MakeCentroidStep,
    },
    ConversionRun{
        .ConversionOption = 8,
        .Worker = "ConvertToSphericalCentroid",
        .Kind = RunKind::Geographic,
        .Rules = kToPoints,
        .ProgressThreshold = 20,
        .ReportsSkipped = true,
        .FlushesEachFeature = false,
        .Words = {.StatusLeadIn = "Generating Spherical Centroids from ",
                  .ActionText = "Calculating Spherical Centroids...",
                  .RepeatedAction = "Calculating Spherical Centroids...",
                  .NamePrompt = "Specify New Spherical Centroid Feature Class Name:",
                  .SkippedHeading = kEmptyFeatures,
                  .ReportTitle = "Features to Spherical Centroids",
                  .AllLabel = kConvertAll,
                  .SelectedLabel = kConvertSelected,
                  .CountNoun = " spherical centroids"},
        .MakeStep = MakeSphericalCentroidStep,
    },
    ConversionRun{
        .ConversionOption = 16,
        .Worker = "PolylinesToPolygons",
        .Kind = RunKind::Planar,
        .Rules = kToPolygons,
        .ProgressThreshold = 500,
        .ReportsSkipped = true,
        .FlushesEachFeature = false,
        .Words = {.StatusLeadIn = "Generating Polygons from ",
                  .ActionText = "Converting Polylines to Polygons...",
                  .RepeatedAction = "Converting Polylines to Polygons...",
                  .NamePrompt = "Specify New Polygon Feature Class Name:",
                  .SkippedHeading = kEmptyPolylines,
                  .ReportTitle = "Polylines to Polygons",
                  .AllLabel = kConvertAll,
                  .SelectedLabel = kConvertSelected,
                  .CountNoun = " polygons"},
        .MakeStep = MakePolygonStep,
    },
    ConversionRun{
        .ConversionOption = 32,
        .Worker = "PolygonsToPolylines",
        .Kind = RunKind::Planar,
        .Rules = kToPolylines,
        .ProgressThreshold = 500,
        .ReportsSkipped = true,
        .FlushesEachFeature = false,
        .Words = {.StatusLeadIn = "Generating Polylines from ",
                  .ActionText = "Converting Polygons to Polylines...",
                  .RepeatedAction = "Converting Polygons to Polylines...",
                  .NamePrompt = "Specify New Polyline Class Name:",
                  .SkippedHeading = kEmptyPolygons,
                  .ReportTitle = "Polygons to Polylines",
                  .AllLabel = kConvertAll,
                  .SelectedLabel = kConvertSelected,
                  .CountNoun = " polylines"},
        .MakeStep = MakePolylineStep,
    },
    ConversionRun{
        .ConversionOption = 64,
        .Worker = "SplitMultipart",
        .Kind = RunKind::Planar,
        .Rules = kToParts,
        .ProgressThreshold = 2000,
        .ReportsSkipped = true,
        .FlushesEachFeature = false,
        .Words = {.StatusLeadIn = "Splitting Multipart Features from ",
                  .ActionText = "Splitting Multipart Features...",
                  .RepeatedAction = "Splitting Multipart Features...",
                  .NamePrompt = "Specify New Feature Class Name:",
                  .SkippedHeading = kEmptyFeatures,
                  .ReportTitle = "Split Multipart Shapes",
                  .AllLabel = "Split All Records (n = ",
                  .SelectedLabel = "Split Selected Records (n = ",
                  .CountNoun = " features"},
        .MakeStep = MakeSplitStep,
    },
    ConversionRun{
        .ConversionOption = 128,
        .Worker = "JoinFeatures",
        .Kind = RunKind::Joining,
        .Rules = kToOne,
        .ProgressThreshold = -1,  // the flag is always set, and the run takes no notice of it
        .ReportsSkipped = true,
        .FlushesEachFeature = false,
        .Words = {.StatusLeadIn = "Joining Features from ",
                  .ActionText = "",
                  .RepeatedAction = "",
                  .NamePrompt = "Specify New Merged Feature Class Name:",
                  .SkippedHeading = kEmptyFeatures,
                  .ReportTitle = "Join Features",
                  .AllLabel = "Joined All Records (n = ",
                  .SelectedLabel = "Joined Selected Records (n = ",
                  .CountNoun = " feature"},
        .MakeStep = MakeJoinStep,
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

ShapeRule RuleFor(const ConversionRun& run, esriGeometryType input) {
  for (const ShapeRule& rule : run.Rules) {
    if (rule.Input == esriGeometryNull || rule.Input == input) return rule;
  }
  return {input, run.Kind == RunKind::Joining ? input : esriGeometryNull, {}};
}

std::string_view WhyNever(const ConversionRun& run, esriGeometryType input) {
  if (run.Kind == RunKind::Joining && input == esriGeometryPoint) {
    return "Points can't be combined: what they make is a multipoint, which the new class of points can't hold.";
  }
  if (RuleFor(run, input).Output != esriGeometryNull) return "";
  return "Features of this kind have no parts to split: choose a layer of multipoints, polylines or polygons.";
}

SpatialReferenceRef OutputReference(const ConversionRun& run, const SpatialReferenceRef& input) {
  if (run.Kind != RunKind::Geographic) return input;
  const SpatialReferenceRef geographic = GeographicOf(input);
  return geographic ? geographic : input;
}

}  // namespace tessarine::modCreateVertices
