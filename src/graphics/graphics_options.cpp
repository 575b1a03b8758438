// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/graphics_options.h"

#include "platform/fault.h"

namespace tessarine {
namespace {

constexpr EmptyClass kEmptyClasses[] = {
    {"Create Empty Point Feature Class", esriGeometryPoint, GraphicMeasure::Coordinates},
    {"Create Empty Polyline Feature Class", esriGeometryPolyline, GraphicMeasure::Length},
    {"Create Empty Polygon Feature Class", esriGeometryPolygon, GraphicMeasure::Area},
};

constexpr GraphicSource kPoints{&GraphicSet::points, " point graphics\\par"};
constexpr GraphicSource kPolylines{&GraphicSet::polylines, " polyline graphics\\par"};
constexpr GraphicSource kPolygons{&GraphicSet::polygons, " polygon graphics\\par"};
constexpr GraphicSource kNone{nullptr, ""};

constexpr GraphicConversion kConversions[] = {
    {"Convert all graphic points to Point Feature Class", "Convert selected graphic points to Point Feature Class",
     esriGeometryPoint, GraphicMeasure::Coordinates, kPoints, kNone, "Point", "points", &GraphicSet::points},
    {"Convert all graphic polylines to Polyline Feature Class",
     "Convert selected graphic polylines to Polyline Feature Class", esriGeometryPolyline, GraphicMeasure::Length,
     kPolylines, kNone, "Polyline", "polylines", &GraphicSet::polylines},
    {"Convert all graphic polylines and polygons to Polyline Feature Class",
     "Convert selected graphic polylines and polygons to Polyline Feature Class", esriGeometryPolyline,
     GraphicMeasure::Length, kPolylines, kPolygons, "Polyline", "polylines or polygons", &GraphicSet::polylines},
    {"Convert all graphic polygons to Polygon Feature Class",
     "Convert selected graphic polygons to Polygon Feature Class", esriGeometryPolygon, GraphicMeasure::Area, kPolygons,
     kNone, "Polygon", "polygons", &GraphicSet::polygons},
    {"Convert all graphic polylines and polygons to Polygon Feature Class",
     "Convert selected graphic polylines and polygons to Polygon Feature Class", esriGeometryPolygon,
     GraphicMeasure::Area, kPolylines, kPolygons, "Polygon", "polygons", &GraphicSet::polygons},
};

}  // namespace

std::int32_t GraphicConversion::CountIn(const GraphicSet& set) const {
  return (set.*first.list).Count() + (second.list != nullptr ? (set.*second.list).Count() : 0);
}

bool GraphicConversion::AnyNameIn(const GraphicSet& set) const {
  return (set.*first.list).any_name || (second.list != nullptr && (set.*second.list).any_name);
}

std::string GraphicConversion::MissingTitle() const {
  return std::string("Unable to Make ") + shape_word + " Feature Class:";
}

std::string GraphicConversion::MissingText(bool selected) const {
  return std::string(selected ? "No selected graphic " : "No graphic ") + missing_words +
         " in map!  No new Feature Class will be made.\r\nDo you wish to go back and \r\nmake a different selection?";
}

const EmptyClass& EmptyClassOf(esriGeometryType geometry_type) {
  for (const EmptyClass& row : kEmptyClasses) {
    if (row.geometry_type == geometry_type) return row;
  }
  Raise(kInvalidCall, "Empty classes are made of points, polylines or polygons.");
}

const GraphicConversion& ConversionAt(std::int32_t line) {
  if (line < 0 || line >= static_cast<std::int32_t>(std::size(kConversions))) {
    Raise(kInvalidCall, "No conversion is selected.");
  }
  return kConversions[static_cast<std::size_t>(line)];
}

}  // namespace tessarine
