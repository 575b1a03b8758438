// SPDX-License-Identifier: GPL-2.0-or-later
// A quick look at rings that need no topology engine.
#pragma once

#include <span>

#include "platform/geometry_types.h"

namespace tessarine::engine {

/// True only for a closed ring of at least three sides, none of length 0, whose sides meet nowhere but each at its
/// ends with its two neighbours: the boundary of a valid polygon. False leaves the question open.
///
/// Sides are sorted by x, and those of them that stand above each other are compared, which costs n log n for the rings
/// that maps have. Beyond 64 comparisons for each side the sweep of `MeetsItself` takes over: n log n for any ring.
[[nodiscard]] bool IsPlainRing(std::span<const XY> ring);

/// True only for rings that are plain and that meet each other nowhere, whichever lies in which: the boundary of a
/// valid area, by the even-odd rule. False leaves the question open, also for rings that touch at a place, and where a
/// coordinate isn't finite. True of no ring at all. Sides are compared where their boxes meet: n log n, and these
/// pairs.
[[nodiscard]] bool ArePlainRings(std::span<const std::span<const XY>> rings);

}  // namespace tessarine::engine
