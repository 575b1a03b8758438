// SPDX-License-Identifier: GPL-2.0-or-later
// The cluster tolerance that is proposed for lines in a reference.
#pragma once

#include <string>

#include "platform/spatial_reference.h"

namespace tessarine {

/// The reference's own tolerance, or 0.0001 where it has none, in the unit of the coordinates: a text of at most 13
/// decimals, without zeros at its end.
[[nodiscard]] std::string ProposedClusterTolerance(const SpatialReference& reference);

}  // namespace tessarine
