// SPDX-License-Identifier: GPL-2.0-or-later
// Measures of multipoints.
#pragma once

#include "calculator/measures.h"

namespace tessarine {

class MultipointRecord final : public MeasureRecord {
 public:
  MultipointRecord(std::shared_ptr<Multipoint> shape, MeasureSettings& settings);

  [[nodiscard]] const Multipoint& Shape() const { return *shape_; }

  /// The plain means of x and y.
  [[nodiscard]] XY Centroid() const;
  /// The centre on the spheroid, in the projection of the layer.
  [[nodiscard]] XY ProjectedSpheroidalCentroid();
  /// The centre on the spheroid as longitude and latitude, in the latitudes of the data.
  [[nodiscard]] XY SpheroidalCentroid();

 private:
  std::shared_ptr<Multipoint> shape_;
  std::shared_ptr<Multipoint> planetographic_;  // geographic layers only
};

}  // namespace tessarine
