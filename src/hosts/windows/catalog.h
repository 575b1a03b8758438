// SPDX-License-Identifier: GPL-2.0-or-later
// What the browse dialog walks through: folders, geodatabases and other containers, their feature datasets, and the
// data in them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/host.h"

namespace tessarine {

enum class CatalogKind {
  Folder,
  FileGeodatabase,
  PersonalGeodatabase,
  FeatureDataset,
  Container,  ///< of layers, of another format: a GeoPackage
  Shapefile,
  LayerFile,  ///< of another format that is a file for each layer: GeoJSON
  FeatureClass,
  Table,
  TextFile,
};

/// A place that holds others, or data. Paths are native.
struct CatalogItem {
  CatalogKind kind = CatalogKind::Folder;
  std::string path;     ///< the folder, the file or the geodatabase
  std::string dataset;  ///< the feature dataset that it is or lies in
  std::string name;     ///< as a list shows it

  [[nodiscard]] bool IsContainer() const {
    return kind == CatalogKind::Folder || kind == CatalogKind::FileGeodatabase ||
           kind == CatalogKind::PersonalGeodatabase || kind == CatalogKind::FeatureDataset ||
           kind == CatalogKind::Container;
  }
  /// The path that a person reads: the geodatabase's, the dataset and the name after each other.
  [[nodiscard]] std::string DisplayPath() const;
  /// "Folder", "File Geodatabase Feature Dataset" and so on.
  [[nodiscard]] std::string Category() const;
};

/// The container at a native path: a folder, "x.gdb", "x.mdb", "x.gdb/dataset" or "x.gpkg". Empty where there is
/// none.
[[nodiscard]] std::optional<CatalogItem> FindContainer(const std::string& native_path);

/// What a container holds, its containers first, each by name; of data only what the filter takes. What can't be read
/// counts as empty.
[[nodiscard]] std::vector<CatalogItem> ListContainer(const CatalogItem& container, GxFilter filter);

/// The container that this one lies in; empty for the root.
[[nodiscard]] std::optional<CatalogItem> ContainerAbove(const CatalogItem& item);

/// The item as the suite knows it. Datasets open when they are asked for.
[[nodiscard]] std::shared_ptr<IGxObject> ToGxObject(const CatalogItem& item);

}  // namespace tessarine
