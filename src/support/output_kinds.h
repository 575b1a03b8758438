// SPDX-License-Identifier: GPL-2.0-or-later
// The kinds of output and their words.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/data.h"

namespace tessarine::MyGeneralOperations {

/// Every format has a number; these are the ones that have names in the code.
enum OutputKind : std::int32_t {
  kUnknownOutput = 0,
  kShapefile = 1,
  kFileGeodatabase = 2,
  kPersonalGeodatabase = 4,
};

/// "Shapefile", "File Geodatabase", "GeoPackage" and so on, "" for no kind of any format.
[[nodiscard]] std::string DirectoryTypeText(std::int32_t kind);
/// The kind of such a text, `kUnknownOutput` for any other.
[[nodiscard]] OutputKind KindOfDirectoryType(std::string_view text);
/// The catalog's word for a class of this kind, or "" for any other kind.
[[nodiscard]] std::string CategoryOfKind(std::int32_t kind);
/// The kind of output that a place of this category takes; `kUnknownOutput` for any other.
[[nodiscard]] OutputKind KindOfCategory(std::string_view category);
/// The factory for outputs of this kind; null for any other.
[[nodiscard]] std::shared_ptr<IWorkspaceFactory> FactoryOfKind(std::int32_t kind);
/// The factory for a place of this category; null for any other category.
[[nodiscard]] std::shared_ptr<IWorkspaceFactory> FactoryOfCategory(std::string_view category);

}  // namespace tessarine::MyGeneralOperations
