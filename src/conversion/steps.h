// The steps of the conversion runs, one maker each.
#pragma once

#include <memory>

#include "conversion/conversion_step.h"

namespace tessarine {

/// One point for each vertex of the shape, closing vertices included, in the order of the shape's parts.
[[nodiscard]] std::unique_ptr<ConversionStep> MakeVertexStep();

}  // namespace tessarine
