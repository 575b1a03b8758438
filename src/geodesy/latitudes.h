// SPDX-License-Identifier: MIT
// Planetocentric and planetographic latitudes.
//
// The planetographic latitude of a place on a spheroid is the angle of the spheroid's normal with the equator's plane;
// the planetocentric latitude is the angle of the line to the centre. Both are 0 on the equator and 90 at the poles,
// and in between the planetographic one is the greater on a flattened body, by at most 0.19 degrees on the Earth.
//
//   tan(graphic) = k tan(centric),  k = (a / b) squared
//
// Degrees in, degrees out; latitudes in [-90, 90], which is not checked. Angles convert by `ToRadiansDividedFirst` and
// `ToDegrees`. The latitudes 0, 90 and -90 stay exactly, and latitudes on the globe come out on the globe, which the
// cut pi alone wouldn't grant: on some bodies it takes 90 to 90.00000000000009. On a sphere a latitude stays as it is,
// apart from the rounding of the tangent and its arc. Forth and back it returns within 1e-13 degrees.
//
// Faults: 11 for a minor axis of 0, 6 for an overflow. Each costs a tangent and an arc tangent.
//
// Source: J. P. Snyder, Map Projections, A Working Manual, U.S. Geological Survey Professional Paper 1395 (1987),
// equation 3-28.
#pragma once

#include "geodesy/figure.h"

namespace tessarine::geodesy {

/// Planetocentric to planetographic.
[[nodiscard]] double ToPlanetographic(double latitude, const Figure& figure);
/// Planetographic to planetocentric. Here a major axis of 0 is fault 11, too.
[[nodiscard]] double ToPlanetocentric(double latitude, const Figure& figure);

}  // namespace tessarine::geodesy
