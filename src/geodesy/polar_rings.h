// SPDX-License-Identifier: MIT
// Rings that run once round the globe: led over the pole that they enclose, or joined in pairs to bands.
#pragma once

#include <vector>

#include "geodesy/longitude_continuation.h"

namespace tessarine::geodesy {

/// Replaces those rings of a polygon that end a turn away from where they begin by rings that close on the plane of
/// longitude and latitude. The others stay. `ArrangedRings` says what becomes of them. Returns what was added.
std::vector<Seam> JoinRingsRoundTheGlobe(std::vector<std::vector<XY>>& rings, EnclosedPole pole);

}  // namespace tessarine::geodesy
