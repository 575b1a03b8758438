// SPDX-License-Identifier: GPL-2.0-or-later
// Rings that run out and back on one line, within a rounding.
#pragma once

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// Turns the rings of a polygon as they must run and marks it as simple, if it is: but for its spikes. A stretch that a
/// ring runs there and back belongs to its line, whether rounding lets the two sides cross or not. `Simplify` cuts it
/// off in the one case and keeps it in the other, so that the same polygon would have two perimeters.
///
/// A spike is no wider than the grid of the polygon's reference. Returns false, and leaves the polygon alone, where
/// rings cross themselves or each other by more than that, have curves, or the reference has no grid. Cost: that of
/// `Simplify`, and of a second one where there are spikes.
bool MarkSimpleButForSpikes(Polygon& polygon);

}  // namespace tessarine::MyGeometricOperations
