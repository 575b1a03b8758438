// SPDX-License-Identifier: GPL-2.0-or-later
// Sides of rings that run straight through a pole of their map.
//
// The ends of such a side are half a turn apart, and the pole lies between them. On the plane of longitude and latitude
// the straight step from one to the other passes it by: a triangle with such a side may lie flat on a parallel. With
// the pole for a vertex the ring is on that plane what it is on the map.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// True when two neighbours are half a turn of longitude apart.
[[nodiscard]] bool HasHalfTurn(std::span<const XY> degrees);

/// Where the poles lie on a map, looked up as they are asked for.
class PolesOnMap {
 public:
  PolesOnMap(SpatialReferenceRef projection, SpatialReferenceRef degrees)
      : projection_(std::move(projection)), degrees_(std::move(degrees)) {}

  /// The place of a pole as it is reached along a meridian; empty where the projection has none.
  [[nodiscard]] std::optional<XY> Of(double longitude, double latitude) const;

 private:
  SpatialReferenceRef projection_, degrees_;
};

/// Puts the pole into each side that runs through it, on the map and in degrees, where it has the longitudes of both
/// ends one after the other. The two have the same vertices before and after, and no curves. Returns true if there was
/// such a side; otherwise both stay.
///
/// Through the pole means within 1e-9 of the length of the side. Cost: linear.
bool PutPolesIntoSides(std::shared_ptr<const Path>& map, std::vector<XY>& degrees, const PolesOnMap& poles);

}  // namespace tessarine::MyGeometricOperations
