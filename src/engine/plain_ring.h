// SPDX-License-Identifier: GPL-2.0-or-later
// A quick look at rings that need no topology engine.
#pragma once

#include <span>

#include "platform/geometry_types.h"

namespace tessarine::engine {

/// True only for a closed ring of at least three sides, none of length 0, whose sides meet nowhere but each at its
/// ends with its two neighbours: the boundary of a valid polygon. False leaves the question open.
[[nodiscard]] bool IsPlainRing(std::span<const XY> ring);

}  // namespace tessarine::engine
