// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/spherical_area.h"

#include <cmath>

#include "geodesy/angles.h"
#include "geodesy/checked_arithmetic.h"
#include "geodesy/positions.h"
#include "geodesy/spherical_area_sum.h"
#include "geodesy/spherical_triangle.h"
#include "platform/trap.h"

namespace tessarine::MyGeometricOperations {
namespace {

using checked::Finite;
using checked::Power;
using checked::Root;
using detail::kWgs1984SemiMajor;
using detail::kWgs1984SemiMinor;
using detail::Sine;
using detail::Tangent;

// The central angle between two places, by the haversine form.
double SideBetween(XY a, XY b) {
  const double phi_a = DegToRad(a.y), phi_b = DegToRad(b.y);
  const double d_phi = phi_a - phi_b;
  const double d_lambda = DegToRad(a.x - b.x);
  const double sin_lambda = Sine(d_lambda / 2.0), sin_phi = Sine(d_phi / 2.0);
  const double h = std::cos(phi_a) * std::cos(phi_b) * (sin_lambda * sin_lambda) + sin_phi * sin_phi;
  return 2.0 * detail::HalfSide(Root(h), Root(1.0 - h));
}

double AreaOf(XY p1, XY p2, XY p3, double& sign, double a, double b) {
  if (detail::HasNoArea(p1, p2, p3)) return 0.0;
  const double radius = Power(a * a * b, 1.0 / 3.0);
  const double s12 = SideBetween(p1, p2), s23 = SideBetween(p2, p3), s31 = SideBetween(p3, p1);
  const double turn = detail::SignOfTurn(p1, p2, p3);
  const double s = (s12 + s23 + s31) / 2.0;
  const double product =
      Tangent(s / 2.0) * Tangent((s - s12) / 2.0) * Tangent((s - s23) / 2.0) * Tangent((s - s31) / 2.0);
  const double excess = 4.0 * detail::ArcTangent(Root(std::fabs(product)));
  const double area = Finite(radius * radius * excess * turn);
  sign = turn;
  return area;
}

double PolygonAreaOf(const Polygon& polygon, SphericalAreaSum sum, bool want_centroid, double& lon, double& lat) {
  const std::shared_ptr<GeometryBag> components = polygon.ConnectedComponentBag();
  for (std::int32_t index = 0; index < components->GeometryCount(); ++index) {
    const auto component = Cast<Polygon>(components->Geometry(index));
    // A part without area adds none, and has no centre of gravity to span triangles from.
    if (!component->HasArea()) continue;
    const XY apex = component->Centroid();
    for (const std::shared_ptr<Path>& ring : component->Parts()) sum.AddRing(ring->Vertices(), apex);
  }
  if (want_centroid) sum.Centroid(lon, lat);
  return Finite(sum.Area());
}

}  // namespace

namespace detail {

bool HasNoArea(XY p1, XY p2, XY p3) {
  const auto equal = [](double first, double second) { return std::fabs(first - second) < kTolerance; };
  const auto coincide = [&](XY first, XY second) { return equal(first.x, second.x) && equal(first.y, second.y); };
  return (equal(p1.x, p2.x) && equal(p1.x, p3.x)) || coincide(p1, p2) || coincide(p1, p3) || coincide(p2, p3);
}

double SignOfTurn(XY p1, XY p2, XY p3) {
  const double phi1 = DegToRad(p1.y);
  const auto azimuth_to = [&](XY target) {
    const double phi = DegToRad(target.y);
    const double d_lambda = DegToRad(target.x - p1.x);
    const double azimuth = atan2(std::cos(phi) * std::sin(d_lambda),
                                 std::cos(phi1) * std::sin(phi) - std::sin(phi1) * std::cos(phi) * std::cos(d_lambda));
    return azimuth < 0.0 ? azimuth + kTwoPi : azimuth;
  };
  const double a12 = azimuth_to(p2);
  const double d = azimuth_to(p3) - a12;
  if (d <= 0.0) return std::fabs(d) <= kPi ? -1.0 : 1.0;
  return d <= kPi ? 1.0 : -1.0;
}

}  // namespace detail

double SphericalTriangleArea(XY p1, XY p2, XY p3, double& sign) {
  return TrapHelper("SphericalTriangleArea",
                    [&] { return AreaOf(p1, p2, p3, sign, kWgs1984SemiMajor, kWgs1984SemiMinor); });
}

double SphericalTriangleArea(const Point& p1, const Point& p2, const Point& p3, double& sign) {
  return TrapHelper("SphericalTriangleArea", [&] {
    return AreaOf(CoordinatesOf(p1), CoordinatesOf(p2), CoordinatesOf(p3), sign, kWgs1984SemiMajor, kWgs1984SemiMinor);
  });
}

double SphericalTriangleArea2(XY p1, XY p2, XY p3, double& sign, double semi_major, double semi_minor) {
  return TrapHelper("SphericalTriangleArea2", [&] { return AreaOf(p1, p2, p3, sign, semi_major, semi_minor); });
}

double SphericalTriangleArea2(const Point& p1, const Point& p2, const Point& p3, double& sign, double semi_major,
                              double semi_minor) {
  return TrapHelper("SphericalTriangleArea2", [&] {
    return AreaOf(CoordinatesOf(p1), CoordinatesOf(p2), CoordinatesOf(p3), sign, semi_major, semi_minor);
  });
}

double SphericalPolygonArea(const std::shared_ptr<Polygon>& polygon, bool want_centroid, double& centroid_lon,
                            double& centroid_lat) {
  return TrapHelper("SphericalPolygonArea", [&] {
    return PolygonAreaOf(*Require(polygon, "Polygon"), SphericalAreaSum(want_centroid), want_centroid, centroid_lon,
                         centroid_lat);
  });
}

double SphericalPolygonArea2(const std::shared_ptr<Polygon>& polygon, bool want_centroid, double& centroid_lon,
                             double& centroid_lat, double semi_major, double semi_minor) {
  return TrapHelper("SphericalPolygonArea2", [&] {
    Require(polygon, "Polygon")->SnapToSpatialReference();
    return PolygonAreaOf(*polygon, SphericalAreaSum(semi_major, semi_minor, want_centroid), want_centroid, centroid_lon,
                         centroid_lat);
  });
}

}  // namespace tessarine::MyGeometricOperations
