// SPDX-License-Identifier: GPL-2.0-or-later
// Planetocentric latitudes to planetographic ones.
#include "tools/common/latitude_tool.h"

namespace tessarine::tools {

const Tool& ToGraphic() {
  static const LatitudeTool tool({
      .name = "to-graphic",
      .title = "OCentric to OGraphic",
      .text = "Planetocentric latitudes to planetographic ones",
      .makes = "A class of the source's kind with its attributes and its latitudes in the other system.",
      .example = "tessarine to-graphic tests/data/countries.shp --spheroid \"WGS 1984\" -o graphic.shp",
      .command =
          {"OCentricToOGraphic",
           "OCentric_OGraphic",
           "O&Centric to OGraphic",
           "",
           "Convert a Planetocentric (Geocentric) Feature Class to a Planetographic (Geographic) Feature Class...",
           122,
           {Menu::Geodesic, 2}},
      .dialog_caption = " Planetocentric to Planetographic:",
      .work = kCentricToGraphic,
  });
  return tool;
}

}  // namespace tessarine::tools
