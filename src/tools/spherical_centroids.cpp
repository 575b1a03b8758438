// SPDX-License-Identifier: GPL-2.0-or-later
// The same on the globe, as longitude and latitude.
#include <array>

#include "conversion/run_words.h"
#include "conversion/steps.h"
#include "tools/common/conversion_tool.h"

namespace tessarine::tools {
namespace {

using namespace modCreateVertices;

constexpr std::array kRules = {ShapeRule{esriGeometryNull, esriGeometryPoint, kCoordinates}};

const ConversionRow kRow{
    .words = {.name = "spherical-centroids",
              .text = "The same on the globe, as longitude and latitude",
              .takes = "polylines, polygons or multipoints",
              .makes = "A class of points in degrees with Uniq_ID and longitude and latitude in X_Coord and Y_Coord, "
                       "one for each feature.",
              .example = "tessarine spherical-centroids tests/data/countries.shp --fields name -o centers.shp",
              .result = ToolResult::Centers},
    .command = {"clsConvertSphCentroid",
                "Spherical_Centroid",
                "Convert Features to &Spherical Centroids",
                "Features to Spherical Centroids",
                "Calculate centroid of feature draped over sphere...",
                119,
                {Menu::Shapes, 4}},
    .dialog =
        {" Shapes to Spherical Centroids:", 112, "Spherical_Centroids", "Convert",
         "This function will generate a shapefile of points that represent the spherical center of mass (centroid) "
         "of polygons (assuming a sphere containing the same volume as the data spatial reference spheroid) or "
         "spheroidal centerpoint of polylines (see manual for details).  "
         "For polygons and multipoints, the new point shapefile will contain fields for latitude and longitude "
         "coordinates in the "
         "geographic datum of the original feature class projection (i.e. polygons projected into UTM NAD27 "
         "coordinates will "
         "produce geographic centroids based on the NAD27 datum, while polygons projected into UTM NAD83 coordinates "
         "will "
         "produce geographic centroids based on the NAD83 datum).  "
         "You may transfer any of the original feature attribute data "
         "to the centroid shapefile by selecting the respective attribute fields."},
    .run =
        {
            .conversion_option = 8,
            .worker = "ConvertToSphericalCentroid",
            .kind = RunKind::Geographic,
            .rules = kRules,
            .progress_threshold = 20,
            .reports_skipped = true,
            .flushes_each_feature = false,
            .words = {.status_lead_in = "Generating Spherical Centroids from ",
                      .action_text = "Calculating Spherical Centroids...",
                      .repeated_action = "Calculating Spherical Centroids...",
                      .name_prompt = "Specify New Spherical Centroid Feature Class Name:",
                      .skipped_heading = kEmptyFeatures,
                      .report_title = "Features to Spherical Centroids",
                      .all_label = "Convert All Records (n = ",
                      .selected_label = "Convert Selected Records (n = ",
                      .count_noun = " spherical centroids"},
            .make_step = MakeSphericalCentroidStep,
        },
};

}  // namespace

const Tool& SphericalCentroids() {
  static const ConversionTool tool(kRow);
  return tool;
}

}  // namespace tessarine::tools
