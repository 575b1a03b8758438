#include "support/output_kinds.h"

#include <array>

namespace tessarine::MyGeneralOperations {
namespace {

struct KindRow {
  OutputKind kind;
  std::string_view directory_type;
  std::string_view category;
};

constexpr std::array kKinds = {
    KindRow{kShapefile, "Shapefile", "Shapefile"},
    KindRow{kFileGeodatabase, "File Geodatabase", "File Geodatabase Feature Class"},
    KindRow{kPersonalGeodatabase, "Personal Geodatabase", "Personal Geodatabase Feature Class"},
};

struct FactoryRow {
  std::string_view category;
  std::shared_ptr<IWorkspaceFactory> (*make)();
};

constexpr std::array kFactories = {
    FactoryRow{"Shapefile", CreateShapefileWorkspaceFactory},
    FactoryRow{"Folder", CreateShapefileWorkspaceFactory},
    FactoryRow{"File Geodatabase Feature Class", CreateFileGDBWorkspaceFactory},
    FactoryRow{"File Geodatabase Raster Catalog", CreateFileGDBWorkspaceFactory},
    FactoryRow{"File Geodatabase", CreateFileGDBWorkspaceFactory},
    FactoryRow{"File Geodatabase Feature Dataset", CreateFileGDBWorkspaceFactory},
    FactoryRow{"Personal Geodatabase Feature Class", CreateAccessWorkspaceFactory},
    FactoryRow{"Personal Geodatabase Raster Catalog", CreateAccessWorkspaceFactory},
    FactoryRow{"Personal Geodatabase", CreateAccessWorkspaceFactory},
    FactoryRow{"Personal Geodatabase Feature Dataset", CreateAccessWorkspaceFactory},
};

}  // namespace

std::string DirectoryTypeText(std::int32_t kind) {
  for (const KindRow& row : kKinds) {
    if (row.kind == kind) return std::string(row.directory_type);
  }
  return "";
}

OutputKind KindOfDirectoryType(std::string_view text) {
  for (const KindRow& row : kKinds) {
    if (row.directory_type == text) return row.kind;
  }
  return kUnknownOutput;
}

std::string CategoryOfKind(std::int32_t kind) {
  for (const KindRow& row : kKinds) {
    if (row.kind == kind) return std::string(row.category);
  }
  return "";
}

std::shared_ptr<IWorkspaceFactory> FactoryOfCategory(std::string_view category) {
  for (const FactoryRow& row : kFactories) {
    if (row.category == category) return row.make();
  }
  return nullptr;
}

}  // namespace tessarine::MyGeneralOperations
