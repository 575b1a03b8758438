// SPDX-License-Identifier: GPL-2.0-or-later
// What came of measuring one record, for whoever writes it. Measuring touches nothing but the record, so that several
// threads may be at it.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "calculator/result_writing.h"
#include "support/record_pipeline.h"

namespace tessarine {

struct MeasuredRecord {
  /// The values of one measure, or the fault in their place.
  struct Result {
    MeasuredValues values;
    std::optional<Fault> fault;
  };

  std::optional<Fault> fault;   ///< of a shape that can't be read, or that nothing can be measured of
  std::vector<Result> results;  ///< by measure; none for a record without a shape, or with a fault of its own
  std::vector<MeasureWarning> warnings;
};

/// Faults go to the result, each to the measure that it met. Raises `RunStopped`.
[[nodiscard]] MeasuredRecord MeasureAll(const ReadRecord& record, std::span<const ChosenMeasure> measures,
                                        MeasureSettings& settings);

}  // namespace tessarine
