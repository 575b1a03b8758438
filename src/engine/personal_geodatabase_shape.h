// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes of personal geodatabases: the content of a shapefile's record, its type first.
#pragma once

#include <ogr_geometry.h>

#include <algorithm>
#include <limits>
#include <memory>

#include "jet/bytes.h"

namespace tessarine::engine {

/// Null for a shape of type 0. A `jet::Error` where the bytes are no shape.
[[nodiscard]] std::unique_ptr<OGRGeometry> ShapeFromBytes(const jet::Bytes& bytes);

struct ShapeLayout {
  bool has_z = false;
  bool has_m = false;
};

/// From the least to the most of some numbers; of none while `low` is above `high`.
struct NumberRange {
  double low = std::numeric_limits<double>::infinity();
  double high = -std::numeric_limits<double>::infinity();

  [[nodiscard]] bool IsEmpty() const { return low > high; }
  void Add(double number) {
    low = std::min(low, number);
    high = std::max(high, number);
  }
  void Add(const NumberRange& other) {
    low = std::min(low, other.low);
    high = std::max(high, other.high);
  }
};

struct StoredShape {
  jet::Bytes bytes;
  NumberRange z, m;  ///< empty without heights or measures; measures that are none don't count
};
/// Points, multipoints, lines and polygons in the dimensions of their class: a height that the shape doesn't have is 0,
/// a measure is none. Arcs become chords. A `jet::Error` for other shapes.
[[nodiscard]] StoredShape StoreShape(const OGRGeometry& shape, ShapeLayout layout);

}  // namespace tessarine::engine
