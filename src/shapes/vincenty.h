// SPDX-License-Identifier: GPL-2.0-or-later
// Geodesic lines on a spheroid: distance and azimuths between two positions, and the position at a distance.
//
// Methods, units, azimuths, poles, antipodes and accuracy are those of `geodesy/geodesics.h`. Routines with the suffix
// 2 take the axes from the caller; those without measure on WGS 1984 with its published flattening, which isn't quite
// (a - b) / a, so that the two kinds may differ in the last bits on the same spheroid.
//
// Between nearly antipodal positions the values of the last pass stand, without any report; `ConvergenceWatch` tells.
//
// Errors: a division by zero, an overflow or a point without coordinates is reported under the routine's name; the
// result is 0 and the out arguments stay as they were.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// The distance between two positions on WGS 1984, in metres, and the azimuths at both. It allocates nothing.
double DistanceVincentyNumbers(double lon1, double lat1, double lon2, double lat2, double& azimuth1, double& azimuth2);
/// The same on any spheroid, in the unit of its axes.
double DistanceVincentyNumbers2(double lon1, double lat1, double lon2, double lat2, double& azimuth1, double& azimuth2,
                                double semi_major, double semi_minor);

/// The same between two points, whatever their references are. An empty point is a fault.
double DistanceVincentyPoints(const Point& from_point, const Point& to_point, double& azimuth1, double& azimuth2);
double DistanceVincentyPoints(XY from_point, XY to_point, double& azimuth1, double& azimuth2);
double DistanceVincentyPoints2(const Point& from_point, const Point& to_point, double& azimuth1, double& azimuth2,
                               double semi_major, double semi_minor);
double DistanceVincentyPoints2(XY from_point, XY to_point, double& azimuth1, double& azimuth2, double semi_major,
                               double semi_minor);

/// Fills `end_point` with the position at a distance and azimuth from the start, and the azimuth of travel there.
///
/// A distance of exactly 0 copies the start and hands the azimuth back as it came. Otherwise as `geodesy::Direct`.
void PointLineVincentyPerPoint2(const Point& start_point, double distance, double azimuth, Point& end_point,
                                double& far_azimuth, double semi_major, double semi_minor);
void PointLineVincentyPerPoint2(XY start_point, double distance, double azimuth, XY& end_point, double& far_azimuth,
                                double semi_major, double semi_minor);

/// The same on the spheroid of the start's own reference, which must be geographic or projected, and with the line if
/// one is wanted. The coordinates of the start are degrees in either case.
///
/// vertex_count: less than 1 asks for no line, and `polyline` isn't touched. 1 is raised to 2, as the caller sees.
/// Otherwise the line gets that many vertices, evenly spaced from the start itself to the end; each is solved from the
/// start, so that no error adds up. Vertices are appended to the last part of a line that is given; for none, a new
/// line is made. The end and the line bear the geographic reference afterwards, also when the start is projected.
void PointLineVincenty2(const Point& start_point, double distance, double azimuth, Point& end_point,
                        double& far_azimuth, std::int32_t& vertex_count, std::shared_ptr<Polyline>& polyline);

}  // namespace tessarine::MyGeometricOperations
