// SPDX-License-Identifier: GPL-2.0-or-later
// Bringing shapes into a box of longitude and latitude: what lies outside moves by whole widths and heights of the box
// and comes in at the other side, as on a sheet rolled up both ways.
//
//   west, east, south, north   the sides of the box in degrees, west below east and south below north
//   width, height          east minus west, north minus south
//   tile                   the box or one of its copies all around, which cover the plane
//
// All four edges belong to the box. Latitudes wrap as longitudes do: latitude 95 in a box from -90 to 90 becomes -85
// and isn't reflected at the pole.
//
// The routines report faults under their own names and return no shape, a box without width or height, or a
// shape that lies more than a million boxes away.
#pragma once

#include <functional>
#include <memory>

#include "geodesy/wrap_box.h"
#include "platform/application.h"
#include "platform/arrays.h"
#include "platform/geometry.h"

namespace tessarine {

using geodesy::WrapBox;

namespace MyGeometricOperations {

/// A new shape that lies in the box, made of a point, polyline, polygon or multipoint.
///
/// A point moves by whole boxes until it lies inside; on an edge it stays. Any other shape is cut along the edges of
/// the tiles, and the pieces are brought home into one shape of the same type, simple, with curves at the cuts turned
/// into lines. The pieces of polygons are united, with vertices at most 0.1 degrees apart along the edges of the box;
/// so are places that coincide. Lines keep every stretch as often as they run it. What lies exactly on an edge between
/// two tiles stands on both edges of the box. The result bears the reference of the shape.
///
/// Tiles that the extent only touches with its eastern or northern side are not looked for. So a shape without extent
/// in x that lies exactly on the western edge, or without extent in y on the southern one, comes back empty. An empty
/// shape gives an empty one. The document is a part of the published face alone: nothing depends on it.
///
/// Time follows the vertices and the tiles that the shape meets, memory the shape.
[[nodiscard]] GeometryRef WrapToBoundary(const GeometryRef& geometry, double west, double east, double south,
                                         double north, const std::shared_ptr<IMxDocument>& document);

/// Asked several times a second by long work; false ends it. Nothing at all means: to the end.
using KeepGoing = std::function<bool()>;

struct WrappedShape {
  GeometryRef shape;  ///< null after a fault or a stop
  bool stopped = false;
  /// How much there was of the simple shape and how much there is now: square degrees of a polygon, degrees of a line,
  /// different places of a multipoint; 0 for a point. They differ where pieces come to lie on each other, and where
  /// something lies on an edge of the box.
  double measure_before = 0.0, measure_after = 0.0;
  /// The difference that rounding of coordinates alone may make.
  double rounding = 0.0;
};

/// The same for a shape that is given away: it may be changed, and come back itself.
[[nodiscard]] WrappedShape WrapOwnShape(const GeometryRef& geometry, const WrapBox& box, const KeepGoing& keep_going);

/// Moves the shape in place by minus the two elements of the shift, x and y: the offset of a tile from the box, so that
/// the content of the tile comes home.
void ShiftPointsToWrapBoundary(const GeometryRef& geometry, const DoubleArray& shift);

/// A copy of a point, polyline, polygon or multipoint with the shift, in degrees, added to every x. Nothing is wrapped,
/// and the shape given stays as it is. For a shape of another type the user gets a message box and the caller null.
[[nodiscard]] GeometryRef FeatureLongitudeShift(const GeometryRef& geometry, double shift);

}  // namespace MyGeometricOperations
}  // namespace tessarine
