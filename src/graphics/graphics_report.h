// SPDX-License-Identifier: GPL-2.0-or-later
// The report of the graphics dialog.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "graphics/element_names.h"
#include "graphics/graphics_options.h"
#include "platform/spatial_reference.h"

namespace tessarine {

struct GraphicsReport {
  std::string title;
  std::string option_title;
  std::string option;
  std::int32_t records = 0;
  std::string names;   ///< RTF already; empty when no name was written
  std::string counts;  ///< RTF already; empty for an empty class
  std::string fields;  ///< RTF already
  std::string output_title = "Shapefile saved to:";
  std::string path;                                 ///< a backslash path
  std::string planned_fields, foretold, questions;  ///< RTF already; of a planned run
  std::string problems;                             ///< RTF already; empty when every element was converted
};

[[nodiscard]] std::string ReportText(const GraphicsReport& report);

/// The field lines of an empty class.
[[nodiscard]] std::string EmptyFieldLines(GraphicMeasure measure);
/// The field lines of a conversion. Those of selected graphics name the data frame otherwise than those of all.
[[nodiscard]] std::string FieldLines(GraphicMeasure measure, bool names, bool selected,
                                     const SpatialReferenceRef& output, const SpatialReferenceRef& map);
/// A count and its words.
[[nodiscard]] std::string CountLine(std::int32_t count, const char* words);
/// The names that were written, with their counts.
[[nodiscard]] std::string NameLines(const NameCounts& names);

}  // namespace tessarine
