// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/multipoint_measures.h"

#include "calculator/measure_coordinates.h"
#include "shapes/MyGeometricOperations.h"

namespace tessarine {

namespace shapes = MyGeometricOperations;
using namespace measure_coordinates;

namespace {

constexpr double kOnSpheroid = 0.0;
constexpr const char* kNoCentroid = "The centroid of the multipoint can't be computed.";

XY CentroidOnSpheroid(const std::shared_ptr<Multipoint>& points, const MeasureSettings& settings) {
  return PositionOf(shapes::MultipointCentroidSpheroid(points, settings.semi_major, settings.semi_minor, kOnSpheroid),
                    kNoCentroid);
}

}  // namespace

MultipointRecord::MultipointRecord(std::shared_ptr<Multipoint> shape, MeasureSettings& settings)
    : MeasureRecord(settings), shape_(std::move(shape)) {
  if (settings.kind == SpatialKind::Geographic) planetographic_ = PlanetographicShape(shape_, settings_, work_);
}

XY MultipointRecord::Centroid() const { return PositionOf(shapes::MultipointCentroid(shape_), kNoCentroid); }

XY MultipointRecord::ProjectedSpheroidalCentroid() {
  ++work_.projections;
  const std::shared_ptr<Multipoint> copy = CloneOf(*shape_);
  shapes::BringToDegrees(*copy);
  WarnFarFromArea(*copy);
  return InProjectionOfLayer(CentroidOnSpheroid(copy, settings_), settings_);
}

XY MultipointRecord::SpheroidalCentroid() {
  WarnBeyondPole(*planetographic_);
  return InLatitudesOfData(CentroidOnSpheroid(planetographic_, settings_), settings_);
}

}  // namespace tessarine
