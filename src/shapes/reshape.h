// SPDX-License-Identifier: GPL-2.0-or-later
// Rings to paths, and true curves to straight pieces.
//
// The spherical and spheroidal measures of this module see only the ends of a segment. A perimeter is measured on the
// polyline of a polygon's rings; a circular arc, an elliptic arc or a Bezier curve is measured along its shape once it
// was cut into pieces here, and along its chord otherwise.
//
// All three work in the plane of the coordinates, whatever the spatial reference is, and put that reference on what
// they make. The shape that is given keeps its coordinates.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// The rings of a polygon as the closed paths of a new polyline: each exterior ring, followed by its holes.
///
/// Works on a simplified copy of each connected component, so the paths of exterior rings run clockwise and those of
/// holes the other way, and true curves stay curves. The length of the result is the perimeter including the holes. An
/// empty polygon gives an empty polyline, and a component without area no path. Of a component that falls into several
/// when it is simplified (a ring that crosses itself) the first one alone is taken.
///
/// A fault (no polygon; one without area) is reported under the routine's name and the result is null.
[[nodiscard]] std::shared_ptr<Polyline> PolygonToPolyline(const std::shared_ptr<Polygon>& polygon);

/// The shape as a polygon without true curves.
///
/// A curve is cut at equal steps along its length L into n = Int(L / T * `piece_count`) pieces, at least 8, where T is
/// the length of the whole shape; so each curve has its share of `piece_count`, and a lone circle has all of it.
/// Straight segments stay as they are. The paths of a polyline are closed with a straight segment each. What was made
/// anew is simplified.
///
/// A polygon without curves comes back as the very same object. A shape that is neither polygon nor polyline, and any
/// fault on the way, shows a message box with the procedure, the description and the line, and the result is null.
[[nodiscard]] std::shared_ptr<Polygon> CurveToPolygon(const GeometryRef& geometry, std::int32_t piece_count);

/// The shape as a polyline without true curves: `CurveToPolygon` with the roles exchanged. The rings of a polygon
/// become one closed path each; open paths stay open. A polyline without curves comes back as the very same object.
[[nodiscard]] std::shared_ptr<Polyline> CurveToPolyline(const GeometryRef& geometry, std::int32_t piece_count);

}  // namespace tessarine::MyGeometricOperations
