// SPDX-License-Identifier: GPL-2.0-or-later
// Planetocentric and planetographic latitudes.
//
// The planetographic latitude of a place on a spheroid is the angle of the spheroid's normal with the equator's plane;
// the planetocentric latitude is the angle of the line to the centre. Both are 0 on the equator and 90 at the poles,
// and in between the planetographic one is the greater on a flattened body, by at most 0.19 degrees on the Earth.
//
//   tan(graphic) = k tan(centric),  k = (a / b) squared
//
//   Lon, Lat               degrees; latitudes in [-90, 90], which is not checked
//   SemiMajor a, SemiMinor b   semi-axes in one unit
//   LongShift              degrees, added to the longitude; nothing is reduced to a range, not past 180 either
//
// Angles convert by `AsRadians` and `AsDegrees`. The latitudes 0, 90 and -90 stay exactly, and latitudes on the globe
// come out on the globe, which the cut pi alone wouldn't grant: on some bodies it takes 90 to 90.00000000000009. On a
// sphere a latitude stays as it is, apart from the rounding of the
// tangent and its arc. Forth and back it returns within 1e-13 degrees.
//
// Source: J. P. Snyder, Map Projections, A Working Manual, U.S. Geological Survey Professional Paper 1395 (1987),
// equation 3-28.
#pragma once

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// Planetocentric to planetographic. A fault (an axis `semi_minor` of 0, an overflow) is reported, and both out
/// arguments stay as they were.
void XYOCentricToOGraphic(double lon, double lat, double semi_major, double semi_minor, double long_shift,
                          double& new_lon, double& new_lat);
/// Planetographic to planetocentric. Either axis of 0 is a fault.
void XYOGraphicToOCentric(double lon, double lat, double semi_major, double semi_minor, double long_shift,
                          double& new_lon, double& new_lat);

/// A copy of a point, polyline, polygon or multipoint with every vertex converted; the shape given stays as it is.
///
/// When either axis is 0 or less, both are taken from the spheroid of the shape's own geographic reference and written
/// back, so that the next shape of a loop finds them. A shape with another reference brings up a message box
/// and is then a fault; with axes given the reference doesn't matter. Empty shapes give empty copies.
///
/// Nothing after a fault, which is reported under the routine's name, and, after a message box, for a shape of another
/// type. One vertex that can't be converted fails the whole shape.
[[nodiscard]] GeometryRef FeaturePlanetOCentricToPlanetOGraphic(const GeometryRef& geometry, double& semi_major,
                                                                double& semi_minor, double long_shift);
[[nodiscard]] GeometryRef FeaturePlanetOGraphicToPlanetOCentric(const GeometryRef& geometry, double& semi_major,
                                                                double& semi_minor, double long_shift);

}  // namespace tessarine::MyGeometricOperations
