// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/planetary_latitude.h"

#include <limits>
#include <string>

#include "geodesy/checked_arithmetic.h"
#include "geodesy/latitudes.h"
#include "platform/tell_user.h"
#include "platform/trap.h"
#include "shapes/vertex_walk.h"

namespace tessarine::MyGeometricOperations {
namespace {

using geodesy::Figure;
using geodesy::checked::Finite;

// The way of one vertex, and the routine's name as its message box spells it.
struct Conversion {
  void (*convert)(double lon, double lat, double semi_major, double semi_minor, double long_shift, double& new_lon,
                  double& new_lat);
  const char* shown_name;
};

constexpr Conversion kToOGraphic{XYOCentricToOGraphic, "FeaturePlanetOCentricToPlanetOGraphic"};
constexpr Conversion kToOCentric{XYOGraphicToOCentric, "FeaturePlanetOgraphicToPlanetOcentric"};

void TakeOwnAxes(const IGeometry& geometry, const Conversion& conversion, double& semi_major, double& semi_minor) {
  const SpatialReferenceRef& reference = Require(geometry.SpatialReference(), "SpatialReference");
  const auto geographic = Cast<const GeographicCoordinateSystem>(reference);
  if (!geographic) {
    TellUser("Unexpected Spatial Reference:\r\nThe function '" + std::string(conversion.shown_name) +
                 "' only accepts geometries with geographic projections.\r\n"
                 "This geometry has spatial reference '" +
                 reference->Name() + "...",
             "");
    Raise(kTypeMismatch, "The spatial reference is not a geographic one.");
  }
  const auto& spheroid = Require(Require(geographic->Datum(), "Datum")->Spheroid(), "Spheroid");
  semi_major = spheroid->SemiMajorAxis();
  semi_minor = spheroid->SemiMinorAxis();
}

// A conversion that fails reports under its own name and leaves what it was given to fill; that must fail the shape.
XY ConvertVertex(const Conversion& conversion, XY vertex, double semi_major, double semi_minor, double long_shift) {
  constexpr double kUnset = std::numeric_limits<double>::quiet_NaN();
  XY converted{kUnset, kUnset};
  conversion.convert(vertex.x, vertex.y, semi_major, semi_minor, long_shift, converted.x, converted.y);
  return {Finite(converted.x), Finite(converted.y)};
}

GeometryRef ConvertFeature(const GeometryRef& geometry, const Conversion& conversion, double& semi_major,
                           double& semi_minor, double long_shift) {
  Require(geometry, "Geometry");
  if (semi_major <= 0.0 || semi_minor <= 0.0) TakeOwnAxes(*geometry, conversion, semi_major, semi_minor);
  const GeometryRef converted = CopyWithVertices(
      *geometry, [&](XY vertex) { return ConvertVertex(conversion, vertex, semi_major, semi_minor, long_shift); });
  if (!converted) {
    TellUser(
        "Unexpected Geometry Type:\r\nThe function 'PlanetOCentricToPlanetOGraphic' only accepts "
        "points, polylines, polygons or multipoints.",
        "");
  }
  return converted;
}

}  // namespace

void XYOCentricToOGraphic(double lon, double lat, double semi_major, double semi_minor, double long_shift,
                          double& new_lon, double& new_lat) {
  TrapHelper("XYOCentricToOGraphic", [&] {
    const double shifted = Finite(lon + long_shift);
    const double latitude = geodesy::ToPlanetographic(lat, Figure::FromAxes(semi_major, semi_minor));
    new_lon = shifted, new_lat = latitude;
  });
}

void XYOGraphicToOCentric(double lon, double lat, double semi_major, double semi_minor, double long_shift,
                          double& new_lon, double& new_lat) {
  TrapHelper("XYOGraphicToOCentric", [&] {
    const double shifted = Finite(lon + long_shift);
    const double latitude = geodesy::ToPlanetocentric(lat, Figure::FromAxes(semi_major, semi_minor));
    new_lon = shifted, new_lat = latitude;
  });
}

GeometryRef FeaturePlanetOCentricToPlanetOGraphic(const GeometryRef& geometry, double& semi_major, double& semi_minor,
                                                  double long_shift) {
  return TrapHelper("FeaturePlanetOCentricToPlanetOGraphic",
                    [&] { return ConvertFeature(geometry, kToOGraphic, semi_major, semi_minor, long_shift); });
}

GeometryRef FeaturePlanetOGraphicToPlanetOCentric(const GeometryRef& geometry, double& semi_major, double& semi_minor,
                                                  double long_shift) {
  return TrapHelper("FeaturePlanetOGraphicToPlanetOCentric",
                    [&] { return ConvertFeature(geometry, kToOCentric, semi_major, semi_minor, long_shift); });
}

}  // namespace tessarine::MyGeometricOperations
