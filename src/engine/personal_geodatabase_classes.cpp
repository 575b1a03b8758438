#include "engine/personal_geodatabase_classes.h"

#include <filesystem>

#include "engine/data_source.h"
#include "engine/engine_fault.h"
#include "engine/filegdb_grid.h"
#include "engine/ogr_class.h"
#include "engine/personal_geodatabase_create.h"
#include "engine/personal_geodatabase_edit.h"
#include "engine/srs_from_gdal.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

// Where nothing speaks for another: 10 nanodegrees, a tenth of a millimetre.
constexpr NewGrid kDegreeGrid{{-400.0, -400.0, 1e9}, 8.983152841195215e-09};
constexpr NewGrid kLengthGrid{{-2147483647.0, -2147483647.0, 1e4}, 0.001};

class StagedPersonalClass final : public OgrFeatureClass, public IStagedDataset {
 public:
  StagedPersonalClass(const std::string& path, const std::string& name, std::shared_ptr<PersonalEdit> edit)
      : OgrFeatureClass(std::make_shared<OgrSource>(path, name, std::nullopt)), edit_(std::move(edit)) {}
  ~StagedPersonalClass() override { StagedPersonalClass::Discard(); }
  StagedPersonalClass(const StagedPersonalClass&) = delete;
  StagedPersonalClass& operator=(const StagedPersonalClass&) = delete;

  void Publish() override {
    if (!edit_) Raise(kInvalidCall, "'" + Name() + "' was published or given up already.");
    Source()->Renew();
    PersonalEdit::End(edit_);
  }
  void Discard() override {
    if (!edit_) return;
    Source()->Renew();
    edit_->Abandon();
    edit_.reset();
  }

 private:
  std::shared_ptr<PersonalEdit> edit_;
};

std::int32_t ShapeTypeNumber(esriGeometryType type) {
  switch (type) {
    case esriGeometryPoint:
      return 1;
    case esriGeometryMultipoint:
      return 2;
    case esriGeometryPolyline:
      return 3;
    case esriGeometryPolygon:
      return 4;
    default:
      Raise(kInvalidCall, "A feature class holds points, multipoints, polylines or polygons.");
  }
}

PersonalReference ReferenceFor(const GeometryDef& shape) {
  OgrReference reference;
  if (shape.SpatialReference) reference = OgrFromReference(*shape.SpatialReference);
  PersonalReference made = ReferenceOf(reference.get());
  const bool degrees = Is<GeographicCoordinateSystem>(shape.SpatialReference);
  const bool length = Is<ProjectedCoordinateSystem>(shape.SpatialReference);
  const GridUnit unit = degrees ? GridUnit::kDegrees : length ? GridUnit::kLength : GridUnit::kUnknown;
  const NewGrid grid = GridFor(shape.Extent, unit).value_or(degrees ? kDegreeGrid : kLengthGrid);
  made.x_origin = grid.grid.x_origin;
  made.y_origin = grid.grid.y_origin;
  made.xy_scale = grid.grid.xy_scale;
  made.xy_tolerance = grid.xy_tolerance;
  return made;
}

NewPersonalClass Described(const NewPersonalPlace& place, const NewClass& request) {
  const GeometryDef& shape = ShapeDefinition(request);
  NewPersonalClass made;
  made.description.name = request.name;
  made.description.shape_column = request.shape_field;
  made.description.shape_type = ShapeTypeNumber(shape.GeometryType);
  made.identifier_column = "OBJECTID";
  for (const FieldRef& field : *request.fields) {
    if (field->Type == esriFieldTypeOID) made.identifier_column = field->Name;
  }
  made.dataset = place.dataset;
  made.reference = ReferenceFor(shape);
  return made;
}

void AddAttributes(const std::string& path, const NewClass& request) {
  const GdalErrorScope errors;
  const DatasetHandle dataset = OpenDataset(path, true);
  OGRLayer* layer = dataset->GetLayerByName(request.name.c_str());
  if (layer == nullptr) RaiseEngineFault("'" + request.name + "' can't be found in '" + path + "'.");
  const ColumnStore store = ColumnStoreOf(dataset->GetDriverName());
  for (const FieldRef& field : *request.fields) {
    if (field->Type == esriFieldTypeOID || field->Type == esriFieldTypeGeometry) continue;
    if (layer->CreateField(OgrFieldOf(*field, store).get()) == OGRERR_NONE) continue;
    RaiseEngineFault("The field '" + field->Name + "' can't be added to '" + request.name + "'" + errors.Quote() + ".");
  }
}

}  // namespace

std::shared_ptr<IFeatureClass> CreateInPersonalGeodatabase(const NewPersonalPlace& place, const NewClass& request) {
  RequireWritableFolder(fs::absolute(place.path).parent_path().string());
  std::shared_ptr<PersonalEdit> edit = PersonalEdit::Begin(place.path);
  try {
    if (place.replaces) DataSource::Open(place.path, false)->OpenTable(request.name)->Delete();
    EditPersonalGeodatabase(place.path,
                            [&](jet::Database& database) { CreatePersonalClass(database, Described(place, request)); });
    AddAttributes(place.path, request);
    return std::make_shared<StagedPersonalClass>(place.path, request.name, edit);
  } catch (...) {
    edit->Abandon();
    throw;
  }
}

void MakePersonalGeodatabaseAt(const std::string& native_path) {
  if (fs::exists(native_path)) RaiseEngineFault("'" + native_path + "' exists already: name another geodatabase.");
  RequireWritableFolder(fs::absolute(native_path).parent_path().string());
  EditPersonalGeodatabase(native_path, [](jet::Database&) {});
}

namespace {

// Looks at the geodatabase as the edit under way has it.
template <class Look>
std::string LookInto(const std::string& native_path, Look&& look) {
  try {
    if (const auto edit = PersonalEdit::UnderWay(native_path)) return look(*edit->Database());
    if (!fs::exists(native_path)) return "";
    jet::Database database(native_path, jet::Database::Mode::Read);
    return look(database);
  } catch (const jet::Error& error) {
    RaiseEngineFault("'" + native_path + "' can't be read: " + error.what() + ".");
  }
}

}  // namespace

std::string StoredPersonalDataset(const std::string& native_path, const std::string& name) {
  return LookInto(native_path, [&](jet::Database& database) -> std::string {
    for (const PersonalDataset& dataset : ReadPersonalDatasets(database)) {
      if (EqualsIgnoringCase(dataset.name, name)) return dataset.name;
    }
    return "";
  });
}

std::string ClassOfPersonalDataset(const std::string& native_path, const std::string& dataset) {
  return LookInto(native_path, [&](jet::Database& database) -> std::string {
    for (const PersonalClass& one : ReadPersonalClasses(database)) {
      if (EqualsIgnoringCase(DatasetOfPersonalClass(database, one.name), dataset)) return one.name;
    }
    return "";
  });
}

}  // namespace tessarine::engine
