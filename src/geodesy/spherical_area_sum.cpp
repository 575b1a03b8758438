// SPDX-License-Identifier: MIT
#include "geodesy/spherical_area_sum.h"

#include <algorithm>
#include <cmath>

#include "geodesy/spherical_triangle.h"

namespace tessarine::geodesy {
namespace {

// The triple product of three unit vectors is sin(s12) sin(s31) sin(A12 - A13). Both it and the azimuths are wrong by a
// few units of the last place of longitude and latitude in radians, times the longer sides. The bound is a hundred
// times that for longitudes of up to three turns.
constexpr double kTurnBound = 1e-13;
constexpr double kPlainLongitude = 1000.0;
// Below this, though not at 0, the components of an azimuth may be so small that their quotient overflows.
constexpr double kTinyLatitude = 1e-200;

bool IsPlain(LonLat at) {
  return std::fabs(at.x) <= kPlainLongitude && (at.y == 0.0 || std::fabs(at.y) >= kTinyLatitude);
}

double RaiseUnsound(LonLat from, LonLat to, LonLat apex, const Figure& figure) {
  return TriangleArea(from, to, apex, figure).area;
}

}  // namespace

SphericalAreaSum::SphericalAreaSum(const Figure& figure, AreaWish wish, MeasureTriangle measure)
    : figure_(figure),
      radius_squared_(detail::SquaredRadius<MarkedArithmetic>(figure)),
      want_centroid_(wish == AreaWish::WithCentroid),
      measure_(measure != nullptr ? measure : RaiseUnsound) {}

void SphericalAreaSum::Vertices::Carry(std::size_t place) {
  for (Row* row : {&lon, &lat, &phi, &cos_phi, &x, &y, &z, &side}) (*row)[0] = (*row)[place];
  plain[0] = plain[place];
}

// Fills places 1 and up; what is left over repeats the last position.
void SphericalAreaSum::Prepare(std::span<const LonLat> positions, const Apex& apex, Vertices& vertices) {
  for (std::size_t i = 0; i < kLanes; ++i) {
    const LonLat at = positions[std::min(i, positions.size() - 1)];
    vertices.lon[i + 1] = at.x;
    vertices.lat[i + 1] = at.y;
    vertices.plain[i + 1] = IsPlain(at);
  }
  Lanes theta, lambda, half_lambda, half_phi, cosines;
  for (std::size_t i = 0; i < kLanes; ++i) {
    vertices.phi[i + 1] = detail::Radians(vertices.lat[i + 1]);
    theta[i] = detail::Radians(90.0 - vertices.lat[i + 1]);
    lambda[i] = detail::Radians(vertices.lon[i + 1]);
    half_lambda[i] = detail::Radians(apex.at.x - vertices.lon[i + 1]) / 2.0;
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
  const Lanes sides = detail::Sides<MarkedArithmetic>(half_lambda, half_phi, cosines);
  std::copy(sides.begin(), sides.end(), vertices.side.begin() + 1);
}

void SphericalAreaSum::Measure(const Vertices& v, const Apex& apex, Triangles& triangles) {
  Lanes half_lambda, half_phi, cosines;
  for (std::size_t i = 0; i < kLanes; ++i) {
    half_lambda[i] = detail::Radians(v.lon[i] - v.lon[i + 1]) / 2.0;
    half_phi[i] = (v.phi[i] - v.phi[i + 1]) / 2.0;
    cosines[i] = v.cos_phi[i] * v.cos_phi[i + 1];
  }
  triangles.side = detail::Sides<MarkedArithmetic>(half_lambda, half_phi, cosines);

  const std::span sides(v.side);
  triangles.excess =
      detail::Excesses<MarkedArithmetic, kLanes>(triangles.side, sides.subspan<1, kLanes>(), sides.first<kLanes>());

  const UnitVector& r = apex.unit;
  for (std::size_t i = 0; i < kLanes; ++i) {
    const double px = v.x[i], py = v.y[i], pz = v.z[i];
    const double ux = v.x[i + 1] - px, uy = v.y[i + 1] - py, uz = v.z[i + 1] - pz;
    const double wx = r.x - px, wy = r.y - py, wz = r.z - pz;
    triangles.triple[i] = px * (uy * wz - uz * wy) + py * (uz * wx - ux * wz) + pz * (ux * wy - uy * wx);
  }
}

// The operations of `MeanOf`.
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
  const LonLat from = vertices.At(lane), to = vertices.At(lane + 1);
  if (detail::HasNoArea(from, to, apex.at)) return 0.0;
  const double area = radius_squared_ * triangles.excess[lane];
  if (!std::isfinite(area)) return measure_(from, to, apex.at, figure_);
  const double triple = triangles.triple[lane];
  const double bound = kTurnBound * (triangles.side[lane] + vertices.side[lane]);
  if (vertices.plain[lane] && vertices.plain[lane + 1] && apex.plain && std::fabs(triple) > bound) {
    return triple > 0.0 ? -area : area;
  }
  try {
    return area * detail::SignOfTurn(from, to, apex.at);
  } catch (const Fault&) {
    return measure_(from, to, apex.at, figure_);
  }
}

// In the order of the segments. Each centre counts by its area.
void SphericalAreaSum::Add(const Vertices& vertices, const Apex& apex, const Triangles& triangles, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    const double area = SignedArea(vertices, apex, triangles, i);
    area_ += area;
    if (!want_centroid_) continue;
    const double length = triangles.length[i];
    // Only a place that isn't finite makes such a length; `measure_` knows of it, unless the triangle has no area.
    if (!std::isfinite(length)) [[unlikely]]
      continue;
    if (length == 0.0) [[unlikely]]
      Raise(kDivisionByZero, "Division by zero");
    moment_.x += triangles.x[i] * area;
    moment_.y += triangles.y[i] * area;
    moment_.z += triangles.z[i] * area;
  }
}

void SphericalAreaSum::AddRing(std::span<const LonLat> ring, LonLat apex_at) {
  if (ring.empty()) return;
  Apex apex{apex_at, detail::Radians(apex_at.y), 0.0, {}, IsPlain(apex_at)};
  apex.cos_phi = std::cos(apex.phi);
  const double theta = detail::Radians(90.0 - apex_at.y), lambda = detail::Radians(apex_at.x);
  apex.unit = {std::sin(theta) * std::cos(lambda), std::sin(theta) * std::sin(lambda), std::cos(theta)};

  Vertices vertices;
  Triangles triangles;
  Prepare(ring.first(1), apex, vertices);
  vertices.Carry(1);
  for (std::size_t next = 1; next < ring.size();) {
    const std::size_t count = std::min(kLanes, ring.size() - next);
    Prepare(ring.subspan(next, count), apex, vertices);
    Measure(vertices, apex, triangles);
    if (want_centroid_) FindCenters(vertices, apex, triangles);
    Add(vertices, apex, triangles, count);
    vertices.Carry(count);
    next += count;
  }
}

std::optional<LonLat> SphericalAreaSum::Centroid() const {
  if (area_ <= 0.0) return std::nullopt;
  return ToSphere(
      {checked::Divide(moment_.x, area_), checked::Divide(moment_.y, area_), checked::Divide(moment_.z, area_)});
}

}  // namespace tessarine::geodesy
