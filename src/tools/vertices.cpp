// SPDX-License-Identifier: GPL-2.0-or-later
// One point for each vertex of lines, polygons and multipoints.
#include <array>

#include "conversion/run_words.h"
#include "conversion/steps.h"
#include "tools/common/conversion_tool.h"

namespace tessarine::tools {
namespace {

using namespace modCreateVertices;

constexpr std::array kRules = {ShapeRule{esriGeometryNull, esriGeometryPoint, kCoordinates}};

const ConversionRow kRow{
    .words =
        {.name = "vertices",
         .text = "One point for each vertex of lines, polygons and multipoints",
         .takes = "polylines, polygons or multipoints",
         .makes =
             "A class of points with the number and the coordinates of each vertex in Uniq_ID, X_Coord and Y_Coord.",
         .example = "tessarine vertices tests/data/countries.shp --fields name,pop_est -o vertex.shp"},
    .command = {"clsShapesToVertices",
                "ShapesToVertices",
                "Convert Shapes to &Vertices",
                "Shapes to Vertices",
                "Convert Polylines and Polygons to Vertex Point shapefiles...",
                109,
                {Menu::Shapes, 5}},
    .dialog = {" Shapes to Vertices:", 112, "vertex", "Convert",
               "This function will convert polyline, polygon and multipoint features to a point shapefile of the "
               "feature vertices.  The new point shapefile will contain fields for X- and Y-coordinates in the "
               "projection of the original feature class.  You may transfer any of the original feature attribute data "
               "to the point shapefile by selecting the respective attribute fields."},
    .run =
        {
            .ConversionOption = 1,
            .Worker = "ConvertToVertices",
            .Kind = RunKind::Planar,
            .Rules = kRules,
            .ProgressThreshold = 500,
            .ReportsSkipped = false,
            .FlushesEachFeature = true,
            .Words = {.StatusLeadIn = "Generating Vertices from ",
                      .ActionText = "Extracting Vertices...",
                      .RepeatedAction = "Extracting Vertices...",
                      .NamePrompt = "Specify New Vertex Feature Class Name:",
                      .SkippedHeading = kEmptyGeometries,
                      .ReportTitle = "Shapes to Vertices",
                      .AllLabel = "Convert All Records (n = ",
                      .SelectedLabel = "Convert Selected Records (n = ",
                      .CountNoun = " vertex points"},
            .MakeStep = MakeVertexStep,
        },
};

}  // namespace

const Tool& Vertices() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
