// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/workspace_common.h"

#include <unistd.h>

#include <filesystem>

#include "engine/engine_fault.h"
#include "engine/ogr_fields.h"
#include "engine/personal_geodatabase_values.h"
#include "engine/srs_from_gdal.h"
#include "outputs/driver_facts.h"
#include "outputs/staged_output.h"
#include "platform/paths.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

class PlainWorkspace final : public IWorkspace {
 public:
  explicit PlainWorkspace(std::string path) : path_(std::move(path)) {}
  [[nodiscard]] std::string PathName() const override { return path_; }

 private:
  std::string path_;
};

OGRwkbGeometryType OgrTypeOf(esriGeometryType type, LayerShapes shapes) {
  const bool multiple = shapes == LayerShapes::Multiple;
  switch (type) {
    case esriGeometryPoint:
      return wkbPoint;
    case esriGeometryMultipoint:
      return wkbMultiPoint;
    case esriGeometryPolyline:
      return multiple ? wkbMultiLineString : wkbLineString;
    case esriGeometryPolygon:
      return multiple ? wkbMultiPolygon : wkbPolygon;
    default:
      Raise(kInvalidCall, "A feature class holds points, multipoints, polylines or polygons.");
  }
}

}  // namespace

std::shared_ptr<IWorkspace> WorkspaceAt(const std::string& native_path) {
  return std::make_shared<PlainWorkspace>(FromNativePath(native_path));
}

std::shared_ptr<IWorkspace> WorkspaceOf(const Format& format, const std::string& native_path) {
  const bool is_container = format.feature_datasets || fs::is_directory(native_path);
  const std::string place = is_container ? native_path : fs::path(native_path).parent_path().string();
  return WorkspaceAt(place);
}

void DeleteShapefile(const std::string& native_path) {
  for (const fs::path& file : FilesOfDataset(native_path)) {
    std::error_code error;
    fs::remove(file, error);
    if (error) {
      RaiseEngineFault("'" + file.string() + "' can't be deleted: " + error.message() + ".");
    }
  }
}

const GeometryDef& ShapeDefinition(const NewClass& request) {
  const std::int32_t index = request.fields->FindField(request.shape_field);
  if (index < 0) Raise(kInvalidCall, "The new class '" + request.name + "' has no shape field.");
  const auto& definition = request.fields->Field(index)->GeometryDef;
  return *Require(definition, "GeometryDef");
}

std::string CreateLayer(GDALDataset& dataset, const NewClass& request, CPLStringList options, LayerShapes shapes) {
  const GeometryDef& shape = ShapeDefinition(request);
  OgrReference reference;
  if (shape.SpatialReference) reference = OgrFromReference(*shape.SpatialReference);
  const ColumnStore store = ColumnStoreOf(FactsOfDriver(dataset.GetDriverName()).store);
  const GdalErrorScope errors;
  const OGRwkbGeometryType one_kind = OgrTypeOf(shape.GeometryType, shapes);
  OGRLayer* layer = dataset.CreateLayer(request.name.c_str(), reference.get(),
                                        shapes == LayerShapes::Any ? wkbUnknown : one_kind, options.List());
  if (layer == nullptr) {
    RaiseEngineFault("The feature class '" + request.name + "' can't be created" + errors.Quote() +
                     ": check that the place is writable and the name is legal.");
  }
  const OGRFeatureDefn& made = *layer->GetLayerDefn();
  std::vector<std::unique_ptr<OGRFieldDefn>> definitions;
  std::vector<OGRFieldDefn*> wanted;
  for (const FieldRef& field : *request.fields) {
    if (field->Type == esriFieldTypeOID || field->Type == esriFieldTypeGeometry) continue;
    definitions.push_back(OgrFieldOf(*field, store));
    wanted.push_back(definitions.back().get());
  }
  if (store == ColumnStore::PersonalGeodatabase) ShareOutRow(wanted);
  for (OGRFieldDefn* field : wanted) {
    const int before = made.GetFieldCount();
    const bool created = layer->CreateField(field) == OGRERR_NONE;
    if (!created || made.GetFieldCount() != before + 1) {
      RaiseEngineFault("The field '" + std::string(field->GetNameRef()) + "' can't be added to '" + request.name + "'" +
                       errors.Quote() + ".");
    }
  }
  return layer->GetName();
}

void RequireWritableFolder(const std::string& native_folder) {
  if (!fs::is_directory(native_folder)) {
    RaiseEngineFault("There is no folder '" + native_folder + "': make it first, or name another.");
  }
  if (access(native_folder.c_str(), W_OK) != 0) {
    RaiseEngineFault("The folder '" + native_folder + "' can't be written to: check its permissions, or name another.");
  }
}

}  // namespace tessarine::engine
