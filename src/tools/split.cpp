// SPDX-License-Identifier: GPL-2.0-or-later
// One feature for each part of multipart features.
#include <array>

#include "conversion/run_words.h"
#include "conversion/steps.h"
#include "tools/common/conversion_tool.h"

namespace tessarine::tools {
namespace {

using namespace modCreateVertices;

constexpr std::array kRules = {
    ShapeRule{esriGeometryMultipoint, esriGeometryPoint, kCoordinates},
    ShapeRule{esriGeometryPolyline, esriGeometryPolyline, kLength},
    ShapeRule{esriGeometryPolygon, esriGeometryPolygon, kArea},
};

const ConversionRow kRow{
    .words =
        {.name = "split",
         .text = "One feature for each part of multipart features",
         .takes = "features",
         .makes =
             "A class of the source's kind, or points of multipoints, with Uniq_ID and coordinates, Length or Area.",
         .example = "tessarine split tests/data/countries.shp --fields name,iso_a3 -o parts.shp"},
    .command = {"clsConvertSplit",
                "SplitMultipart",
                "Split &Multipart Features",
                "Split Multipart Features",
                "Split multipart features into single objects...",
                115,
                {Menu::Shapes, 9, true}},
    .dialog = {" Split Multipart Features:", 1, "Split_Shapes", "Convert",
               "This function will split any multipart features found in the selected feature class."
               "The new shapefile will contain fields describing the geometry of the new feature (X- and Y-Coordinates "
               "if points, Length if polylines, or Area if polygons) in the "
               "projection of the original feature class.  You may transfer any of the original feature attribute data "
               "to the polygon shapefile by selecting the respective attribute fields."},
    .run =
        {
            .conversion_option = 64,
            .worker = "SplitMultipart",
            .kind = RunKind::Planar,
            .rules = kRules,
            .progress_threshold = 2000,
            .reports_skipped = true,
            .flushes_each_feature = false,
            .words = {.status_lead_in = "Splitting Multipart Features from ",
                      .action_text = "Splitting Multipart Features...",
                      .repeated_action = "Splitting Multipart Features...",
                      .name_prompt = "Specify New Feature Class Name:",
                      .skipped_heading = kEmptyFeatures,
                      .report_title = "Split Multipart Shapes",
                      .all_label = "Split All Records (n = ",
                      .selected_label = "Split Selected Records (n = ",
                      .count_noun = " features"},
            .make_step = MakeSplitStep,
        },
};

}  // namespace

const Tool& Split() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
