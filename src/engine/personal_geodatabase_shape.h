// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes of personal geodatabases: the content of a shapefile's record, its type first.
#pragma once

#include <ogr_geometry.h>

#include <memory>

#include "jet/bytes.h"

namespace tessarine::engine {

/// Null for a shape of type 0. A `jet::Error` where the bytes are no shape.
[[nodiscard]] std::unique_ptr<OGRGeometry> ShapeFromBytes(const jet::Bytes& bytes);

struct ShapeLayout {
  bool has_z = false;
  bool has_m = false;
};
/// Points, multipoints, lines and polygons in the dimensions of their class: a height that the shape doesn't have is 0,
/// a measure is none. Arcs become chords. A `jet::Error` for other shapes.
[[nodiscard]] jet::Bytes BytesOfShape(const OGRGeometry& shape, ShapeLayout layout);

}  // namespace tessarine::engine
