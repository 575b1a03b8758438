// SPDX-License-Identifier: GPL-2.0-or-later
// One feature for all: the union of lines or polygons.
#include <array>

#include "conversion/run_words.h"
#include "conversion/steps.h"
#include "tools/common/conversion_tool.h"

namespace tessarine::tools {
namespace {

using namespace modCreateVertices;

constexpr std::array kRules = {
    ShapeRule{esriGeometryPoint, esriGeometryPoint, kCount},
    ShapeRule{esriGeometryPolyline, esriGeometryPolyline, kLength},
    ShapeRule{esriGeometryPolygon, esriGeometryPolygon, kArea},
};

const ConversionRow kRow{
    .words = {.name = "combine",
              .text = "One feature for all: the union of lines or polygons",
              .takes = "features",
              .makes = "One feature with Uniq_ID and the Length or Area of all, and the attributes of the first.",
              .example = "tessarine combine tests/data/countries.shp --where \"continent = 'Africa'\" --fields "
                         "continent -o africa.shp"},
    .command = {"clsConvertJoin",
                "JoinFeatures",
                "Combine &Features",
                "Combine Features",
                "Combine multiple features into a single multipart object...",
                116,
                {Menu::Shapes, 10}},
    .dialog = {" Combine Features:", 1, "Combined_Shapes", "Combine",
               "This function will combine all specified features into a single geometry.  The new geometry "
               "will be of the same type as the original geometry, with the exception of Points which will be combined "
               "into a Multipoint object.  Overlapping features will be dissolved into each other. "
               "You may transfer the original feature attribute data of the first original feature into the "
               "new feature shapefile by selecting the respective attribute fields."},
    .run =
        {
            .conversion_option = 128,
            .worker = "JoinFeatures",
            .kind = RunKind::Joining,
            .rules = kRules,
            .progress_threshold = -1,
            .reports_skipped = true,
            .flushes_each_feature = false,
            .words = {.status_lead_in = "Joining Features from ",
                      .action_text = "",
                      .repeated_action = "",
                      .name_prompt = "Specify New Merged Feature Class Name:",
                      .skipped_heading = kEmptyFeatures,
                      .report_title = "Join Features",
                      .all_label = "Joined All Records (n = ",
                      .selected_label = "Joined Selected Records (n = ",
                      .count_noun = " feature"},
            .make_step = MakeJoinStep,
        },
};

}  // namespace

const Tool& Combine() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
