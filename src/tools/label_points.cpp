// SPDX-License-Identifier: GPL-2.0-or-later
// One point inside each polygon.
#include <array>

#include "conversion/run_words.h"
#include "conversion/steps.h"
#include "tools/common/conversion_tool.h"

namespace tessarine::tools {
namespace {

using namespace modCreateVertices;

constexpr std::array kRules = {ShapeRule{esriGeometryNull, esriGeometryPoint, kCoordinates}};

const ConversionRow kRow{
    .words = {.name = "label-points",
              .text = "One point inside each polygon",
              .takes = "polygons",
              .makes = "A class of points with Uniq_ID, X_Coord and Y_Coord, one inside each polygon.",
              .example = "tessarine label-points tests/data/countries.shp --fields name -o labels.shp",
              .result = ToolResult::Centers},
    .command = {"clsConvertLabelpoint",
                "PolygonToLabelPoints",
                "Convert Polygons to La&bel Points",
                "Polygons to Label Points",
                "Extract label points within polygons...",
                112,
                {Menu::Shapes, 2, true, "clsConvertLabelPoint"}},
    .dialog = {" Polygons to Label Points:", 32, "Label_Points", "Convert",
               "This function will generate a shapefile of points that represent the label points within each polygon. "
               "The new point shapefile will contain fields for X- and Y-coordinates in the "
               "projection of the original feature class.  You may transfer any of the original polygon attribute data "
               "to the label point shapefile by selecting the respective attribute fields."},
    .run =
        {
            .conversion_option = 2,
            .worker = "ConvertToLabelPoints",
            .kind = RunKind::Planar,
            .rules = kRules,
            .progress_threshold = 2000,
            .reports_skipped = true,
            .flushes_each_feature = false,
            .words = {.status_lead_in = "Generating Label Points from ",
                      .action_text = "Calculating Label Points...",
                      .repeated_action = "Calculating Centroids...",
                      .name_prompt = "Specify New Label Point Feature Class Name:",
                      .skipped_heading = kEmptyPolygons,
                      .report_title = "Polygons to Label Points",
                      .all_label = "Convert All Records (n = ",
                      .selected_label = "Convert Selected Records (n = ",
                      .count_noun = " label points"},
            .make_step = MakeLabelPointStep,
        },
};

}  // namespace

const Tool& LabelPoints() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
