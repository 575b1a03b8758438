// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/spherical_area.h"

#include <algorithm>

#include "geodesy/spherical_triangle.h"
#include "platform/run_stop.h"
#include "platform/trap.h"
#include "shapes/angles.h"
#include "shapes/positions.h"

namespace tessarine::MyGeometricOperations {
namespace {

using geodesy::AreaWish;
using geodesy::Figure;
using geodesy::SphericalAreaSum;

double AreaOf(XY p1, XY p2, XY p3, double& sign, const Figure& figure) {
  const geodesy::SignedArea triangle = geodesy::TriangleArea(p1, p2, p3, figure);
  if (triangle.sign != 0.0) sign = triangle.sign;
  return triangle.area;
}

double ReportedArea(XY from, XY to, XY apex, const Figure&) {
  double sign = 0.0;
  return SphericalTriangleArea(from, to, apex, sign);
}

double ReportedArea2(XY from, XY to, XY apex, const Figure& figure) {
  double sign = 0.0;
  return SphericalTriangleArea2(from, to, apex, sign, figure.semi_major, figure.semi_minor);
}

AreaWish WishOf(bool want_centroid) { return want_centroid ? AreaWish::WithCentroid : AreaWish::AreaAlone; }

double PolygonAreaOf(const Polygon& polygon, SphericalAreaSum sum, bool want_centroid, double& lon, double& lat) {
  const std::shared_ptr<GeometryBag> components = polygon.ConnectedComponentBag();
  for (std::int32_t index = 0; index < components->GeometryCount(); ++index) {
    const auto component = Cast<Polygon>(components->Geometry(index));
    // A part without area adds none, and has no centre of gravity to span triangles from.
    if (!component->HasArea()) continue;
    const XY apex = component->Centroid();
    for (const std::shared_ptr<Path>& ring : component->Parts()) AddRing(sum, ring->Vertices(), apex);
  }
  if (want_centroid) {
    const XY centroid = sum.Centroid().value_or(XY{kNoValue, kNoValue});
    lon = centroid.x, lat = centroid.y;
  }
  return geodesy::checked::Finite(sum.Area());
}

}  // namespace

SphericalAreaSum ReportingAreaSum(double semi_major, double semi_minor, AreaWish wish) {
  return {Figure::FromAxes(semi_major, semi_minor), wish, ReportedArea2};
}

void AddRing(SphericalAreaSum& sum, std::span<const XY> ring, XY apex) {
  constexpr std::size_t kSegmentsAtOnce = std::size_t{1} << 16;
  for (std::size_t first = 0; first < ring.size(); first += kSegmentsAtOnce) {
    if (first > 0) EndIfStopped();
    sum.AddRing(ring.subspan(first, std::min(kSegmentsAtOnce + 1, ring.size() - first)), apex);
  }
}

double SphericalTriangleArea(XY p1, XY p2, XY p3, double& sign) {
  return TrapHelper("SphericalTriangleArea", [&] { return AreaOf(p1, p2, p3, sign, geodesy::kWgs1984); });
}

double SphericalTriangleArea(const Point& p1, const Point& p2, const Point& p3, double& sign) {
  return TrapHelper("SphericalTriangleArea", [&] {
    return AreaOf(CoordinatesOf(p1), CoordinatesOf(p2), CoordinatesOf(p3), sign, geodesy::kWgs1984);
  });
}

double SphericalTriangleArea2(XY p1, XY p2, XY p3, double& sign, double semi_major, double semi_minor) {
  return TrapHelper("SphericalTriangleArea2",
                    [&] { return AreaOf(p1, p2, p3, sign, Figure::FromAxes(semi_major, semi_minor)); });
}

double SphericalTriangleArea2(const Point& p1, const Point& p2, const Point& p3, double& sign, double semi_major,
                              double semi_minor) {
  return TrapHelper("SphericalTriangleArea2", [&] {
    return AreaOf(CoordinatesOf(p1), CoordinatesOf(p2), CoordinatesOf(p3), sign,
                  Figure::FromAxes(semi_major, semi_minor));
  });
}

double SphericalPolygonArea(const std::shared_ptr<Polygon>& polygon, bool want_centroid, double& centroid_lon,
                            double& centroid_lat) {
  return TrapHelper("SphericalPolygonArea", [&] {
    const SphericalAreaSum sum(geodesy::kWgs1984, WishOf(want_centroid), ReportedArea);
    return PolygonAreaOf(*Require(polygon, "Polygon"), sum, want_centroid, centroid_lon, centroid_lat);
  });
}

double SphericalPolygonArea2(const std::shared_ptr<Polygon>& polygon, bool want_centroid, double& centroid_lon,
                             double& centroid_lat, double semi_major, double semi_minor) {
  return TrapHelper("SphericalPolygonArea2", [&] {
    Require(polygon, "Polygon")->SnapToSpatialReference();
    return PolygonAreaOf(*polygon, ReportingAreaSum(semi_major, semi_minor, WishOf(want_centroid)), want_centroid,
                         centroid_lon, centroid_lat);
  });
}

}  // namespace tessarine::MyGeometricOperations
