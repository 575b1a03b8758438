// SPDX-License-Identifier: MIT
// The area of one triangle of great circle arcs, on the sphere with the volume of a spheroid.
//
// The radius R of the sphere is the cube root of a squared times b, 6371000.790009154 m for WGS 1984. Corners are
// degrees, longitude first; an area comes out in the square of the axes' unit.
//
// Special positions:
//  - Coordinates closer than 1e-12 degrees count as equal in the tests for triangles without area.
//  - A pole, given as any longitude at latitude 90 or -90, may be a corner, but corners are compared by coordinates,
//    so two longitudes at one pole are two corners.
//  - Longitudes are used as they are: sine and cosine don't mind 358 degrees for -2.
//  - A side of 180 degrees or more has no single great circle: sides are the short way round.
//
// Faults: 5 for a radius that is no real number, as of a minor axis below 0, and where rounding takes the root of a
// number just below 0, as between antipodal corners; 5 or 6 for numbers that aren't finite.
//
// Accuracy: 1e-9 of itself for triangles 10 m across, 1e-10 for a kilometre, 1e-11 for degrees. Triangles with long
// sides whose corners nearly lie on one great circle lose more. Cost: some twenty trigonometric functions.
//
// Source: sides by R. W. Sinnott, Virtues of the Haversine, Sky and Telescope 68 (2), 159 (1984); excess by the theorem
// of S. L'Huilier, in I. Todhunter, Spherical Trigonometry, 5th edition (1886), article 102.
#pragma once

#include "geodesy/figure.h"

namespace tessarine::geodesy {

/// An area with its sign, and the sign alone: +1 for corners that run clockwise as seen from above, -1 for the other
/// way, 0 for a triangle without area.
struct SignedArea {
  double area = 0.0, sign = 0.0;
};

/// The signed area of a spherical triangle.
///
/// It is 0 where all corners have the first one's longitude, within 1e-12 degrees, and where two coincide. Corners on a
/// parallel, or on a great circle that is no meridian, go through the formula and have a sign.
[[nodiscard]] SignedArea TriangleArea(LonLat p1, LonLat p2, LonLat p3, const Figure& figure = kWgs1984);

namespace detail {

/// True for corners on one meridian, and for two that coincide, both within 1e-12 degrees.
[[nodiscard]] bool HasNoArea(LonLat p1, LonLat p2, LonLat p3);

/// +1 when the corners run clockwise as seen from above, else -1: by the azimuths from the first corner to the second
/// and to the third.
[[nodiscard]] double SignOfTurn(LonLat p1, LonLat p2, LonLat p3);

}  // namespace detail
}  // namespace tessarine::geodesy
