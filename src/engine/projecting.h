// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes by way of a transformation of coordinates.
#pragma once

#include <ogr_spatialref.h>

#include <span>
#include <vector>

#include "platform/geometry.h"

namespace tessarine::engine {

/// The vertices in the other reference. One that lies beyond its map by no more than the tolerance of `source` comes
/// out as the nearest inside. Fault where one has no place there, naming it. Polls the stop.
[[nodiscard]] std::vector<XY> ProjectedVertices(std::span<const XY> vertices,
                                                OGRCoordinateTransformation& transformation,
                                                const SpatialReference& source, const SpatialReference& target);

/// Brings all vertices of the shape there; curves become chords.
void ProjectShape(IGeometry& shape, OGRCoordinateTransformation& transformation, const SpatialReference& source,
                  const SpatialReferenceRef& target);

}  // namespace tessarine::engine
