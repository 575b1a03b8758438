// SPDX-License-Identifier: GPL-2.0-or-later
// Geodesic lines on a spheroid: distance and azimuths between two positions, and the position at a distance.
//
// The inverse problem asks for the shortest line between two positions, the direct problem for the end of a line of
// given length and direction. Both are solved by Vincenty's series, with his coefficients nested up to the fourth power
// of u, an iteration of at most 40 passes and a tolerance of 1e-12 radians, which is 6 micrometres on the Earth.
//
//   Lon, Lat               degrees; latitudes in [-90, 90], which is not checked; X is the longitude, Y the latitude
//   s, Distance            in the unit of the semi-axes, metres for the Earth
//   Azimuth1               degrees clockwise from north at the first position, towards the second
//   Azimuth2, FarAzimuth   degrees clockwise from north at the far end, in the direction of travel: not the way back
//   a, SemiMajor; b, SemiMinor   semi-axes, both above 0; equal axes make a sphere
//   f                      flattening, (a - b) / a
//
// Azimuths come out in [0, 360), and as 360 where a sum with it rounds up.
//
// Routines with the suffix 2 take the axes from the caller. Those without measure on WGS 1984 with a = 6378137,
// b = 6356752.31424518 and f = 1 / 298.257223563. These three don't quite agree: (a - b) / a is smaller by 1.1e-16. So
// the two kinds may differ in the last bits even on the same spheroid. Results are compared with those of other
// programs that use the same constants, so they stay as they are.
//
// Special positions:
//  - Coincident positions, by exact comparison: distance 0, both azimuths 0. Positions that differ by less than the
//    arithmetic tells apart divide by zero, which is a fault.
//  - Poles need no care, since the cut pi keeps the tangent of 90 degrees finite. An azimuth at a pole is reckoned from
//    the meridian of the longitude that the position was given with.
//  - Longitude differences are not reduced. Sine and cosine absorb 358 degrees for 2 across the 180 degree meridian. At
//    a difference of +360 degrees, however, the iteration doesn't start: the distance is 0 whatever the latitudes are.
//    At -360 it does start. `WithinOneTurn` brings a longitude into the turn of another one.
//  - Nearly antipodal positions (within 1.1 degrees of the antipode on the Earth, 30 on Saturn) may not converge. After
//    40 passes the last values stand, without any report: the distance may be wrong by 100 km on the Earth and the
//    azimuth by any angle. `ConvergenceWatch` tells; the share of such pairs is in docs/accuracy.md.
//
// Errors: a division by zero, an overflow or a point without coordinates is reported under the routine's name; the
// result is 0 and the out arguments stay as they were.
//
// Accuracy on the Earth's spheroids, against an exact solution and away from the antipode: distances and positions to
// 0.1 mm, short distances to 6 micrometres. An azimuth is off by at most 6 micrometres sideways: 2e-8 degrees on long
// lines, 4e-7 on one of a kilometre, 4e-4 on one of a metre. On strongly flattened bodies the error grows with the
// fourth power of f: 0.9 mm on Mars, 15 m on Jupiter, 140 m on Saturn, all scaled to a body of the
// Earth's size.
//
// Source: T. Vincenty, Direct and inverse solutions of geodesics on the ellipsoid with application of nested equations,
// Survey Review 23 (176), 88-93 (1975), equations 1 to 21.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// True on a spheroid where the series is off by more than a decimetre, scaled to a body of the Earth's size: flattened
/// by more than 1/50, or longer from pole to pole than across, where the iteration may settle on a line that isn't the
/// shortest.
[[nodiscard]] constexpr bool IsSeriesRough(double semi_major, double semi_minor) {
  const double flattening = (semi_major - semi_minor) / semi_major;
  constexpr double kStrong = 1.0 / 50.0, kLonger = -1e-6;
  return flattening > kStrong || flattening < kLonger;
}

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
/// A distance of exactly 0 copies the start and hands the azimuth back as it came, in whatever range. A negative
/// distance runs backwards. The longitude of the end is not reduced: across the 180 degree meridian it passes 180 or
/// -180. Through a pole it turns by about 180 degrees. Starting at a pole, the azimuth is reckoned from the meridian of
/// the start's longitude.
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
