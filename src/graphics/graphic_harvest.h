// SPDX-License-Identifier: GPL-2.0-or-later
// The graphic elements of a view, sorted by shape.
#pragma once

#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/arrays.h"

namespace tessarine {

/// The elements of one shape: copies of their shapes, their names in the same order, and how the first one is drawn.
struct GraphicList {
  std::shared_ptr<VarArray> shapes = std::make_shared<VarArray>();
  std::shared_ptr<StrArray> names = std::make_shared<StrArray>();
  bool any_name = false;
  std::shared_ptr<ISymbol> first_symbol;  ///< null when the first element has none

  [[nodiscard]] std::int32_t Count() const { return shapes->Count(); }
};

/// What can be converted, of all elements or of the selected ones.
struct GraphicSet {
  GraphicList points, polylines, polygons;

  [[nodiscard]] std::int32_t Count() const { return points.Count() + polylines.Count() + polygons.Count(); }
  /// A line for each of the five conversions, with the counts of what it takes.
  [[nodiscard]] std::shared_ptr<StrArray> ConversionLines() const;
};

struct GraphicHarvest {
  GraphicSet all, selected;
};

/// Reads the elements of the active view. Frames, the points of texts, groups and elements without a shape are left
/// out. The elements keep their shapes.
[[nodiscard]] GraphicHarvest HarvestGraphics(const IMxDocument& document);

}  // namespace tessarine
