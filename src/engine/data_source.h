// SPDX-License-Identifier: GPL-2.0-or-later
// Vector data of any format that GDAL reads, for hosts.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/file_access.h"
#include "platform/data.h"

namespace tessarine {

/// What there is to know of a layer without reading its rows.
struct LayerInfo {
  std::string name;
  esriGeometryType shape_type = esriGeometryNull;  ///< Null for a table
  SpatialReferenceRef reference;
  std::int64_t count = 0;
  FieldsRef fields;
  std::vector<LeftOutRecords> left_out;  ///< not among the counted ones
  std::string problem;                   ///< why the layer can't be read; nothing else is told then but its shape type
};

class DataSource : public virtual Object {
 public:
  /// Opens a file or folder. The fault of one that is missing, damaged or no vector data names it and what to do; a
  /// shapefile is checked for its parts and their lengths.
  [[nodiscard]] static std::shared_ptr<DataSource> Open(const std::string& native_path,
                                                        FileAccess access = FileAccess::Read);

  [[nodiscard]] virtual std::string DriverName() const = 0;
  /// A layer that mixes points, lines and polygons counts as one layer for each kind, named with the kind after.
  [[nodiscard]] virtual std::vector<std::string> LayerNames() const = 0;
  /// An empty name means the only layer. Faults name the layers there are.
  [[nodiscard]] virtual std::shared_ptr<IFeatureClass> OpenFeatureClass(const std::string& layer) const = 0;
  [[nodiscard]] virtual std::shared_ptr<ITable> OpenTable(const std::string& layer) const = 0;
  [[nodiscard]] virtual std::vector<LayerInfo> Infos() const = 0;
};

/// The rows that meet an SQL condition; a condition that can't be used raises a fault that quotes it.
[[nodiscard]] std::shared_ptr<ISelectionSet> SelectByWhere(const std::shared_ptr<IFeatureClass>& features,
                                                           const std::string& where);
/// Those of the identifiers that are there, sorted, each once. Fetches a few rows, or goes over all.
[[nodiscard]] std::vector<std::int64_t> OidsThatExist(IFeatureClass& features, std::vector<std::int64_t> oids);
/// The rows with these identifiers, all of which are there.
[[nodiscard]] std::shared_ptr<ISelectionSet> SelectByOids(const std::shared_ptr<IFeatureClass>& features,
                                                          std::vector<std::int64_t> oids);

/// Makes an empty file geodatabase.
void CreateFileGeodatabase(const std::string& native_path);
/// The reference of a feature dataset that has classes; null where there is no such dataset or class.
[[nodiscard]] SpatialReferenceRef FeatureDatasetReference(const std::string& native_geodatabase,
                                                          const std::string& name);

}  // namespace tessarine
