// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/output_kinds.h"

#include <algorithm>
#include <array>

#include "outputs/format_workspace.h"
#include "outputs/formats.h"
#include "outputs/temporary_layers.h"
#include "platform/text_formats.h"

namespace tessarine::MyGeneralOperations {
namespace {

// What stands after a geodatabase's name in the categories of places in it that a class can be made in.
constexpr std::array<std::string_view, 4> kPlacesInGeodatabases = {"", " Feature Class", " Raster Catalog",
                                                                   " Feature Dataset"};

struct FactoryRow {
  OutputKind kind;
  std::shared_ptr<IWorkspaceFactory> (*make)();
};

constexpr std::array kFactories = {
    FactoryRow{kShapefile, CreateShapefileWorkspaceFactory},
    FactoryRow{kFileGeodatabase, CreateFileGDBWorkspaceFactory},
    FactoryRow{kPersonalGeodatabase, CreateAccessWorkspaceFactory},
};

}  // namespace

std::string DirectoryTypeText(std::int32_t kind) {
  const Format* format = FormatOfKind(kind);
  return format == nullptr ? "" : std::string(format->name);
}

OutputKind KindOfDirectoryType(std::string_view text) {
  const Format* format = FormatOfName(text);
  return format == nullptr || format->name != text ? kUnknownOutput : static_cast<OutputKind>(format->kind);
}

std::string CategoryOfKind(std::int32_t kind) {
  const Format* format = FormatOfKind(kind);
  if (format == nullptr) return "";
  return std::string(format->HasOwnWorkspace() && format->container ? format->category : format->name);
}

OutputKind KindOfCategory(std::string_view category) {
  if (category == "Folder") return kShapefile;
  if (const OutputKind kind = KindOfDirectoryType(category); kind != kUnknownOutput) return kind;
  for (const Format& format : AllFormats()) {
    if (!format.HasOwnWorkspace() || !format.container || !category.starts_with(format.name)) continue;
    category.remove_prefix(format.name.size());
    const bool known = std::ranges::find(kPlacesInGeodatabases, category) != kPlacesInGeodatabases.end();
    return known ? static_cast<OutputKind>(format.kind) : kUnknownOutput;
  }
  return kUnknownOutput;
}

OutputKind KindOfPlace(std::string_view category) {
  if (category == "dBASE Table") return kShapefile;
  for (const Format& format : AllFormats()) {
    if (format.feature_datasets && category == std::string(format.name) + " Table") {
      return static_cast<OutputKind>(format.kind);
    }
  }
  return KindOfCategory(category);
}

OutputKind KindOfAnyPlace(std::string_view category) {
  for (const Format& format : AllFormats()) {
    if (format.feature_datasets && category.starts_with(format.name)) return static_cast<OutputKind>(format.kind);
  }
  return KindOfPlace(category);
}

OutputKind KindInFolder(const std::string& folder) {
  const Format* format = FormatOfPath(folder);
  return format != nullptr && format->feature_datasets ? static_cast<OutputKind>(format->kind) : kShapefile;
}

std::string WithShapefileEnding(std::string name) {
  const std::string_view ending = FormatOfKind(kShapefile)->ending;
  if (!EndsWithIgnoringCase(name, ending)) name += ending;
  return name;
}

std::string WithoutShapefileEnding(std::string name) {
  const std::string_view ending = FormatOfKind(kShapefile)->ending;
  if (EndsWithIgnoringCase(name, ending)) name.resize(name.size() - ending.size());
  return name;
}

std::shared_ptr<IWorkspaceFactory> FactoryOfKind(std::int32_t kind) {
  const auto row = std::ranges::find(kFactories, kind, &FactoryRow::kind);
  if (row != kFactories.end()) return row->make();
  const Format* format = FormatOfKind(kind);
  if (format == nullptr) return nullptr;
  return format == TemporaryLayers() ? CreateTemporaryWorkspaceFactory() : CreateFormatWorkspaceFactory(*format);
}

std::shared_ptr<IWorkspaceFactory> FactoryOfCategory(std::string_view category) {
  return FactoryOfKind(KindOfCategory(category));
}

}  // namespace tessarine::MyGeneralOperations
