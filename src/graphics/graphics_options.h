// SPDX-License-Identifier: GPL-2.0-or-later
// What the graphics dialog can make: three empty classes and five conversions. A table each.
#pragma once

#include <cstdint>
#include <string>

#include "graphics/graphic_harvest.h"
#include "platform/geometry_types.h"

namespace tessarine {

/// What a class of graphics measures of its shapes.
enum class GraphicMeasure { Coordinates, Length, Area };

struct EmptyClass {
  const char* text;
  esriGeometryType geometry_type;
  GraphicMeasure measure;
};

/// One of the elements' lists as a source: which, and its words in the report.
struct GraphicSource {
  GraphicList GraphicSet::*list;
  const char* count_words;
};

struct GraphicConversion {
  const char* all_text;
  const char* selected_text;
  esriGeometryType geometry_type;
  GraphicMeasure measure;
  GraphicSource first;
  GraphicSource second;  ///< no list where one is enough
  const char* shape_word;
  const char* missing_words;  ///< what there is none of when all sources are empty
  GraphicList GraphicSet::*symbol_list;

  /// The number of elements that the conversion takes from a set.
  [[nodiscard]] std::int32_t CountIn(const GraphicSet& set) const;
  [[nodiscard]] bool AnyNameIn(const GraphicSet& set) const;
  [[nodiscard]] const char* Text(bool selected) const { return selected ? selected_text : all_text; }
  /// The message about a set that has nothing to convert.
  [[nodiscard]] std::string MissingTitle() const;
  [[nodiscard]] std::string MissingText(bool selected) const;
};

/// The empty class of a geometry: a point, polyline or polygon.
[[nodiscard]] const EmptyClass& EmptyClassOf(esriGeometryType geometry_type);
/// The conversion at a line of the list, from 0 to 4; fault 5 for any other.
[[nodiscard]] const GraphicConversion& ConversionAt(std::int32_t line);

}  // namespace tessarine
