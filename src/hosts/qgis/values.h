// SPDX-License-Identifier: GPL-2.0-or-later
// References, shapes and rectangles between the map program and the platform.
#pragma once

#include <qgscoordinatereferencesystem.h>
#include <qgsgeometry.h>
#include <qgsrectangle.h>
#include <qgswkbtypes.h>

#include "platform/geometry.h"
#include "platform/spatial_reference.h"

namespace tessarine::qgis {

/// The platform's reference; the unknown one for an invalid system, or one that the engine can't read.
[[nodiscard]] SpatialReferenceRef ReferenceOf(const QgsCoordinateReferenceSystem& system);

/// The shape type that a layer of this type holds; Null for tables and mixed collections.
[[nodiscard]] esriGeometryType ShapeTypeOf(QgsWkbTypes::Type type);

/// A shape of the given type: Z and M dropped, arcs kept. A null geometry gives an empty shape, one of another kind
/// raises fault 13.
[[nodiscard]] GeometryRef ShapeOf(const QgsGeometry& geometry, esriGeometryType type,
                                  const SpatialReferenceRef& reference);

/// The program's geometry of a shape; a null one for an empty shape. Arcs stay arcs where `curves` are allowed.
[[nodiscard]] QgsGeometry GeometryOf(const IGeometry& shape, bool curves);

[[nodiscard]] Envelope EnvelopeOf(const QgsRectangle& rectangle);
[[nodiscard]] QgsRectangle RectangleOf(const Envelope& envelope);

}  // namespace tessarine::qgis
