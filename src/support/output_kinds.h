// SPDX-License-Identifier: GPL-2.0-or-later
// The kinds of output and their words.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "outputs/formats.h"
#include "platform/data.h"

namespace tessarine::MyGeneralOperations {

using tessarine::kFileGeodatabase;
using tessarine::kPersonalGeodatabase;
using tessarine::kShapefile;
using tessarine::kUnknownOutput;
using tessarine::OutputKind;

/// "Shapefile", "File Geodatabase", "GeoPackage" and so on, "" for no kind of any format.
[[nodiscard]] std::string DirectoryTypeText(std::int32_t kind);
/// The kind of such a text, `kUnknownOutput` for any other.
[[nodiscard]] OutputKind KindOfDirectoryType(std::string_view text);
/// The catalog's word for a class of this kind, or "" for any other kind.
[[nodiscard]] std::string CategoryOfKind(std::int32_t kind);
/// The kind of output that a place of this category takes; `kUnknownOutput` for any other.
[[nodiscard]] OutputKind KindOfCategory(std::string_view category);
/// The same of any place that can be chosen beside outputs: tables, too.
[[nodiscard]] OutputKind KindOfPlace(std::string_view category);
/// The same of a place of any category that begins with the name of a geodatabase.
[[nodiscard]] OutputKind KindOfAnyPlace(std::string_view category);
/// The kind of the classes in a folder: of a geodatabase by its ending, else a shapefile.
[[nodiscard]] OutputKind KindInFolder(const std::string& folder);
/// The name of a shapefile with its ending, and without.
[[nodiscard]] std::string WithShapefileEnding(std::string name);
[[nodiscard]] std::string WithoutShapefileEnding(std::string name);
/// The factory for outputs of this kind; null for any other.
[[nodiscard]] std::shared_ptr<IWorkspaceFactory> FactoryOfKind(std::int32_t kind);
/// The factory for a place of this category; null for any other category.
[[nodiscard]] std::shared_ptr<IWorkspaceFactory> FactoryOfCategory(std::string_view category);

}  // namespace tessarine::MyGeneralOperations
