// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/layer_fields_texts.h"

#include <array>

namespace tessarine {
namespace {

constexpr std::array kTexts = {
    LayerFieldsTexts{
        1, " Shapes to Vertices:", 112, "vertex", "Convert",
        "This function will convert polyline, polygon and multipoint features to a point shapefile of the "
        "feature vertices.  The new point shapefile will contain fields for X- and Y-coordinates in the "
        "projection of the original feature class.  You may transfer any of the original feature attribute data "
        "to the point shapefile by selecting the respective attribute fields."},
    LayerFieldsTexts{
        2, " Polygons to Label Points:", 32, "Label_Points", "Convert",
        "This function will generate a shapefile of points that represent the label points within each polygon. "
        "The new point shapefile will contain fields for X- and Y-coordinates in the "
        "projection of the original feature class.  You may transfer any of the original polygon attribute data "
        "to the label point shapefile by selecting the respective attribute fields."},
    LayerFieldsTexts{
        4, " Shapes to Centroids:", 112, "Centroids", "Convert",
        "This function will generate a shapefile of points that represent either the planimetric "
        "center of mass (centroid) of polygons or multipoints, or the midpoint of polylines.  "
        "The new point shapefile will contain fields for X- and Y-coordinates in the "
        "projection of the original feature class.  You may transfer any of the original feature attribute data "
        "to the centroid shapefile by selecting the respective attribute fields."},
    LayerFieldsTexts{
        8, " Shapes to Spherical Centroids:", 112, "Spherical_Centroids", "Convert",
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
    LayerFieldsTexts{
        16, " Polylines to Polygons:", 16, "Polygons", "Convert",
        "This function will convert polyline features to a polygon shapefile by connecting the "
        "start and endpoints of the original polylines.  Multipart polylines will be maintained as multipart "
        "polygons. "
        "The new polygon shapefile will contain a field for the area of the polygon in the "
        "projection of the original polyline feature class.  You may transfer any of the original polyline attribute "
        "data "
        "to the polygon shapefile by selecting the respective attribute fields."},
    LayerFieldsTexts{
        32, " Polygons to Polylines:", 32, "Polylines", "Convert",
        "This function will convert polygon features to a polyline shapefile, where the polylines "
        "represent the boundaries of the original polygon.  Multipart polygons will be maintained as multipart "
        "polylines. "
        "The new polyline shapefile will contain a field for the length of the polyline in the "
        "projection of the original polygon feature class.  You may transfer any of the original polygon attribute "
        "data "
        "to the polyline shapefile by selecting the respective attribute fields."},
    LayerFieldsTexts{
        64, " Split Multipart Features:", 1, "Split_Shapes", "Convert",
        "This function will split any multipart features found in the selected feature class."
        "The new shapefile will contain fields describing the geometry of the new feature (X- and Y-Coordinates "
        "if points, Length if polylines, or Area if polygons) in the "
        "projection of the original feature class.  You may transfer any of the original feature attribute data "
        "to the polygon shapefile by selecting the respective attribute fields."},
    LayerFieldsTexts{
        128, " Combine Features:", 1, "Combined_Shapes", "Combine",
        "This function will combine all specified features into a single geometry.  The new geometry "
        "will be of the same type as the original geometry, with the exception of Points which will be combined "
        "into a Multipoint object.  Overlapping features will be dissolved into each other. "
        "You may transfer the original feature attribute data of the first original feature into the "
        "new feature shapefile by selecting the respective attribute fields."},
};

}  // namespace

const LayerFieldsTexts* FindLayerFieldsTexts(std::int32_t conversion_option) {
  for (const LayerFieldsTexts& texts : kTexts) {
    if (texts.conversion_option == conversion_option) return &texts;
  }
  return nullptr;
}

}  // namespace tessarine
