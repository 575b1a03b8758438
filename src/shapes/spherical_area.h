// SPDX-License-Identifier: GPL-2.0-or-later
// Area and centre of polygons and triangles as they lie on the globe.
//
// The globe is the sphere with the volume of the spheroid: its radius R is the cube root of a squared times b,
// 6371000.790009154 m for WGS 1984. A polygon is the sum of signed spherical triangles, each spanned by one segment and
// by the planar centroid of the connected component that the segment belongs to. Holes run the other way, so their
// triangles come out negative by themselves. Segments are great circle arcs; a true curve counts as its chord.
//
// Positions are degrees, X the longitude and Y the latitude; areas come out in the square of the axes' unit. Special
// positions and accuracy are those of `geodesy/spherical_triangle.h` and `geodesy/spherical_area_sum.h`. A ring around
// a pole must run along the pole's parallel and back along the meridians, as it does on the plane, to have its apex
// inside. The apex is found on the plane: cut shapes at the 180 degree meridian, or let their longitudes run past it.
//
// Routines with the suffix 2 take the axes from the caller; the others measure on WGS 1984.
//
// Errors: each routine reports under its own name and returns 0. A triangle that fails counts as 0 and the polygon goes
// on. A component without area on the plane, as a ring that runs back on itself, counts as 0 too. Antipodal corners may
// fail by the root of a number just below 0. An empty polygon has the area 0.
#pragma once

#include <memory>
#include <span>

#include "geodesy/spherical_area_sum.h"
#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// The signed area of a spherical triangle on the sphere of WGS 1984.
///
/// `sign` stays as it was for a triangle without area.
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

/// A sum on the sphere of the given axes that reports a triangle which fails, as `SphericalTriangleArea2`, and goes on.
[[nodiscard]] geodesy::SphericalAreaSum ReportingAreaSum(double semi_major, double semi_minor, geodesy::AreaWish wish);

/// Adds a ring, and asks for a stop of the run now and then.
void AddRing(geodesy::SphericalAreaSum& sum, std::span<const XY> ring, XY apex);

}  // namespace tessarine::MyGeometricOperations
