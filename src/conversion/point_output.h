// What the steps that make one point for each feature write.
#pragma once

#include <memory>

#include "conversion/conversion_step.h"

namespace tessarine {

/// Why a polygon has no point.
inline constexpr std::string_view kNoArea = "Polygons without area have neither a centre nor a place inside.";

/// Writes the point with its coordinates in the first two measure fields.
inline void InsertPoint(const std::shared_ptr<Point>& point, ConversionSink& sink) {
  sink.SetShape(point);
  sink.SetMeasure(0, point->X());
  sink.SetMeasure(1, point->Y());
  sink.Insert();
}

}  // namespace tessarine
