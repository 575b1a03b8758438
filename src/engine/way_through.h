// SPDX-License-Identifier: GPL-2.0-or-later
// The way of a segment through the places that it passes.
#pragma once

#include <vector>

#include "engine/led_segment.h"

namespace tessarine::engine {

/// Appends the way of a segment, without its start, through those of the places that it passes within the tolerance.
/// The nearest comes first, of equally near ones the first, and the ways to and from it are looked at anew, each with
/// those of the places that are left: a way through all of them at once would run to and fro between places on both
/// sides.
///
/// No two of the places may lie within the tolerance of each other, or it takes longer: else it costs about n log n,
/// also where the nearest is always the next one, as beside a line that leaves the segment slowly. The memory is that
/// of the places. Raises `RunStopped`.
void AppendWay(const Led& segment, const std::vector<XY>& places, std::vector<XY>& line);

}  // namespace tessarine::engine
