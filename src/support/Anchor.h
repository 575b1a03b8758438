// SPDX-License-Identifier: GPL-2.0-or-later
// How one edge of a control follows the size of its container.
#pragma once

#include <cstdint>
#include <limits>

namespace tessarine {

/// One value per axis; the start is the left or top edge, the end the right or bottom edge.
enum AnchorTypes : std::int32_t {
  enumNone = 0,       ///< start and size follow the container in proportion
  enumStart = 1,      ///< the start stays, the size follows in proportion
  enumStartSize = 2,  ///< start and size stay
  enumStartEnd = 3,   ///< start and the distance of the end stay: the control stretches
  enumSize = 4,       ///< the size stays, the centre follows in proportion
  enumSizeEnd = 5,    ///< the size and the distance of the end stay
  enumEnd = 6,        ///< the distance of the end stays, the start follows in proportion
};

/// One edge value.
struct Anchor {
  AnchorTypes AnchorType = enumNone;
  std::int32_t MinValue = -std::numeric_limits<std::int32_t>::max();
  std::int32_t MaxValue = std::numeric_limits<std::int32_t>::max();
  float Value = 0.0F;  ///< a stored offset, or a ratio to the container
};

}  // namespace tessarine
