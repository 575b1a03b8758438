// SPDX-License-Identifier: GPL-2.0-or-later
// What the fields of chosen measures hold, and in which unit.
#pragma once

#include <string>
#include <vector>

#include "calculator/measure_choice.h"
#include "platform/tool.h"

namespace tessarine {

/// One for each field of the choice, in its order.
[[nodiscard]] std::vector<FieldMeaning> MeaningsOf(const IFeatureLayer& layer, const MeasureChoice& choice);

/// The words for numbers of a unit in coordinates of a reference, "square metres"; empty for counts. Coordinates of an
/// unknown reference are in "map units".
[[nodiscard]] std::string UnitWords(MeasuredIn unit, const SpatialReferenceRef& reference);

}  // namespace tessarine
