// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/versions.h"

#include <gdal.h>
#include <geos_c.h>
#include <proj.h>

namespace tessarine {

LibraryVersions EngineLibraryVersions() {
  // GEOS appends the version of its C interface.
  const std::string geos = GEOSversion();
  return {GDALVersionInfo("RELEASE_NAME"), geos.substr(0, geos.find('-')), proj_info().version};
}

}  // namespace tessarine
