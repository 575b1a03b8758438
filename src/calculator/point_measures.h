// SPDX-License-Identifier: GPL-2.0-or-later
// Measures of points. No geodesy is involved: a point is written as it is stored, also when its latitudes are
// planetocentric.
#pragma once

#include "calculator/measures.h"

namespace tessarine {

class PointRecord final : public MeasureRecord {
 public:
  PointRecord(std::shared_ptr<Point> shape, MeasureSettings& settings);

  /// In the coordinates of the data.
  [[nodiscard]] XY Position() const;
  /// In the geographic reference beneath the layer's projection, whatever spheroid was chosen for the run.
  [[nodiscard]] XY LongitudeLatitude() const;

 private:
  std::shared_ptr<Point> shape_;
};

}  // namespace tessarine
