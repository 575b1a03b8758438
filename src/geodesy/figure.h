// SPDX-License-Identifier: MIT
// Positions in degrees, and the figure of the body that they lie on.
#pragma once

#include "platform/geometry_types.h"

namespace tessarine::geodesy {

/// A position in decimal degrees: x is the longitude, y the latitude. It is the coordinate pair of the shapes, so that
/// their vertices are measured where they lie. Latitudes in [-90, 90], which nothing checks; longitudes in any turn.
using LonLat = XY;

/// A spheroid, or with equal axes a sphere. The axes are in one unit, above 0, and lengths come out in it.
///
/// The flattening stands by itself since published figures are given by it and not by the minor axis. A figure whose
/// axes make no finite flattening is a fault wherever it is measured on.
struct Figure {
  double semi_major, semi_minor, flattening;

  /// With the flattening (a - b) / a.
  [[nodiscard]] static constexpr Figure FromAxes(double semi_major, double semi_minor) {
    return {semi_major, semi_minor, (semi_major - semi_minor) / semi_major};
  }
  bool operator==(const Figure&) const = default;
};

/// WGS 1984, in metres, with its published flattening. (a - b) / a of these axes is smaller by 1.1e-16, so that
/// `FromAxes` may give other last bits.
inline constexpr Figure kWgs1984{6378137.0, 6356752.31424518, 1.0 / 298.257223563};

}  // namespace tessarine::geodesy
