// Bringing shapes into a box of longitude and latitude: what lies outside moves by whole widths and heights of the box
// and comes in at the other side, as on a sheet rolled up both ways.
//
//   West, East, South, North   the sides of the box in degrees, West below East and South below North
//   width, height          East minus West, North minus South
//
// All four edges belong to the box. Latitudes wrap as longitudes do: latitude 95 in a box from -90 to 90 becomes -85
// and isn't reflected at the pole.
//
// The routines report faults under their own names and answer nothing: no shape, a box without width or height, or a
// shape that lies more than a million boxes away or covers more than a hundred million, where steps of one box would
// hardly end.
#pragma once

#include <memory>

#include "platform/application.h"
#include "platform/arrays.h"
#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// A new shape that lies in the box, made of a point, polyline, polygon or multipoint.
///
/// A point moves by whole boxes until it lies inside; on an edge it stays. Any other shape is cut along the edges of
/// the box and of its copies all around, the pieces are brought home and united into one shape of the same type:
/// simple, with curves at the cuts turned into lines, and for polygons with vertices at most 0.1 degrees apart along
/// the edges. The result bears the reference of the pieces.
///
/// Pieces in the tiles that the extent only touches with its eastern or northern side are not looked for. So a shape
/// without extent in x that lies exactly on the western edge, or without extent in y on the southern one, comes back
/// empty. An empty shape gives an empty one. The document is read by nothing.
[[nodiscard]] GeometryRef WrapToBoundary(const GeometryRef& geometry, double west, double east, double south,
                                         double north, const std::shared_ptr<IMxDocument>& document);

/// Where a point comes to lie; what `WrapToBoundary` does with the coordinates of a point. Raises its faults instead of
/// reporting them.
[[nodiscard]] XY WrapPosition(XY position, double west, double east, double south, double north);

/// Moves the shape in place by minus the two elements of the shift, x and y: the offset of a tile from the box, so that
/// the content of the tile comes home.
void ShiftPointsToWrapBoundary(const GeometryRef& geometry, const DoubleArray& shift);

/// A copy of a point, polyline, polygon or multipoint with the shift, in degrees, added to every x. Nothing is wrapped,
/// and the shape given stays as it is. For a shape of another type the user gets a message box and the caller nothing.
[[nodiscard]] GeometryRef FeatureLongitudeShift(const GeometryRef& geometry, double shift);

}  // namespace tessarine::MyGeometricOperations
