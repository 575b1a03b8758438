// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/common/graphics_parts.h"

namespace tessarine {

ToolParameter ReferenceParameter() {
  return {.name = "reference",
          .kind = ParameterKind::Reference,
          .text = "The output's spatial reference, as EPSG:32612; the map's when left out"};
}

CommandTexts MakeShapefileTexts(std::int32_t position) {
  return {"cmdNewShapefile",
          "MakeShapefile",
          "&Graphic Elements to Shapes",
          "Create New Shapefile",
          "Create new shapefile, either empty or by converting graphics...",
          101,
          {Menu::Graphics, position}};
}

}  // namespace tessarine
