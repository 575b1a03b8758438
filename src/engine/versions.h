// SPDX-License-Identifier: GPL-2.0-or-later
// The libraries that this build runs on.
#pragma once

#include <string>

namespace tessarine {

struct LibraryVersions {
  std::string gdal, geos, proj;
};

[[nodiscard]] LibraryVersions EngineLibraryVersions();

}  // namespace tessarine
