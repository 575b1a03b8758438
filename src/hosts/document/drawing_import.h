// SPDX-License-Identifier: GPL-2.0-or-later
// Drawings as graphic elements of a document's map.
#pragma once

#include <cstdint>
#include <string>

#include "engine/drawing.h"
#include "hosts/document/map_document.h"

namespace tessarine {

struct ImportResult {
  std::int32_t markers = 0, lines = 0, polygons = 0, texts = 0;
  std::int64_t skipped = 0;  ///< without a shape, or outside of the map's projection
};

/// Adds the shapes above the elements that are there: points as markers or, with words, as texts, polylines as
/// lines, polygons as polygons, each in the reference of the map. A map without a reference takes that of the drawing's
/// first shape. Styles become symbol texts: "marker #ff0000 8", "text #ff0000 8", "line #0000ff 2", "fill #00ff0080".
ImportResult AddDrawing(const Drawing& drawing, bool select, DocumentMap& map);

}  // namespace tessarine
