// SPDX-License-Identifier: GPL-2.0-or-later
// Noded lines without what runs twice.
#pragma once

#include "engine/noding.h"

namespace tessarine::engine {

/// The lines, as `Noded` gives them, in pieces between the places where they branch or end. A segment that several
/// lines share stands in the first of them alone. Pieces come in the order of the lines and keep their direction.
///
/// Cost: n log n for n segments.
[[nodiscard]] LineList DistinctPieces(const LineList& noded);

}  // namespace tessarine::engine
