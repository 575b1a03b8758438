// SPDX-License-Identifier: GPL-2.0-or-later
// Planetographic latitudes to planetocentric ones.
#include "tools/common/latitude_tool.h"

namespace tessarine::tools {

const Tool& ToCentric() {
  static const LatitudeTool tool({
      .name = "to-centric",
      .title = "OGraphic to OCentric",
      .text = "Planetographic latitudes to planetocentric ones",
      .makes = "A class of the source's kind with its attributes and its latitudes in the other system.",
      .example = "tessarine to-centric tests/data/countries.shp --radii 3396190,3376200 --wrap 360 -o centric.shp",
      .command =
          {"OGraphicToOCentric",
           "OGraphic_OCentric",
           "O&Graphic to OCentric",
           "",
           "Convert a Planetographic (Geographic) Feature Class to a Planetocentric (Geocentric) Feature Class...",
           123,
           {Menu::Geodesic, 1}},
      .dialog_caption = " Planetographic to Planetocentric:",
      .work = kGraphicToCentric,
  });
  return tool;
}

}  // namespace tessarine::tools
