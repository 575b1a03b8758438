// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes in degrees of which a measure on the globe may not be what its reader takes it for.
#pragma once

#include "platform/area_of_use.h"
#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// True when a latitude lies beyond a pole by more than rounding. False for an empty shape.
[[nodiscard]] bool LiesBeyondPole(const IGeometry& degrees);

/// True when a shape lies more than 30 degrees of a great circle east or west of the area that its projection is made
/// for: so far from there, some projections come back to another place. North and south of it they hardly do. False for
/// an empty shape.
[[nodiscard]] bool LiesFarFrom(const AreaOfUse& area, const IGeometry& degrees);

/// True when a ring is more than 180 degrees of longitude wide.
[[nodiscard]] bool HasWideRing(const Polygon& polygon);

/// True when a ring falls into several as it is made simple: it crosses itself. Costs as much as that.
[[nodiscard]] bool HasLobes(const Polygon& polygon);

}  // namespace tessarine::MyGeometricOperations
