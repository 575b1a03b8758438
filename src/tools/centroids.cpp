// SPDX-License-Identifier: GPL-2.0-or-later
// The centre of each polygon or multipoint and the middle of each line, on the plane.
#include <array>

#include "conversion/run_words.h"
#include "conversion/steps.h"
#include "tools/common/conversion_tool.h"

namespace tessarine::tools {
namespace {

using namespace modCreateVertices;

constexpr std::array kRules = {ShapeRule{esriGeometryNull, esriGeometryPoint, kCoordinates}};

const ConversionRow kRow{
    .words = {.name = "centroids",
              .text = "The centre of each polygon or multipoint and the middle of each line, on the plane",
              .takes = "polylines, polygons or multipoints",
              .makes = "A class of points with Uniq_ID, X_Coord and Y_Coord, one for each feature.",
              .example = "tessarine centroids tests/data/countries.shp --fields name --where \"continent = 'Africa'\" "
                         "-o centroids.shp",
              .result = ToolResult::Centers},
    .command = {"clsConvertCentroid",
                "PolygonToCentroid",
                "Convert Shapes to &Centroids",
                "Shapes to Centroids",
                "Identify centroids of Polygons and Polylines...",
                113,
                {Menu::Shapes, 3}},
    .dialog = {" Shapes to Centroids:", 112, "Centroids", "Convert",
               "This function will generate a shapefile of points that represent either the planimetric "
               "center of mass (centroid) of polygons or multipoints, or the midpoint of polylines.  "
               "The new point shapefile will contain fields for X- and Y-coordinates in the "
               "projection of the original feature class.  You may transfer any of the original feature attribute data "
               "to the centroid shapefile by selecting the respective attribute fields."},
    .run =
        {
            .conversion_option = 4,
            .worker = "ConvertToCentroids",
            .kind = RunKind::Planar,
            .rules = kRules,
            .progress_threshold = 2000,
            .reports_skipped = true,
            .flushes_each_feature = false,
            .words = {.status_lead_in = "Generating Centroids from ",
                      .action_text = "Calculating Centroids...",
                      .repeated_action = "Calculating Spherical Centroids...",
                      .name_prompt = "Specify New Centroid Feature Class Name:",
                      .skipped_heading = kEmptyGeometries,
                      .report_title = "Shapes to Centroids",
                      .all_label = "Convert All Records (n = ",
                      .selected_label = "Convert Selected Records (n = ",
                      .count_noun = " centroids"},
            .make_step = MakeCentroidStep,
        },
};

}  // namespace

const Tool& Centroids() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
