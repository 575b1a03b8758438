// SPDX-License-Identifier: GPL-2.0-or-later
// New files and layers of any format that GDAL writes.
#pragma once

#include <gdal_priv.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "engine/ogr_feature.h"
#include "engine/ogr_source.h"
#include "outputs/formats.h"

namespace tessarine::engine {

/// The driver of a format; fault where GDAL has none.
[[nodiscard]] GDALDriver& DriverOf(const Format& format);

/// Makes an empty file. A fault names `shown`.
[[nodiscard]] DatasetHandle CreateFile(GDALDriver& driver, const std::filesystem::path& path,
                                       const std::filesystem::path& shown);

[[nodiscard]] CPLStringList LayerOptions(const Format& format);

/// Columns that a format has besides the attributes.
struct OwnColumns {
  std::string identifier, shape;  ///< empty for the usual names
};
/// Has the format give its own columns these names, or ones made of them that neither an attribute has nor a field that
/// the run will add. A format without a choice of names gets no option.
void NameOwnColumns(const Format& format, const OwnColumns& wished, const RowTraits& traits,
                    const std::vector<std::string>& results, CPLStringList& options);

/// Makes a layer without fields. Fault where it can't be made, or has no place for shapes.
[[nodiscard]] OGRLayer* CreateTargetLayer(GDALDataset& dataset, const std::string& name,
                                          const OGRSpatialReference* reference, OGRwkbGeometryType type,
                                          const CPLStringList& options, const std::filesystem::path& shown);

}  // namespace tessarine::engine
