// SPDX-License-Identifier: GPL-2.0-or-later
// Area and centre of polygons and triangles as they lie on the globe.
//
// The globe is the sphere with the volume of the spheroid: its radius R is the cube root of a squared times b,
// 6371000.790009154 m for WGS 1984. A polygon is the sum of signed spherical triangles, each spanned by one segment and
// by the planar centroid of the connected component that the segment belongs to. Holes run the other way, so their
// triangles come out negative by themselves. Segments are great circle arcs; a true curve counts as its chord.
//
//   P1, P2, P3              positions in degrees: X longitude, Y latitude; latitudes in [-90, 90], not checked
//   SemiMajor a, SemiMinor b   semi-axes, above 0
//   area                    in the square of the axes' unit; square metres for the Earth
//   Sign                    +1 for corners that run clockwise as seen from above, -1 for the other way
//   E                       spherical excess in radians: area / R^2
//
// Routines with the suffix 2 take the axes from the caller; the others use a = 6378137, b = 6356752.31424518.
//
// Special positions:
//  - Coordinates closer than 1e-12 degrees count as equal in the tests for triangles without area.
//  - A pole, given as any longitude at latitude 90 or -90, may be a corner, but corners are compared by coordinates,
//    so two longitudes at one pole are two corners. A ring around a pole must run along the pole's parallel and back
//    along the meridians, as it does on the plane, to have its apex inside.
//  - Longitudes are used as they are. Sine and cosine don't mind 358 degrees for -2, but the apex is found on the
//    plane: cut shapes at the 180 degree meridian, or let their longitudes run past it.
//  - A side of 180 degrees or more has no single great circle: sides are the short way round.
//
// Errors: each routine reports under its own name and answers 0. A triangle that fails counts as 0 and the polygon goes
// on. A component without area on the plane, as a ring that runs back on itself, counts as 0 too; a polygon of such
// components alone is a division by zero. Antipodal corners may
// fail so, by the root of a number just below 0. An empty polygon has the area 0.
//
// Accuracy, as docs/accuracy.md prints it: an area keeps 1e-9 of itself for polygons 10 m across, 1e-10 for a
// kilometre, 1e-11 for degrees. Triangles with long sides whose corners nearly lie on one great circle lose more.
// Against the spheroid itself the sphere of the Earth is 0.45 percent too large at the equator and 0.9 percent too
// small at the poles; on Saturn 15 too large and 24 too small. The centre takes each triangle's mass at the mean of its
// corners, which is off by the cube of the triangles' size: by up to 6e-6 degrees for polygons 2 degrees across, 7e-3
// for 20 and 0.3 for 60.
//
// Source: sides by R. W. Sinnott, Virtues of the Haversine, Sky and Telescope 68 (2), 159 (1984); excess by the theorem
// of S. L'Huilier, in I. Todhunter, Spherical Trigonometry, 5th edition (1886), article 102.
#pragma once

#include <memory>

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// The signed area of a spherical triangle on the sphere of WGS 1984.
///
/// Without area, and then without a sign (the variable stays as it was), are: three corners with one longitude, by the
/// first corner's; two corners that coincide. Corners on one parallel, or on a great circle that is no meridian, go
/// through the formula.
double SphericalTriangleArea(XY p1, XY p2, XY p3, double& sign);
double SphericalTriangleArea(const Point& p1, const Point& p2, const Point& p3, double& sign);
/// The same on any spheroid.
double SphericalTriangleArea2(XY p1, XY p2, XY p3, double& sign, double semi_major, double semi_minor);
double SphericalTriangleArea2(const Point& p1, const Point& p2, const Point& p3, double& sign, double semi_major,
                              double semi_minor);

/// The signed area of a polygon in geographic coordinates on the sphere of WGS 1984: positive when exterior rings run
/// clockwise. It is neither turned round nor made positive.
///
/// With `want_centroid` the two out arguments receive the centre of mass of the surface, in degrees; -9999 both when
/// the area is not above 0, as for an empty polygon. Otherwise they stay as they were. The polygon's reference isn't
/// looked at.
double SphericalPolygonArea(const std::shared_ptr<Polygon>& polygon, bool want_centroid, double& centroid_lon,
                            double& centroid_lat);
/// The same on any spheroid. This form first snaps the caller's polygon to the grid of its reference, in place.
double SphericalPolygonArea2(const std::shared_ptr<Polygon>& polygon, bool want_centroid, double& centroid_lon,
                             double& centroid_lat, double semi_major, double semi_minor);

}  // namespace tessarine::MyGeometricOperations
