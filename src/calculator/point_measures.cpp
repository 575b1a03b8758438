#include "calculator/point_measures.h"

#include "calculator/measure_coordinates.h"

namespace tessarine {

using namespace measure_coordinates;

PointRecord::PointRecord(std::shared_ptr<Point> shape, MeasureSettings& settings)
    : MeasureRecord(settings), shape_(std::move(shape)) {}

XY PointRecord::Position() const { return shape_->Coordinates(); }

XY PointRecord::LongitudeLatitude() const {
  Point copy = *shape_;
  copy.Project(GeographicSystemOf(*shape_));
  return copy.Coordinates();
}

}  // namespace tessarine
