// SPDX-License-Identifier: MIT
// Sides and excess of spherical triangles, for any number of them side by side. Each lane gets the same bits as alone.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <span>

#include "geodesy/angles.h"
#include "geodesy/small_angles.h"

namespace tessarine::geodesy::detail {

template <std::size_t Count>
using Lanes = std::array<double, Count>;

/// One function for all lanes: the series side by side, then the C library for those that aren't small.
template <std::size_t Count, class Series, class Exact>
void Apply(Lanes<Count>& lanes, Series series, Exact exact) {
  const Lanes<Count> arguments = lanes;
  for (double& lane : lanes) lane = series(lane);
  for (std::size_t i = 0; i < Count; ++i) {
    if (!IsSmall(arguments[i])) lanes[i] = exact(arguments[i]);
  }
}

template <std::size_t Count>
void TakeSines(Lanes<Count>& lanes) {
  Apply(
      lanes, [](double x) { return SineSeries(x); }, [](double x) { return std::sin(x); });
}

template <std::size_t Count>
void TakeTangents(Lanes<Count>& lanes) {
  Apply(
      lanes, [](double x) { return TangentSeries(x); }, [](double x) { return std::tan(x); });
}

template <std::size_t Count>
void TakeArcTangents(Lanes<Count>& lanes) {
  Apply(
      lanes, [](double x) { return ArcTangentSeries(x); }, [](double x) { return std::atan(x); });
}

/// Central angles by the haversine form, from the halved differences of longitude and latitude and the products of the
/// cosines of latitude. Half a side is the angle of the roots of the haversine and of what it lacks to 1.
template <class Arithmetic, std::size_t Count>
[[nodiscard]] Lanes<Count> Sides(Lanes<Count> half_lambda, Lanes<Count> half_phi, const Lanes<Count>& cosines) {
  TakeSines(half_lambda);
  TakeSines(half_phi);
  Lanes<Count> sine, cosine, sides;
  for (std::size_t i = 0; i < Count; ++i) {
    const double h = cosines[i] * (half_lambda[i] * half_lambda[i]) + half_phi[i] * half_phi[i];
    sine[i] = Arithmetic::Root(h);
    cosine[i] = Arithmetic::Root(1.0 - h);
    sides[i] = sine[i] / cosine[i];
  }
  TakeArcTangents(sides);
  for (double& side : sides) side *= 2.0;
  for (std::size_t i = 0; i < Count; ++i) {
    if (cosine[i] == 0.0) [[unlikely]]
      sides[i] = sine[i] == 0.0 ? 0.0 : kPi;
  }
  return sides;
}

/// The excess of each triangle from its sides, by L'Huilier's theorem.
template <class Arithmetic, std::size_t Count>
[[nodiscard]] Lanes<Count> Excesses(std::span<const double, Count> s12, std::span<const double, Count> s23,
                                    std::span<const double, Count> s31) {
  Lanes<Count> t0, t1, t2, t3, excess;
  for (std::size_t i = 0; i < Count; ++i) {
    const double s = (s12[i] + s23[i] + s31[i]) / 2.0;
    t0[i] = s / 2.0;
    t1[i] = (s - s12[i]) / 2.0;
    t2[i] = (s - s23[i]) / 2.0;
    t3[i] = (s - s31[i]) / 2.0;
  }
  for (Lanes<Count>* lanes : {&t0, &t1, &t2, &t3}) TakeTangents(*lanes);
  for (std::size_t i = 0; i < Count; ++i) excess[i] = Arithmetic::Root(std::fabs(t0[i] * t1[i] * t2[i] * t3[i]));
  TakeArcTangents(excess);
  for (double& lane : excess) lane *= 4.0;
  return excess;
}

/// The squared radius of the sphere with the volume of the figure.
template <class Arithmetic>
[[nodiscard]] double SquaredRadius(const Figure& figure) {
  const double radius = Arithmetic::Power(figure.semi_major * figure.semi_major * figure.semi_minor, 1.0 / 3.0);
  return radius * radius;
}

}  // namespace tessarine::geodesy::detail
