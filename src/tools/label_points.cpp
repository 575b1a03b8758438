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
              .example = "tessarine label-points tests/data/countries.shp --fields name -o labels.shp"},
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
            .ConversionOption = 2,
            .Worker = "ConvertToLabelPoints",
            .Kind = RunKind::Planar,
            .Rules = kRules,
            .ProgressThreshold = 2000,
            .ReportsSkipped = true,
            .FlushesEachFeature = false,
            .Words = {.StatusLeadIn = "Generating Label Points from ",
                      .ActionText = "Calculating Label Points...",
                      .RepeatedAction = "Calculating Centroids...",
                      .NamePrompt = "Specify New Label Point Feature Class Name:",
                      .SkippedHeading = kEmptyPolygons,
                      .ReportTitle = "Polygons to Label Points",
                      .AllLabel = "Convert All Records (n = ",
                      .SelectedLabel = "Convert Selected Records (n = ",
                      .CountNoun = " label points"},
            .MakeStep = MakeLabelPointStep,
        },
};

}  // namespace

const Tool& LabelPoints() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
