// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/spatial_reference.h"

namespace tessarine {

bool SpatialReference::IsXYPrecisionEqual(const SpatialReference& other) const {
  return XYResolution() == other.XYResolution();
}

ObjectRef Spheroid::Clone() const { return std::make_shared<Spheroid>(*this); }

bool Spheroid::IsEqual(const Object& other) const {
  const auto* spheroid = dynamic_cast<const Spheroid*>(&other);
  return spheroid != nullptr && spheroid->name_ == name_ && spheroid->semi_major_axis_ == semi_major_axis_ &&
         spheroid->semi_minor_axis_ == semi_minor_axis_;
}

ObjectRef GeographicCoordinateSystem::Clone() const { return std::make_shared<GeographicCoordinateSystem>(*this); }

ObjectRef ProjectedCoordinateSystem::Clone() const { return std::make_shared<ProjectedCoordinateSystem>(*this); }

ObjectRef UnknownCoordinateSystem::Clone() const { return std::make_shared<UnknownCoordinateSystem>(*this); }

std::shared_ptr<const GeographicCoordinateSystem> GeographicOf(const SpatialReferenceRef& reference) {
  if (const auto projected = Cast<const ProjectedCoordinateSystem>(reference)) {
    return projected->GeographicCoordinateSystem();
  }
  return Cast<const GeographicCoordinateSystem>(reference);
}

}  // namespace tessarine
