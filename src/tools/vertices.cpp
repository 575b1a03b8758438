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
         .example = "tessarine vertices tests/data/countries.shp --fields name,pop_est -o vertex.shp",
         .result = ToolResult::Vertices},
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
            .conversion_option = 1,
            .worker = "ConvertToVertices",
            .kind = RunKind::Planar,
            .rules = kRules,
            .progress_threshold = 500,
            .reports_skipped = false,
            .flushes_each_feature = true,
            .words = {.status_lead_in = "Generating Vertices from ",
                      .action_text = "Extracting Vertices...",
                      .repeated_action = "Extracting Vertices...",
                      .name_prompt = "Specify New Vertex Feature Class Name:",
                      .skipped_heading = kEmptyGeometries,
                      .report_title = "Shapes to Vertices",
                      .all_label = "Convert All Records (n = ",
                      .selected_label = "Convert Selected Records (n = ",
                      .count_noun = " vertex points"},
            .make_step = MakeVertexStep,
        },
};

}  // namespace

const Tool& Vertices() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
