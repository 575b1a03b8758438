// SPDX-License-Identifier: GPL-2.0-or-later
// What there is to measure of a path of places on the globe.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <vector>

#include "platform/shape_measures.h"
#include "platform/spheroid_catalog.h"

namespace tessarine::qgis {

struct PathMeasures {
  std::vector<XY> places;  ///< longitudes and latitudes in degrees
  NamedSpheroid spheroid;
  std::vector<MeasuredLeg> legs;      ///< one less than places
  double total = 0.0;                 ///< of all legs, metres
  std::optional<double> closing_leg;  ///< from the last place to the first; of three places or more
  std::optional<double> area;         ///< that legs and closing leg enclose, square metres
  MeasureNotes notes;                 ///< each once
  std::string problem;                ///< what couldn't be measured, for people; empty where all could
};

/// Legs and area, in the way of the calculator: an area over the 180 degree meridian or round a pole is that of the
/// smaller part, and of a path that crosses itself the parts count together. `reference` is that of the map.
[[nodiscard]] PathMeasures MeasurePath(std::vector<XY> places, const SpatialReferenceRef& reference,
                                       const NamedSpheroid& spheroid);

/// A unit that lengths or areas are shown in.
struct MeasureUnit {
  const char* name;
  const char* symbol;
  double size;   ///< in metres or square metres
  int decimals;  ///< that are worth reading
};

inline constexpr MeasureUnit kLengthUnits[] = {{"metres", "m", 1.0, 3},
                                               {"kilometres", "km", 1000.0, 6},
                                               {"feet", "ft", 0.3048, 3},
                                               {"miles", "mi", 1609.344, 6},
                                               {"nautical miles", "NM", 1852.0, 6}};
inline constexpr MeasureUnit kAreaUnits[] = {{"square metres", "m\u00b2", 1.0, 1},
                                             {"hectares", "ha", 1e4, 4},
                                             {"square kilometres", "km\u00b2", 1e6, 6},
                                             {"acres", "ac", 4046.8564224, 4},
                                             {"square miles", "mi\u00b2", 2589988.110336, 6}};

/// The whole of it as lines of cells parted by tabs, with all digits: the legs under a line of captions, then total,
/// closing leg, area and spheroid. Captions are in the program's language, numbers have its locale's decimal sign and
/// no groups.
[[nodiscard]] QString TableText(const PathMeasures& path, const MeasureUnit& length, const MeasureUnit& area);

}  // namespace tessarine::qgis
