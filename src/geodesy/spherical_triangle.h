// What the single triangle and the sum over a ring share: the fixed axes, and two decisions about a triangle.
#pragma once

#include "platform/geometry_types.h"

namespace tessarine::MyGeometricOperations::detail {

inline constexpr double kWgs1984SemiMajor = 6378137.0;
inline constexpr double kWgs1984SemiMinor = 6356752.31424518;

/// True for corners on one meridian, and for two that coincide, both within 1e-12 degrees.
[[nodiscard]] bool HasNoArea(XY p1, XY p2, XY p3);

/// +1 when the corners run clockwise as seen from above, else -1: by the azimuths from the first corner to the second
/// and to the third.
[[nodiscard]] double SignOfTurn(XY p1, XY p2, XY p3);

}  // namespace tessarine::MyGeometricOperations::detail
