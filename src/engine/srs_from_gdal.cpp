// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/srs_from_gdal.h"

#include <cpl_conv.h>

namespace tessarine::engine {

OgrReference Wgs84() {
  constexpr int kWgs84 = 4326;
  OgrReference reference(new OGRSpatialReference());
  reference->importFromEPSG(kWgs84);
  reference->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  return reference;
}

bool AreEquivalent(const OGRSpatialReference& first, const OGRSpatialReference& second) {
  const char* const options[] = {"CRITERION=EQUIVALENT", "IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES", nullptr};
  return first.IsSame(&second, options) != 0;
}

std::string WellKnownText(const OGRSpatialReference& reference, WktForm form) {
  constexpr const char* kForms[] = {"FORMAT=WKT1_GDAL", "FORMAT=WKT1_ESRI", "FORMAT=WKT2_2018"};
  const char* const options[] = {kForms[static_cast<std::size_t>(form)], nullptr};
  char* text = nullptr;
  const bool told = reference.exportToWkt(&text, options) == OGRERR_NONE && text != nullptr;
  std::string result = told ? text : "";
  CPLFree(text);
  return result;
}

}  // namespace tessarine::engine
