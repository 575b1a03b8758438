// SPDX-License-Identifier: GPL-2.0-or-later
// The spatial frame of a run's output: its reference and the extent of the data to come.
#pragma once

#include "conversion/conversion_runs.h"
#include "platform/data.h"

namespace tessarine {

struct OutputFrame {
  SpatialReferenceRef reference;
  Envelope extent;  ///< empty when it can't be told in the output's reference
};

/// True when the run can work in this reference: a geographic output needs one that is known.
[[nodiscard]] bool CanFrame(const modCreateVertices::ConversionRun& run, const SpatialReferenceRef& input);
[[nodiscard]] OutputFrame FrameOf(const modCreateVertices::ConversionRun& run, const IFeatureClass& input);

}  // namespace tessarine
