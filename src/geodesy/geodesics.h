// SPDX-License-Identifier: MIT
// Geodesic lines on a spheroid: distance and azimuths between two positions, and the position at a distance.
//
// The inverse problem asks for the shortest line between two positions, the direct problem for the end of a line of
// given length and direction. Both are solved by Vincenty's series, with his coefficients nested up to the fourth power
// of u, an iteration of at most 40 passes and a tolerance of 1e-12 radians, which is 6 micrometres on the Earth.
//
//   LonLat                 degrees; latitudes in [-90, 90], which is not checked; x is the longitude, y the latitude
//   distance               in the unit of the semi-axes, metres for the Earth
//   azimuth1               degrees clockwise from north at the first position, towards the second
//   azimuth2               degrees clockwise from north at the far end, in the direction of travel: not the way back
//
// Azimuths come out in [0, 360), and as 360 where a sum with it rounds up.
//
// Special positions:
//  - Coincident positions, by exact comparison: distance 0, both azimuths 0, on any figure. Positions that differ by
//    less than the arithmetic tells apart divide by zero, which is a fault.
//  - Poles need no care, since the cut pi keeps the tangent of 90 degrees finite. An azimuth at a pole is reckoned from
//    the meridian of the longitude that the position was given with.
//  - Longitude differences are not reduced. Sine and cosine absorb 358 degrees for 2 across the 180 degree meridian. At
//    a difference of +360 degrees, however, the iteration doesn't start: the distance is 0 whatever the latitudes are.
//    At -360 it does start. `WithinOneTurn` brings a longitude into the turn of another one.
//  - Nearly antipodal positions (within 1.1 degrees of the antipode on the Earth, 30 on Saturn) may not converge. After
//    40 passes the last values stand and `converged` is false: the distance may be wrong by 100 km on the Earth and the
//    azimuth by any angle. The share of such pairs is in docs/accuracy.md. A solution that converged is as exact as
//    follows here.
//
// Faults: 11 for a division by zero, as by an axis of 0; 5 or 6 for a number that isn't finite, or doesn't stay so. A
// latitude nearer to 0 than 1e-300 degrees, but not 0, may overflow the quotient of an azimuth.
//
// Accuracy on the Earth's spheroids, against an exact solution and away from the antipode: distances and positions to
// 0.1 mm, short distances to 6 micrometres. An azimuth is off by at most 6 micrometres sideways: 2e-8 degrees on long
// lines, 4e-7 on one of a kilometre, 4e-4 on one of a metre. On strongly flattened bodies the error grows with the
// fourth power of f: 0.9 mm on Mars, 15 m on Jupiter, 140 m on Saturn, all scaled to a body of the Earth's size.
//
// Cost: no memory; some two to five passes of five trigonometric functions each, forty at most.
//
// Source: T. Vincenty, Direct and inverse solutions of geodesics on the ellipsoid with application of nested equations,
// Survey Review 23 (176), 88-93 (1975), equations 1 to 21.
#pragma once

#include "geodesy/figure.h"

namespace tessarine::geodesy {

/// A line between two positions.
struct GeodesicLine {
  double distance = 0.0, azimuth1 = 0.0, azimuth2 = 0.0;
  bool converged = true;
};

/// The far end of a line.
struct GeodesicEnd {
  LonLat position;
  double azimuth2;
};

/// The inverse problem.
[[nodiscard]] GeodesicLine Inverse(LonLat from, LonLat to, const Figure& figure = kWgs1984);

/// The direct problem.
///
/// A distance of exactly 0 copies the start and hands the azimuth back as it came, in whatever range. A negative
/// distance runs backwards. The longitude of the end is not reduced: across the 180 degree meridian it passes 180 or
/// -180. Through a pole it turns by about 180 degrees. Starting at a pole, the azimuth is reckoned from the meridian of
/// the start's longitude.
[[nodiscard]] GeodesicEnd Direct(LonLat start, double azimuth1, double distance, const Figure& figure = kWgs1984);

/// True on a spheroid where the series is off by more than a decimetre, scaled to a body of the Earth's size: flattened
/// by more than 1/50, or longer from pole to pole than across, where the iteration may settle on a line that isn't the
/// shortest.
[[nodiscard]] constexpr bool IsSeriesRough(const Figure& figure) {
  constexpr double kStrong = 1.0 / 50.0, kLonger = -1e-6;
  return figure.flattening > kStrong || figure.flattening < kLonger;
}

}  // namespace tessarine::geodesy
