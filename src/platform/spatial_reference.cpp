#include "platform/spatial_reference.h"

namespace tessarine {

bool SpatialReference::IsXYPrecisionEqual(const SpatialReference& other) const {
  return XYResolution() == other.XYResolution();
}

ObjectRef GeographicCoordinateSystem::Clone() const { return std::make_shared<GeographicCoordinateSystem>(*this); }

ObjectRef ProjectedCoordinateSystem::Clone() const { return std::make_shared<ProjectedCoordinateSystem>(*this); }

ObjectRef UnknownCoordinateSystem::Clone() const { return std::make_shared<UnknownCoordinateSystem>(*this); }

}  // namespace tessarine
