// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/point_measures.h"

#include "shapes/geographic_shape.h"

namespace tessarine {

PointRecord::PointRecord(std::shared_ptr<Point> shape, MeasureSettings& settings)
    : MeasureRecord(settings), shape_(std::move(shape)) {}

XY PointRecord::Position() const { return shape_->Coordinates(); }

XY PointRecord::LongitudeLatitude() const {
  return MyGeometricOperations::ToDegrees(shape_->Coordinates(), shape_->SpatialReference());
}

}  // namespace tessarine
