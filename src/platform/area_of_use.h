// SPDX-License-Identifier: GPL-2.0-or-later
// The part of the world that a spatial reference is made for. Declared here and defined by the engine.
#pragma once

#include <optional>

#include "platform/spatial_reference.h"

namespace tessarine {

/// Degrees; `west` is greater than `east` where the area lies over the 180 degree meridian.
struct AreaOfUse {
  double west, south, east, north;
};

/// What the register of references has for this one; empty for an unknown reference and for one of no register.
[[nodiscard]] std::optional<AreaOfUse> AreaOfUseOf(const SpatialReference& reference);

}  // namespace tessarine
