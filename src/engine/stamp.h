// SPDX-License-Identifier: GPL-2.0-or-later
// Where a layer is from: what its metadata tell of the run that made it.
#pragma once

#include <cpl_string.h>

#include <filesystem>
#include <string>

#include "outputs/formats.h"

namespace tessarine::engine {

/// Adds what the run in hand wants to be told to the options of a new layer, for formats that take it there; nothing
/// where it wants nothing told.
void AddStamp(const Format& format, CPLStringList& options);

/// The same for a layer of a GeoPackage that stands already.
void StampGeoPackage(const std::filesystem::path& file, const std::string& layer);

}  // namespace tessarine::engine
