// SPDX-License-Identifier: GPL-2.0-or-later
// Shapes whose steps of more than 180 degrees of longitude mean the short way over the edge.
#pragma once

#include <memory>

#include "geodesy/longitude_continuation.h"
#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// What became of a shape.
struct ShortSteps {
  bool changed = false;                           ///< a step went over the edge
  bool holds_north = false, holds_south = false;  ///< rings round the globe were led over the pole
};

/// Carries the longitudes of lines and rings on by whole turns, in place, so that no step is longer than 180 degrees;
/// the shape then reaches past -180 or 180. Holes and islands go to what is around them. Rings round the globe are led
/// over the poles that lie inside or joined to belts. Points, multipoints and shapes without such a step stay as they
/// are, and so do a ring given by corners a whole turn apart, which the short way would leave without width, and a
/// step of a line along a parallel from one edge to the other, of which it would leave nothing.
///
/// Left to the smaller part of the sphere, an exterior ring and a hole that both run round the globe bound a belt.
///
/// Fault 5 for a curve in a line or ring with such a step.
ShortSteps TakeShortSteps(IGeometry& shape, geodesy::EnclosedPole pole);

}  // namespace tessarine::MyGeometricOperations
