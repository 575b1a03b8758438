// SPDX-License-Identifier: MIT
// A box of longitudes and latitudes that covers the plane by its copies, and positions brought into it.
#pragma once

#include "geodesy/figure.h"

namespace tessarine::geodesy {

/// The sides in degrees, west below east and south below north. All four belong to the box. Latitudes wrap as
/// longitudes do: latitude 95 in a box from -90 to 90 becomes -85 and isn't reflected at the pole.
struct WrapBox {
  double west = -180.0, north = 90.0, east = 180.0, south = -90.0;

  [[nodiscard]] double Width() const { return east - west; }
  [[nodiscard]] double Height() const { return north - south; }
  [[nodiscard]] Envelope Extent() const { return {west, south, east, north}; }
};

/// Fault 5 for a box without width or height, and 5 or 6 for sides that aren't finite.
void RequireSides(const WrapBox& box);

/// Fault 5 for an extent that lies more than a million widths or heights away, where coordinates hardly tell places in
/// a box apart.
void RequireReach(const Envelope& extent, const WrapBox& box);

/// Where a position comes to lie: it moves by whole boxes until it lies inside, and on a side it stays. Faults as those
/// of the two above. Cost: a subtraction for each box on the way.
[[nodiscard]] LonLat WrappedInto(const WrapBox& box, LonLat position);

}  // namespace tessarine::geodesy
