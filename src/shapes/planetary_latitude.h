// SPDX-License-Identifier: GPL-2.0-or-later
// Planetocentric and planetographic latitudes of positions and shapes, as `geodesy/latitudes.h` tells.
//
//   Lon, Lat               degrees; latitudes in [-90, 90], which is not checked
//   SemiMajor a, SemiMinor b   semi-axes in one unit
//   LongShift              degrees, added to the longitude; nothing is reduced to a range, not past 180 either
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
/// Null after a fault, which is reported under the routine's name, and, after a message box, for a shape of another
/// type. One vertex that can't be converted fails the whole shape.
[[nodiscard]] GeometryRef FeaturePlanetOCentricToPlanetOGraphic(const GeometryRef& geometry, double& semi_major,
                                                                double& semi_minor, double long_shift);
[[nodiscard]] GeometryRef FeaturePlanetOGraphicToPlanetOCentric(const GeometryRef& geometry, double& semi_major,
                                                                double& semi_minor, double long_shift);

}  // namespace tessarine::MyGeometricOperations
