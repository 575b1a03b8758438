// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/area_of_use.h"

#include "engine/engine_fault.h"
#include "engine/srs_from_gdal.h"

namespace tessarine {

std::optional<AreaOfUse> AreaOfUseOf(const SpatialReference& reference) {
  const engine::GdalErrorScope quiet;
  const engine::OgrReference ogr = engine::OgrFromReference(reference);
  AreaOfUse area{};
  if (!ogr || !ogr->GetAreaOfUse(&area.west, &area.south, &area.east, &area.north, nullptr)) return std::nullopt;
  constexpr double kUnknown = -1000.0;
  return area.west == kUnknown ? std::nullopt : std::optional(area);
}

}  // namespace tessarine
