// SPDX-License-Identifier: GPL-2.0-or-later
// The spheroid that a spatial reference stands on.
#pragma once

#include <memory>

#include "platform/spatial_reference.h"

namespace tessarine {

/// That of the reference, or of the geographic one beneath a projection; null where there is none, and for null.
[[nodiscard]] inline std::shared_ptr<const Spheroid> SpheroidBeneath(const SpatialReferenceRef& reference) {
  const auto system = GeographicOf(reference);
  return system && system->Datum() ? system->Datum()->Spheroid() : nullptr;
}

}  // namespace tessarine
