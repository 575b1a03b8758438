// SPDX-License-Identifier: GPL-2.0-or-later
// Close the parts of lines to polygons.
#include <array>

#include "conversion/run_words.h"
#include "conversion/steps.h"
#include "tools/common/conversion_tool.h"

namespace tessarine::tools {
namespace {

using namespace modCreateVertices;

constexpr std::array kRules = {ShapeRule{esriGeometryNull, esriGeometryPolygon, kArea}};

const ConversionRow kRow{
    .words = {.name = "to-polygons",
              .text = "Close the parts of lines to polygons",
              .takes = "polylines",
              .makes = "A class of polygons with Uniq_ID and their Area in the square unit of the coordinates.",
              .example = "tessarine to-polygons tests/data/disputed_borders.shp --all-fields -o areas.shp",
              .result = ToolResult::Regions},
    .command = {"clsConvertToPolygon",
                "PolylineToPolygon",
                "Convert &Polylines to Polygons",
                "Polylines to Polygons",
                "Convert Polylines to Polygons...",
                111,
                {Menu::Shapes, 6}},
    .dialog =
        {" Polylines to Polygons:", 16, "Polygons", "Convert",
         "This function will convert polyline features to a polygon shapefile by connecting the "
         "start and endpoints of the original polylines.  Multipart polylines will be maintained as multipart "
         "polygons. "
         "The new polygon shapefile will contain a field for the area of the polygon in the "
         "projection of the original polyline feature class.  You may transfer any of the original polyline attribute "
         "data "
         "to the polygon shapefile by selecting the respective attribute fields."},
    .run =
        {
            .conversion_option = 16,
            .worker = "PolylinesToPolygons",
            .kind = RunKind::Planar,
            .rules = kRules,
            .progress_threshold = 500,
            .reports_skipped = true,
            .flushes_each_feature = false,
            .words = {.status_lead_in = "Generating Polygons from ",
                      .action_text = "Converting Polylines to Polygons...",
                      .repeated_action = "Converting Polylines to Polygons...",
                      .name_prompt = "Specify New Polygon Feature Class Name:",
                      .skipped_heading = kEmptyPolylines,
                      .report_title = "Polylines to Polygons",
                      .all_label = "Convert All Records (n = ",
                      .selected_label = "Convert Selected Records (n = ",
                      .count_noun = " polygons"},
            .make_step = MakePolygonStep,
        },
};

}  // namespace

const Tool& ToPolygons() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
