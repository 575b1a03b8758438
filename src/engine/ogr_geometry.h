// SPDX-License-Identifier: GPL-2.0-or-later
// OGR geometry to and from our shapes.
#pragma once

#include <ogr_geometry.h>

#include <memory>

#include "platform/geometry.h"
#include "platform/variant.h"

namespace tessarine::engine {

/// The shape type that holds an OGR type: singles and multiples share one, curves count as what they bound. Null for
/// types that hold no one kind.
[[nodiscard]] esriGeometryType ShapeTypeOf(OGRwkbGeometryType type);

/// An empty shape of the type.
[[nodiscard]] GeometryRef EmptyShape(esriGeometryType type, const SpatialReferenceRef& reference);

/// The shape of the given type: Z and M dropped, parts in order, circular arcs kept, exterior rings clockwise and
/// holes counter-clockwise with their first vertices kept. Nothing, or an empty geometry, gives an empty shape. A
/// geometry of another kind raises fault 13.
[[nodiscard]] GeometryRef ShapeFromOgr(const OGRGeometry* geometry, esriGeometryType type,
                                       const SpatialReferenceRef& reference);

/// The OGR geometry of a shape; null for an empty one. Without `curves_allowed`, and for curves that OGR has no
/// class for, curves become chords.
[[nodiscard]] std::unique_ptr<OGRGeometry> OgrFromShape(const IGeometry& shape, bool curves_allowed);

/// What a value means for the shape field of a row: a shape, or null to clear it. Fault 13 for a number or a text,
/// which must not clear a shape.
[[nodiscard]] GeometryRef ShapeOf(const Variant& value);

/// False where a position of the shape is infinite or no number.
[[nodiscard]] bool HasFinitePositions(const OGRGeometry& shape);

}  // namespace tessarine::engine
