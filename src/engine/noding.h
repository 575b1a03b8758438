// SPDX-License-Identifier: GPL-2.0-or-later
// Lines that meet at vertices only.
//
// Segments that may meet are found by a packed tree of their boxes, and whether they do is told exactly, by the signs
// of `Turn`; only the coordinates of a crossing are rounded. So one look at all pairs finds every meeting. Rounding
// moves the pieces of a divided segment by less than a spacing of doubles: pieces that were moved are compared with
// everything once more, and where that finds nothing, lines that weren't moved have nothing new to meet. Where it
// does, as for lines that run within a rounding of each other, snap rounding on a grid comes in.
//
// Time is n log n in the number of segments and their crossings, plus the pairs of segments whose boxes meet; memory
// follows segments and crossings.
#pragma once

#include <optional>
#include <vector>

#include "platform/geometry_types.h"

namespace tessarine::engine {

using LineList = std::vector<std::vector<XY>>;

/// The lines with a vertex wherever they meet themselves or each other, so that any two of their segments have nothing
/// in common but ends, or are the same segment, whichever way it runs. Repeated vertices are gone; a line may shrink to
/// one vertex. Old vertices stay bit for bit; a crossing is rounded once.
///
/// Empty where that can't be reached so simply: for coordinates that aren't finite or beyond 1e100, or where lines
/// run so near to each other that the rounding of a crossing brings new ones.
[[nodiscard]] std::optional<LineList> WithCrossings(LineList lines);

/// The same wherever it can be reached at all. Where `WithCrossings` is empty, all vertices go to the finest grid
/// that gives one, commonly eight times as wide as doubles are apart at the largest coordinate (7.5e-9 m in UTM).
/// Fault 5 for coordinates that aren't finite or beyond 1e100.
[[nodiscard]] LineList Noded(const LineList& lines);

}  // namespace tessarine::engine
