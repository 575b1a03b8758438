// SPDX-License-Identifier: GPL-2.0-or-later
// Lines on a grid.
#pragma once

#include <optional>

#include "engine/noding.h"

namespace tessarine::engine {

/// The lines with all vertices and crossings on a grid, so that any two of their segments have nothing in common but
/// ends, or are the same segment. Each line stays within a grid's width of where it was, keeps its direction, and is
/// led through the place of every vertex and crossing whose grid square it passes; lines closer to each other than
/// that become one. This is snap rounding after J. D. Hobby, "Practical segment intersection with finite precision
/// output", Computational Geometry 13 (1999). A line may shrink to one vertex.
///
/// `grid` is a power of two, a few times the spacing of doubles at the largest coordinate. Empty where it is so fine
/// that rounding gets in between. Costs as much as finding the crossings.
[[nodiscard]] std::optional<LineList> SnapRounded(LineList lines, double grid);

/// The finest grid for these lines.
[[nodiscard]] double FinestGrid(const LineList& lines);

}  // namespace tessarine::engine
