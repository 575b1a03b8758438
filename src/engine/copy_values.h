// SPDX-License-Identifier: GPL-2.0-or-later
// Comparison of what was written with what was meant.
#pragma once

#include <ogrsf_frmts.h>

#include "platform/value_change.h"

namespace tessarine::engine {

/// What became of an attribute; `None` where it is the same: numbers in 15 digits, times of no zone and of UTC alike, a
/// text without characters is as good as null.
[[nodiscard]] ValueChange CompareValues(const OGRFeature& meant, int meant_index, const OGRFeature& written,
                                        int written_index);

enum class ShapeShift : std::uint8_t {
  None,       ///< but for what the last digits of numbers make out
  Rounded,    ///< by less than a hundred-thousandth of its coordinates: the format keeps fewer digits
  Elsewhere,  ///< farther
};
/// How far the extent of a shape lies from where it was meant to.
[[nodiscard]] ShapeShift ShiftOf(const OGRGeometry& meant, const OGRGeometry& written);

}  // namespace tessarine::engine
