// SPDX-License-Identifier: GPL-2.0-or-later
// Drawings: files of shapes with names and styles, as KML or GeoJSON, for hosts that make graphic elements of them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/geometry.h"

namespace tessarine {

/// How a shape is drawn. Colours are "#rrggbb", with two more digits for the opacity of one that isn't opaque; empty
/// where the drawing doesn't tell. Sizes are points, 0 where it doesn't tell.
struct DrawnStyle {
  std::string marker_color, line_color, fill_color;
  double marker_size = 0.0, line_width = 0.0;
  std::string text_color;
  double text_size = 0.0;
};

struct DrawnShape {
  GeometryRef shape;  ///< a point, polyline or polygon, with its reference
  std::string name;
  DrawnStyle style;
  /// The words that stand at the point instead of a marker; empty where a marker is drawn.
  std::optional<std::string> words;
};

struct Drawing {
  std::vector<DrawnShape> shapes;  ///< in the order of the file
  std::int64_t skipped = 0;        ///< features without a shape that can be drawn
};

/// Reads all layers of a file, or one. The name of a shape is the text of `name_field`, or where that is empty, of the
/// first of the fields "name", "title" and "label" that the layer has. Several points of one feature become a shape
/// each; lines and areas of one feature stay together. Styles come from the format itself, or from the fields of simple
/// GeoJSON styles ("stroke", "stroke-width", "fill", "marker-color"). A point that the style gives a label and no
/// visible symbol is a text: that of the label, or the name.
///
/// A file that can't be read, a layer or field that isn't there, and a file that breaks off raise a fault that tells
/// which.
[[nodiscard]] Drawing ReadDrawing(const std::string& native_path, const std::string& layer,
                                  const std::string& name_field);

}  // namespace tessarine
