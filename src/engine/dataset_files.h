// SPDX-License-Identifier: GPL-2.0-or-later
// The files that a layer is read from.
#pragma once

#include <gdal_priv.h>

#include <string>

#include "platform/data.h"

namespace tessarine::engine {

/// What the layer of this dataset consists of, as GDAL tells and as we know of its format: a shapefile of a folder is
/// its own files alone, a virtual file is what it is made of. A dataset that can't be opened is its path. Costs an
/// opening.
[[nodiscard]] DatasetFiles FilesOfLayer(const std::string& native_path, const std::string& layer);
/// The same of one that is open for reading.
[[nodiscard]] DatasetFiles FilesOfLayer(GDALDataset& dataset, const std::string& native_path, const std::string& layer);

}  // namespace tessarine::engine
