// SPDX-License-Identifier: GPL-2.0-or-later
#include "geodesy/spherical_area_sum.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "geodesy/angles.h"
#include "geodesy/cartesian.h"
#include "geodesy/checked_arithmetic.h"
#include "geodesy/spherical_area.h"
#include "geodesy/spherical_triangle.h"
#include "platform/run_stop.h"

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

// One function for all lanes: the series side by side, then the C library for those that aren't small.
template <class Row, class Series, class Exact>
void Apply(Row& lanes, Series series, Exact exact) {
  const Row arguments = lanes;
  for (double& lane : lanes) lane = series(lane);
  for (std::size_t i = 0; i < lanes.size(); ++i) {
    if (!detail::IsSmall(arguments[i])) lanes[i] = exact(arguments[i]);
  }
}

template <class Row>
void TakeSines(Row& lanes) {
  Apply(
      lanes, [](double x) { return detail::SineSeries(x); }, [](double x) { return std::sin(x); });
}

template <class Row>
void TakeTangents(Row& lanes) {
  Apply(
      lanes, [](double x) { return detail::TangentSeries(x); }, [](double x) { return std::tan(x); });
}

template <class Row>
void TakeArcTangents(Row& lanes) {
  Apply(
      lanes, [](double x) { return detail::ArcTangentSeries(x); }, [](double x) { return std::atan(x); });
}

// Central angles by the haversine form, from the halved differences of longitude and latitude and the products of the
// cosines of latitude. A root of a number below 0 spoils its side.
template <class Row>
Row Sides(Row half_lambda, Row half_phi, const Row& cosines) {
  TakeSines(half_lambda);
  TakeSines(half_phi);
  Row sine, cosine, sides;
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const double h = cosines[i] * (half_lambda[i] * half_lambda[i]) + half_phi[i] * half_phi[i];
    sine[i] = std::sqrt(h);
    cosine[i] = std::sqrt(1.0 - h);
    sides[i] = sine[i] / cosine[i];
  }
  TakeArcTangents(sides);
  for (double& side : sides) side *= 2.0;
  for (std::size_t i = 0; i < sides.size(); ++i) {
    if (cosine[i] == 0.0) [[unlikely]]
      sides[i] = 2.0 * detail::HalfSide(sine[i], cosine[i]);
  }
  return sides;
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

void SphericalAreaSum::Vertices::Carry(std::size_t place) {
  for (Row* row : {&lon, &lat, &phi, &cos_phi, &x, &y, &z, &side}) (*row)[0] = (*row)[place];
  plain[0] = plain[place];
}

// Fills places 1 and up; what is left over repeats the last position.
void SphericalAreaSum::Prepare(std::span<const XY> positions, const Apex& apex, Vertices& vertices) {
  for (std::size_t i = 0; i < kLanes; ++i) {
    const XY at = positions[std::min(i, positions.size() - 1)];
    vertices.lon[i + 1] = at.x;
    vertices.lat[i + 1] = at.y;
    vertices.plain[i + 1] = IsPlain(at);
  }
  Lanes theta, lambda, half_lambda, half_phi, cosines;
  for (std::size_t i = 0; i < kLanes; ++i) {
    vertices.phi[i + 1] = Radians(vertices.lat[i + 1]);
    theta[i] = Radians(90.0 - vertices.lat[i + 1]);
    lambda[i] = Radians(vertices.lon[i + 1]);
    half_lambda[i] = Radians(apex.at.x - vertices.lon[i + 1]) / 2.0;
    half_phi[i] = (apex.phi - vertices.phi[i + 1]) / 2.0;
  }
  for (std::size_t i = 0; i < kLanes; ++i) vertices.cos_phi[i + 1] = std::cos(vertices.phi[i + 1]);
  for (std::size_t i = 0; i < kLanes; ++i) cosines[i] = apex.cos_phi * vertices.cos_phi[i + 1];
  for (std::size_t i = 0; i < kLanes; ++i) {
    const double sin_theta = std::sin(theta[i]);
    vertices.x[i + 1] = sin_theta * std::cos(lambda[i]);
    vertices.y[i + 1] = sin_theta * std::sin(lambda[i]);
    vertices.z[i + 1] = std::cos(theta[i]);
  }
  const Lanes sides = Sides(half_lambda, half_phi, cosines);
  std::copy(sides.begin(), sides.end(), vertices.side.begin() + 1);
}

void SphericalAreaSum::Measure(const Vertices& v, const Apex& apex, Triangles& triangles) {
  Lanes half_lambda, half_phi, cosines;
  for (std::size_t i = 0; i < kLanes; ++i) {
    half_lambda[i] = Radians(v.lon[i] - v.lon[i + 1]) / 2.0;
    half_phi[i] = (v.phi[i] - v.phi[i + 1]) / 2.0;
    cosines[i] = v.cos_phi[i] * v.cos_phi[i + 1];
  }
  triangles.side = Sides(half_lambda, half_phi, cosines);

  Lanes t0, t1, t2, t3;
  for (std::size_t i = 0; i < kLanes; ++i) {
    const double s12 = triangles.side[i], s23 = v.side[i + 1], s31 = v.side[i];
    const double s = (s12 + s23 + s31) / 2.0;
    t0[i] = s / 2.0;
    t1[i] = (s - s12) / 2.0;
    t2[i] = (s - s23) / 2.0;
    t3[i] = (s - s31) / 2.0;
  }
  for (Lanes* lanes : {&t0, &t1, &t2, &t3}) TakeTangents(*lanes);
  Lanes& excess = triangles.excess;
  for (std::size_t i = 0; i < kLanes; ++i) excess[i] = std::sqrt(std::fabs(t0[i] * t1[i] * t2[i] * t3[i]));
  TakeArcTangents(excess);
  for (double& lane : excess) lane *= 4.0;

  const UnitVector& r = apex.unit;
  for (std::size_t i = 0; i < kLanes; ++i) {
    const double px = v.x[i], py = v.y[i], pz = v.z[i];
    const double ux = v.x[i + 1] - px, uy = v.y[i + 1] - py, uz = v.z[i + 1] - pz;
    const double wx = r.x - px, wy = r.y - py, wz = r.z - pz;
    triangles.triple[i] = px * (uy * wz - uz * wy) + py * (uz * wx - ux * wz) + pz * (ux * wy - uy * wx);
  }
}

// The operations of `TriangleCentroid3D`.
void SphericalAreaSum::FindCenters(const Vertices& v, const Apex& apex, Triangles& triangles) {
  const UnitVector& w = apex.unit;
  for (std::size_t i = 0; i < kLanes; ++i) {
    const double x = (v.x[i] + v.x[i + 1] + w.x) / 3.0, y = (v.y[i] + v.y[i + 1] + w.y) / 3.0;
    const double z = (v.z[i] + v.z[i + 1] + w.z) / 3.0;
    const double length = std::sqrt(x * x + y * y + z * z);
    triangles.length[i] = length;
    triangles.x[i] = x / length;
    triangles.y[i] = y / length;
    triangles.z[i] = z / length;
  }
}

double SphericalAreaSum::SignedArea(const Vertices& vertices, const Apex& apex, const Triangles& triangles,
                                    std::size_t lane) const {
  const XY from = vertices.At(lane), to = vertices.At(lane + 1);
  if (detail::HasNoArea(from, to, apex.at)) return 0.0;
  const double area = radius_squared_ * triangles.excess[lane];
  if (!std::isfinite(area)) {
    double sign = 0.0;
    return fixed_ ? SphericalTriangleArea(from, to, apex.at, sign)
                  : SphericalTriangleArea2(from, to, apex.at, sign, a_, b_);
  }
  const double triple = triangles.triple[lane];
  const double bound = kTurnBound * (triangles.side[lane] + vertices.side[lane]);
  if (vertices.plain[lane] && vertices.plain[lane + 1] && apex.plain && std::fabs(triple) > bound) {
    return triple > 0.0 ? -area : area;
  }
  return area * detail::SignOfTurn(from, to, apex.at);
}

// The centre of one triangle by the routines that report what there is to report, brought to the unit sphere.
SphericalAreaSum::UnitVector SphericalAreaSum::ReportedCenter(XY from, XY to, XY apex) {
  UnitVector p{}, q{}, r{}, center{};
  SphericalLatLongToCart(from.x, from.y, p.x, p.y, p.z);
  SphericalLatLongToCart(to.x, to.y, q.x, q.y, q.z);
  SphericalLatLongToCart(apex.x, apex.y, r.x, r.y, r.z);
  TriangleCentroid3D(p.x, p.y, p.z, q.x, q.y, q.z, r.x, r.y, r.z, center.x, center.y, center.z);
  const double length = checked::Finite(std::sqrt(center.x * center.x + center.y * center.y + center.z * center.z));
  return {checked::Divide(center.x, length), checked::Divide(center.y, length), checked::Divide(center.z, length)};
}

// In the order of the segments. Each centre counts by its area.
void SphericalAreaSum::Add(const Vertices& vertices, const Apex& apex, const Triangles& triangles, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const double area = SignedArea(vertices, apex, triangles, i);
    area_ += area;
    if (!want_centroid_) continue;
    UnitVector center{triangles.x[i], triangles.y[i], triangles.z[i]};
    if (!(std::isfinite(triangles.length[i]) && triangles.length[i] > 0.0)) [[unlikely]]
      center = ReportedCenter(vertices.At(i), vertices.At(i + 1), apex.at);
    moment_.x += center.x * area;
    moment_.y += center.y * area;
    moment_.z += center.z * area;
  }
}

void SphericalAreaSum::AddRing(std::span<const XY> ring, XY apex_at) {
  if (ring.empty()) return;
  Apex apex{apex_at, Radians(apex_at.y), 0.0, {}, IsPlain(apex_at)};
  apex.cos_phi = std::cos(apex.phi);
  SphericalLatLongToCart(apex_at.x, apex_at.y, apex.unit.x, apex.unit.y, apex.unit.z);

  Vertices vertices;
  Triangles triangles;
  Prepare(ring.first(1), apex, vertices);
  vertices.Carry(1);
  StopPoll poll;
  for (std::size_t next = 1; next < ring.size();) {
    poll();
    const std::size_t count = std::min(kLanes, ring.size() - next);
    Prepare(ring.subspan(next, count), apex, vertices);
    Measure(vertices, apex, triangles);
    if (want_centroid_) FindCenters(vertices, apex, triangles);
    Add(vertices, apex, triangles, count);
    vertices.Carry(count);
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
