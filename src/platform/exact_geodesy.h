// SPDX-License-Identifier: GPL-2.0-or-later
// Geodesics without a series that fails: what the engine's library of geodesics computes to the rounding of doubles,
// for any two positions and any ring. The module of Vincenty's formulae has its own results; these stand beside them.
//
// Longitudes and latitudes are decimal degrees, latitudes in [-90, 90]; axes are metres, the semi-major one not the
// lesser. Declared here and defined by the engine.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "platform/geometry_types.h"

namespace tessarine {

/// The name of the library and of its method for a flattening, as an output may tell it.
[[nodiscard]] std::string_view ExactGeodesyMethod(double semi_major, double semi_minor);

struct ExactGeodesic {
  double distance;            ///< in the unit of the axes
  double azimuth1, azimuth2;  ///< degrees in [0, 360), in the direction of travel at both ends
};

/// The shortest line between two positions, nearly antipodal ones too. Where several are equally short, one of them.
/// Fault 5 for a latitude beyond a pole by more than a rounding, or a number that isn't finite.
[[nodiscard]] ExactGeodesic SolveInverseExactly(XY from, XY to, double semi_major, double semi_minor);

struct ExactPosition {
  XY end;           ///< degrees; the longitude runs on past 180 or -180
  double azimuth2;  ///< degrees in [0, 360), in the direction of travel at the end
};

/// The end of a line of a length, in the unit of the axes, along an azimuth in degrees. A negative length runs
/// backwards. Faults as above.
[[nodiscard]] ExactPosition SolveDirectExactly(XY from, double distance, double azimuth, double semi_major,
                                               double semi_minor);

/// The area that a ring of geodesics encloses, in the square of the axes' unit: positive when it runs clockwise.
///
/// The ring closes on the plane of longitude and latitude, so one round a pole runs along it. A step of more than 180
/// degrees of longitude runs the way that the numbers go and is cut into shorter ones, evenly; so four corners make a
/// globe. Exact to about 0.1 square metres for each vertex on the Earth. Faults as above.
[[nodiscard]] double ExactRingArea(std::span<const XY> ring, double semi_major, double semi_minor);

}  // namespace tessarine
