// SPDX-License-Identifier: GPL-2.0-or-later
// The boundaries of polygons as lines.
#include <array>

#include "conversion/run_words.h"
#include "conversion/steps.h"
#include "tools/common/conversion_tool.h"

namespace tessarine::tools {
namespace {

using namespace modCreateVertices;

constexpr std::array kRules = {ShapeRule{esriGeometryNull, esriGeometryPolyline, kLength}};

const ConversionRow kRow{
    .words = {.name = "to-polylines",
              .text = "The boundaries of polygons as lines",
              .takes = "polygons",
              .makes = "A class of polylines with Uniq_ID and their Length in the unit of the coordinates.",
              .example = "tessarine to-polylines tests/data/countries.shp --fields name -o boundaries.shp",
              .result = ToolResult::Outlines},
    .command = {"clsConvertToPolyline",
                "PolygonToPolyline",
                "Convert Polygons to Poly&lines",
                "Polygons to Polylines",
                "Convert Polygons to Polylines...",
                110,
                {Menu::Shapes, 7}},
    .dialog =
        {" Polygons to Polylines:", 32, "Polylines", "Convert",
         "This function will convert polygon features to a polyline shapefile, where the polylines "
         "represent the boundaries of the original polygon.  Multipart polygons will be maintained as multipart "
         "polylines. "
         "The new polyline shapefile will contain a field for the length of the polyline in the "
         "projection of the original polygon feature class.  You may transfer any of the original polygon attribute "
         "data "
         "to the polyline shapefile by selecting the respective attribute fields."},
    .run =
        {
            .conversion_option = 32,
            .worker = "PolygonsToPolylines",
            .kind = RunKind::Planar,
            .rules = kRules,
            .progress_threshold = 500,
            .reports_skipped = true,
            .flushes_each_feature = false,
            .words = {.status_lead_in = "Generating Polylines from ",
                      .action_text = "Converting Polygons to Polylines...",
                      .repeated_action = "Converting Polygons to Polylines...",
                      .name_prompt = "Specify New Polyline Class Name:",
                      .skipped_heading = kEmptyPolygons,
                      .report_title = "Polygons to Polylines",
                      .all_label = "Convert All Records (n = ",
                      .selected_label = "Convert Selected Records (n = ",
                      .count_noun = " polylines"},
            .make_step = MakePolylineStep,
        },
};

}  // namespace

const Tool& ToPolylines() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
