// SPDX-License-Identifier: GPL-2.0-or-later
// The measures of one shape as hosts reach them.
#pragma once

#include "platform/shape_measures.h"

namespace tessarine {

class clsShapeMeasures final : public IShapeMeasures {
 public:
  [[nodiscard]] MeasuredValue Length(const IGeometry& shape, double semi_major, double semi_minor) const override;
  [[nodiscard]] MeasuredValue Area(const IGeometry& shape, double semi_major, double semi_minor) const override;
  [[nodiscard]] MeasuredPosition Midpoint(const IGeometry& shape, double semi_major, double semi_minor) const override;
  [[nodiscard]] MeasuredLeg Leg(XY from, XY to, double semi_major, double semi_minor) const override;
  [[nodiscard]] XY InDegrees(XY position, const SpatialReferenceRef& reference) const override;
  [[nodiscard]] XY FromDegrees(XY position, const SpatialReferenceRef& reference) const override;
};

}  // namespace tessarine
