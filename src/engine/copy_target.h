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

/// The driver of a format; null, or a fault, where GDAL has none.
[[nodiscard]] GDALDriver* FindDriver(const Format& format);
[[nodiscard]] GDALDriver& DriverOf(const Format& format);

/// False for drivers that only read, or write images alone.
[[nodiscard]] bool WritesVectors(GDALDriver& driver);

/// Makes an empty file. A fault names `shown`.
[[nodiscard]] DatasetHandle CreateFile(GDALDriver& driver, const std::filesystem::path& path,
                                       const std::filesystem::path& shown);

/// Opens the container that a new class goes into, or makes an empty file or container. A server is opened by its
/// connection, in a transaction that ends with `Commit`.
[[nodiscard]] DatasetHandle OpenTarget(const Format& format, const std::filesystem::path& path,
                                       const std::filesystem::path& shown);
/// Removes the layer of this name from a container, where it holds one.
void RemoveLayer(GDALDataset& dataset, const std::string& name);

[[nodiscard]] CPLStringList LayerOptions(const Format& format);

/// What a column holds, in words: "text of 80", "whole number".
[[nodiscard]] std::string ColumnTypeWord(const OGRFieldDefn& column);

/// Columns that a format has besides the attributes.
struct OwnColumns {
  std::string identifier, shape;  ///< empty for the usual names
};
/// Has the format give its own columns these names, or ones made of them that neither an attribute has nor a field that
/// the run will add. A format without a choice of names gets no option.
void NameOwnColumns(const Format& format, const OwnColumns& wished, const RowTraits& traits,
                    const std::vector<std::string>& results, CPLStringList& options);

/// The same for a class that is made of these fields.
void NameOwnColumns(const Format& format, const std::vector<std::string>& attributes, CPLStringList& options);

/// Makes a layer without fields. Fault where it can't be made, or has no place for shapes.
[[nodiscard]] OGRLayer* CreateTargetLayer(GDALDataset& dataset, const std::string& name,
                                          const OGRSpatialReference* reference, OGRwkbGeometryType type,
                                          const CPLStringList& options, const std::filesystem::path& shown);

}  // namespace tessarine::engine
