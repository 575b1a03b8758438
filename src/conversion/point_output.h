// SPDX-License-Identifier: GPL-2.0-or-later
// What the steps that make one point for each feature write.
#pragma once

#include <memory>

#include "conversion/conversion_step.h"

namespace tessarine {

/// Why a polygon has no point.
inline constexpr std::string_view kNoArea = "Polygons without area have neither a centre nor a place inside.";

/// Writes the point, with the position that the first two measure fields tell.
inline void InsertPoint(const std::shared_ptr<Point>& point, XY told, ConversionSink& sink) {
  sink.SetShape(point);
  sink.SetMeasure(0, told.x);
  sink.SetMeasure(1, told.y);
  sink.Insert();
}

/// The same with the point's own coordinates.
inline void InsertPoint(const std::shared_ptr<Point>& point, ConversionSink& sink) {
  InsertPoint(point, point->Coordinates(), sink);
}

}  // namespace tessarine
