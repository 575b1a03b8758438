#include "geodesy/spherical_area_sum.h"

#include <algorithm>
#include <cmath>

#include "geodesy/angles.h"
#include "geodesy/cartesian.h"
#include "geodesy/checked_arithmetic.h"
#include "geodesy/spherical_area.h"
#include "geodesy/spherical_triangle.h"

namespace tessarine::MyGeometricOperations {
namespace {

// The triple product of three unit vectors is sin(s12) sin(s31) sin(A12 - A13). Both it and the azimuths are wrong by a
// few units of the last place of longitude and latitude in radians, times the longer sides. The bound is a hundred
// times that for longitudes of up to three turns.
constexpr double kTurnBound = 1e-13;
constexpr double kPlainLongitude = 1000.0;
// Below this, though not at 0, the components of an azimuth may be so small that their quotient overflows.
constexpr double kTinyLatitude = 1e-200;

// The operations of `DegToRad`, without its trap. What isn't finite is caught at the end.
double Radians(double degrees) { return degrees * kPi / 180.0; }

bool IsPlain(XY at) { return std::fabs(at.x) <= kPlainLongitude && (at.y == 0.0 || std::fabs(at.y) >= kTinyLatitude); }

// `atan2` of two roots, times 2; a root below 0 spoils it.
double SideOf(double sine, double cosine) {
  if (cosine == 0.0) return sine == 0.0 ? 0.0 : 2.0 * (kPi / 2.0);
  return 2.0 * std::atan(sine / cosine);
}

}  // namespace

SphericalAreaSum::SphericalAreaSum(bool want_centroid)
    : SphericalAreaSum(detail::kWgs1984SemiMajor, detail::kWgs1984SemiMinor, want_centroid, true) {}

SphericalAreaSum::SphericalAreaSum(double semi_major, double semi_minor, bool want_centroid)
    : SphericalAreaSum(semi_major, semi_minor, want_centroid, false) {}

// A volume without a real cube root makes every area unsound.
SphericalAreaSum::SphericalAreaSum(double semi_major, double semi_minor, bool want_centroid, bool fixed)
    : a_(semi_major), b_(semi_minor), want_centroid_(want_centroid), fixed_(fixed) {
  const double radius = std::pow(a_ * a_ * b_, 1.0 / 3.0);
  radius_squared_ = radius * radius;
}

// Each loop does one operation for all vertices, so that none waits for another.
void SphericalAreaSum::Prepare(std::span<const XY> positions, const Apex& apex, std::span<Vertex> vertices) {
  const std::size_t count = positions.size();
  std::array<double, kLanes> theta, lambda, half_lambda, sine, cosine;
  for (std::size_t i = 0; i < count; ++i) {
    const XY at = positions[i];
    vertices[i].at = at;
    vertices[i].phi = Radians(at.y);
    vertices[i].plain = IsPlain(at);
    theta[i] = Radians(90.0 - at.y);
    lambda[i] = Radians(at.x);
    half_lambda[i] = Radians(apex.at.x - at.x) / 2.0;
  }
  for (std::size_t i = 0; i < count; ++i) vertices[i].cos_phi = std::cos(vertices[i].phi);
  for (std::size_t i = 0; i < count; ++i) {
    const double sin_theta = std::sin(theta[i]);
    vertices[i].unit = {sin_theta * std::cos(lambda[i]), sin_theta * std::sin(lambda[i]), std::cos(theta[i])};
  }
  for (std::size_t i = 0; i < count; ++i) {
    const double sin_lambda = std::sin(half_lambda[i]), sin_phi = std::sin((apex.phi - vertices[i].phi) / 2.0);
    const double h = apex.cos_phi * vertices[i].cos_phi * (sin_lambda * sin_lambda) + sin_phi * sin_phi;
    sine[i] = std::sqrt(h);
    cosine[i] = std::sqrt(1.0 - h);
  }
  for (std::size_t i = 0; i < count; ++i) vertices[i].side = SideOf(sine[i], cosine[i]);
}

void SphericalAreaSum::AddTriangles(std::span<const Vertex> vertices, const Apex& apex) {
  const std::size_t count = vertices.size() - 1;
  std::array<double, kLanes> half_lambda, sine, cosine, side, product;
  for (std::size_t i = 0; i < count; ++i) half_lambda[i] = Radians(vertices[i].at.x - vertices[i + 1].at.x) / 2.0;
  for (std::size_t i = 0; i < count; ++i) {
    const Vertex &from = vertices[i], &to = vertices[i + 1];
    const double sin_lambda = std::sin(half_lambda[i]), sin_phi = std::sin((from.phi - to.phi) / 2.0);
    const double h = from.cos_phi * to.cos_phi * (sin_lambda * sin_lambda) + sin_phi * sin_phi;
    sine[i] = std::sqrt(h);
    cosine[i] = std::sqrt(1.0 - h);
  }
  for (std::size_t i = 0; i < count; ++i) side[i] = SideOf(sine[i], cosine[i]);
  for (std::size_t i = 0; i < count; ++i) {
    const double s12 = side[i], s23 = vertices[i + 1].side, s31 = vertices[i].side;
    const double s = (s12 + s23 + s31) / 2.0;
    product[i] = std::tan(s / 2.0) * std::tan((s - s12) / 2.0) * std::tan((s - s23) / 2.0) * std::tan((s - s31) / 2.0);
  }
  for (std::size_t i = 0; i < count; ++i) product[i] = 4.0 * std::atan(std::sqrt(std::fabs(product[i])));

  for (std::size_t i = 0; i < count; ++i) {
    const double area = SignedArea(vertices[i], vertices[i + 1], apex, side[i], product[i]);
    area_ += area;
    if (want_centroid_) AddCenter(vertices[i], vertices[i + 1], apex, area);
  }
}

double SphericalAreaSum::SignedArea(const Vertex& from, const Vertex& to, const Apex& apex, double side,
                                    double excess) const {
  if (detail::HasNoArea(from.at, to.at, apex.at)) return 0.0;
  const double area = radius_squared_ * excess;
  if (!std::isfinite(area)) {
    double sign = 0.0;
    return fixed_ ? SphericalTriangleArea(from.at, to.at, apex.at, sign)
                  : SphericalTriangleArea2(from.at, to.at, apex.at, sign, a_, b_);
  }
  const UnitVector &p = from.unit, &q = to.unit, &r = apex.unit;
  const double ux = q.x - p.x, uy = q.y - p.y, uz = q.z - p.z;
  const double vx = r.x - p.x, vy = r.y - p.y, vz = r.z - p.z;
  const double triple = p.x * (uy * vz - uz * vy) + p.y * (uz * vx - ux * vz) + p.z * (ux * vy - uy * vx);
  if (from.plain && to.plain && apex.plain && std::fabs(triple) > kTurnBound * (side + from.side)) {
    return area * (triple > 0.0 ? -1.0 : 1.0);
  }
  return area * detail::SignOfTurn(from.at, to.at, apex.at);
}

// The operations of `TriangleCentroid3D`, its result brought to the unit sphere, times the area.
void SphericalAreaSum::AddCenter(const Vertex& from, const Vertex& to, const Apex& apex, double area) {
  const UnitVector &u = from.unit, &v = to.unit, &w = apex.unit;
  const double x = (u.x + v.x + w.x) / 3.0, y = (u.y + v.y + w.y) / 3.0, z = (u.z + v.z + w.z) / 3.0;
  const double length = checked::Finite(std::sqrt(x * x + y * y + z * z));
  if (length == 0.0) Raise(kDivisionByZero, "Division by zero");
  moment_.x += x / length * area;
  moment_.y += y / length * area;
  moment_.z += z / length * area;
}

void SphericalAreaSum::AddRing(std::span<const XY> ring, XY apex_at) {
  if (ring.empty()) return;
  Apex apex{apex_at, Radians(apex_at.y), 0.0, {}, IsPlain(apex_at)};
  apex.cos_phi = std::cos(apex.phi);
  SphericalLatLongToCart(apex_at.x, apex_at.y, apex.unit.x, apex.unit.y, apex.unit.z);

  std::array<Vertex, kLanes + 1> vertices;
  Prepare(ring.first(1), apex, vertices);
  for (std::size_t next = 1; next < ring.size();) {
    const std::size_t count = std::min(kLanes, ring.size() - next);
    Prepare(ring.subspan(next, count), apex, std::span(vertices).subspan(1));
    AddTriangles({vertices.data(), count + 1}, apex);
    vertices[0] = vertices[count];
    next += count;
  }
}

void SphericalAreaSum::Centroid(double& lon, double& lat) const {
  if (area_ <= 0.0) {
    lon = lat = kNoValue;
    return;
  }
  SphericalCartToLatLong(lon, lat, checked::Divide(moment_.x, area_), checked::Divide(moment_.y, area_),
                         checked::Divide(moment_.z, area_));
}

}  // namespace tessarine::MyGeometricOperations
