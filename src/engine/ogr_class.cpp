// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/ogr_class.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <limits>

#include "engine/attribute_update.h"
#include "engine/dataset_files.h"
#include "engine/dbase_columns.h"
#include "engine/dbase_layout.h"
#include "engine/engine_fault.h"
#include "engine/filegdb_edit.h"
#include "engine/filegdb_table.h"
#include "engine/left_out.h"
#include "engine/ogr_cursor.h"
#include "engine/ogr_geometry.h"
#include "engine/personal_geodatabase_edit.h"
#include "engine/shapefile_lock.h"
#include "engine/sql.h"
#include "engine/srs_from_gdal.h"
#include "engine/workspace_common.h"
#include "outputs/driver_facts.h"
#include "outputs/way_out.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

class DatasetProperties final : public IPropertySet {
 public:
  explicit DatasetProperties(bool compressed) : compressed_(compressed) {}
  [[nodiscard]] Variant GetProperty(std::string_view name) const override {
    if (name == "Datafile Format") return static_cast<std::int32_t>(compressed_ ? 1 : 0);
    return {};
  }

 private:
  bool compressed_;
};

template <class Edit>
class EditHold final : public IEdit {
 public:
  explicit EditHold(std::shared_ptr<Edit> edit) : edit_(std::move(edit)) {}
  void Finish() override { Edit::End(edit_); }
  void Abandon() override {
    if (edit_) edit_->Abandon();
    Edit::End(edit_);
  }

 private:
  std::shared_ptr<Edit> edit_;
};
using GeodatabaseEdit = EditHold<FileGdbEdit>;
using PersonalGeodatabaseEdit = EditHold<PersonalEdit>;

// A compressed file geodatabase keeps .cdf files beside its tables.
bool HoldsCompressedTables(const std::string& path) {
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(path, error)) {
    if (entry.path().extension() == ".cdf") return true;
  }
  return false;
}

// The .shp of a source that may be named by its table or its folder.
std::string ShapefileOf(const OgrSource& source) {
  std::error_code error;
  fs::path path = source.DataPath();
  if (fs::is_directory(path, error)) path /= source.LayerName() + ".shp";
  for (const char* ending : {".shp", ".SHP", ".Shp"}) {
    const fs::path shapes = fs::path(path).replace_extension(ending);
    if (fs::is_regular_file(shapes, error)) return shapes.string();
  }
  return path.string();
}

esriGeometryType LayerShapeType(const OgrSource& source, OGRLayer& layer) {
  if (source.Kind()) return *source.Kind();
  return ShapeTypeOf(layer.GetGeomType());
}

// The library would cut a longer name and leave an empty field under what is left of it. It writes names of letters
// beyond A to Z with one byte each.
void CheckDbaseName(const std::string& path, const Field& field) {
  const auto starts = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; };
  const auto length = static_cast<std::size_t>(std::ranges::count_if(field.Name, starts));
  if (length <= kDbaseNameLength) return;
  RaiseEngineFault("The field '" + field.Name + "' can't be added to '" + path + "': its name is " +
                   std::to_string(length) + " characters long, and the format keeps " +
                   std::to_string(kDbaseNameLength) + ".");
}

// OGR reads identifiers and XML of a file geodatabase as plain texts.
void TellTexts(const OgrSource& source, const Fields& fields) {
  const std::string base = FindGdbTable(PlaceOfData(source.Path()), source.LayerName());
  if (base.empty()) return;
  const GdbTable table(base);
  for (const GdbColumn& column : table.Description().columns) {
    const bool is_text =
        column.type == GdbColumn::kGuid || column.type == GdbColumn::kGlobalId || column.type == GdbColumn::kXml;
    const std::int32_t index = is_text ? fields.FindField(column.name) : -1;
    if (index >= 0) fields.Field(index)->Type = static_cast<esriFieldType>(column.type);
  }
}

void KeepSpelling(const Format& format, const LayerHandle& handle, const OGRFieldDefn& wished) {
  if (!format.small_letters) return;
  OGRLayer& layer = handle.Layer();
  const OGRFeatureDefn& made = *layer.GetLayerDefn();
  const std::string name = made.GetFieldDefn(made.GetFieldCount() - 1)->GetNameRef();
  if (name == wished.GetNameRef() || !EqualsIgnoringCase(name, wished.GetNameRef())) return;
  const std::string table = format.server ? SqlTable(layer.GetName()) : SqlName(layer.GetName());
  // Where it can't be renamed, the column stands under the driver's spelling.
  const GdalErrorScope quiet;
  RunSql(handle.Dataset(),
         "ALTER TABLE " + table + " RENAME COLUMN " + SqlName(name) + " TO " + SqlName(wished.GetNameRef()));
}

}  // namespace

OgrClass::OgrClass(std::shared_ptr<OgrSource> source) : source_(std::move(source)) { ReadTraits(); }

void OgrClass::ReadTraits() {
  const LayerHandle handle = source_->Read();
  driver_ = handle.Dataset().GetDriverName();
  facts_ = FactsOfDriver(driver_);
  const ColumnStore store = ColumnStoreOf(facts_.store);
  OGRLayer& layer = handle.Layer();
  auto traits = std::make_shared<RowTraits>();
  traits->store = store;
  traits->shape_type = LayerShapeType(*source_, layer);
  traits->reference = ReferenceFromOgr(layer.GetSpatialRef());
  traits->fields = MapFields(layer, traits->shape_type, traits->reference, store);
  traits->writer = AttributeWriter(*layer.GetLayerDefn(), store, facts_.utc);
  if (store == ColumnStore::FileGeodatabase) TellTexts(*source_, *traits->fields.fields);
  if (store == ColumnStore::Dbase) traits->wide_numbers = WideNumbers::Open(*source_, layer);
  traits->curves = facts_.curves;
  const OGRwkbGeometryType type = OGR_GT_Flatten(layer.GetGeomType());
  const bool multiple = type == wkbMultiPoint || type == wkbMultiLineString || type == wkbMultiPolygon;
  if (facts_.store == FileStore::GeoPackage && multiple) traits->only_multiple = type;
  traits_ = std::move(traits);
}

void OgrClass::MoveTo(std::shared_ptr<OgrSource> source) {
  source_ = std::move(source);
  ReadTraits();
}

DatasetFiles OgrClass::Files() const {
  const std::string& path = source_->DataPath();
  const std::optional<LayerHandle> idle = source_->ReadIfIdle();
  // A geodatabase may be open as the working copy of an edit.
  if (idle && idle->Dataset().GetDescription() == path)
    return FilesOfLayer(idle->Dataset(), path, source_->LayerName());
  return FilesOfLayer(path, source_->LayerName());
}

std::int32_t OgrClass::FindField(std::string_view name) const { return Fields()->FindField(name); }

void OgrClass::AddFields(std::span<const FieldRef> fields) {
  std::shared_ptr<IEdit> edit = BeginEdit();
  AddAllFields(fields);
  if (edit) edit->Finish();
}

void OgrClass::AddAllFields(std::span<const FieldRef> fields) {
  if (facts_.store == FileStore::Shapefile) {
    if (const std::size_t added = AddDbaseColumns(*source_, fields); added > 0) {
      source_->Renew();
      ReadTraits();
      fields = fields.subspan(added);
    }
  }
  for (const FieldRef& field : fields) {
    if (facts_.store == FileStore::Shapefile) CheckDbaseName(source_->Path(), *field);
    CreateField(*field);
    // Formats with short names cut a longer one.
    if (FindField(field->Name) >= 0) continue;
    RaiseEngineFault("The field '" + field->Name + "' can't be added under this name to '" + source_->Path() +
                     "': choose a shorter one.");
  }
}

void OgrClass::CreateField(const Field& field) {
  if (field.Name.empty()) RaiseEngineFault("A field without a name can't be added to '" + source_->Path() + "'.");
  if (FindField(field.Name) >= 0) {
    RaiseEngineFault("'" + source_->Path() + "' has a field '" + field.Name + "' already: choose another name.");
  }
  const GdalErrorScope errors;
  {
    const LayerHandle handle = source_->Write();
    const auto definition = OgrFieldOf(field, ColumnStoreOf(facts_.store));
    if (handle.Layer().CreateField(definition.get()) != OGRERR_NONE || errors.Failed()) {
      RaiseEngineFault("The field '" + field.Name + "' can't be added to '" + source_->Path() + "'" + errors.Quote() +
                       WayOut(source_->Path(), errors.Text()));
    }
    KeepSpelling(facts_, handle, *definition);
  }
  ReadTraits();
}

std::string OgrClass::Name() const { return source_->LayerName(); }

std::string OgrClass::FullName() const {
  if (facts_.store != FileStore::Shapefile) return FromNativePath(source_->Path() + "/" + source_->LayerName());
  // A shapefile is a file of its own, even where its folder was opened.
  fs::path file = source_->Path();
  if (fs::is_directory(file))
    file /= source_->LayerName() + (traits_->shape_type == esriGeometryNull ? ".dbf" : ".shp");
  return FromNativePath(file.string());
}

std::string OgrClass::Category() const { return CategoryOf(driver_); }

std::shared_ptr<IWorkspace> OgrClass::Workspace() const { return WorkspaceOf(facts_, source_->Path()); }

std::shared_ptr<IPropertySet> OgrClass::PropertySet() const {
  return std::make_shared<DatasetProperties>(facts_.store == FileStore::FileGeodatabase &&
                                             HoldsCompressedTables(source_->Path()));
}

void OgrClass::Delete() {
  if (facts_.store == FileStore::Shapefile) {
    source_->Renew();
    DeleteShapefile(ToNativePath(FullName()));
    return;
  }
  if (facts_.store == FileStore::FileGeodatabase) {
    EditFileGdb(source_->Path(), [&](FileGdbEdit&) { DeleteLayer(); });
  } else if (facts_.store == FileStore::PersonalGeodatabase) {
    EditPersonalGeodatabase(source_->Path(), [&](jet::Database&) { DeleteLayer(); });
  } else {
    DeleteLayer();
  }
}

void OgrClass::DeleteLayer() {
  const GdalErrorScope errors;
  const DatasetHandle dataset = OpenDataset(source_->Path(), FileAccess::Change);
  source_->Renew();
  for (int index = 0; index < dataset->GetLayerCount(); ++index) {
    if (source_->LayerName() != dataset->GetLayer(index)->GetName()) continue;
    if (dataset->DeleteLayer(index) == OGRERR_NONE) return;
    break;
  }
  RaiseEngineFault("'" + source_->LayerName() + "' can't be deleted from '" + source_->Path() + "'" + errors.Quote() +
                   ".");
}

bool OgrClass::CanBypassEditSession() const {
  // Of others the library rewrites the whole file, shapes included, and a new field is lost as long as it holds
  // nothing.
  if (!facts_.rows_in_place) return false;
  // SQLite opens a file for writing also where that isn't allowed.
  std::error_code error;
  const std::string& path = source_->DataPath();
  if (fs::exists(path, error) && access(path.c_str(), W_OK) != 0) return false;
  const GdalErrorScope quiet;
  try {
    // Nothing is changed; so the geodatabase itself may be looked at.
    const DatasetHandle dataset = OpenDatasetAt(PlaceOfData(path), FileAccess::Change);
    OGRLayer* layer = dataset->GetLayerByName(source_->LayerName().c_str());
    return layer != nullptr && layer->TestCapability(OLCRandomWrite) != 0;
  } catch (const Fault&) {
    return false;
  }
}

void OgrClass::StoreRow(const OgrRow& row) {
  row.RequireReadable();
  row.StoreAll();
  const GdalErrorScope errors;
  LayerHandle handle = source_->Write();
  RowsChange();
  if (handle.Layer().SetFeature(&row.Feature()) != OGRERR_NONE) {
    RaiseEngineFault("Row " + std::to_string(row.Feature().GetFID()) + " of '" + source_->Path() +
                     "' can't be written" + errors.Quote() + ".");
  }
  handle.Close();
}

void OgrClass::DeleteRow(std::int64_t oid) {
  const GdalErrorScope errors;
  LayerHandle handle = source_->Write();
  RowsChange();
  if (handle.Layer().DeleteFeature(oid) != OGRERR_NONE) {
    RaiseEngineFault("Row " + std::to_string(oid) + " of '" + source_->Path() + "' can't be deleted" + errors.Quote() +
                     ".");
  }
  handle.Close();
}

void OgrClass::RowsChange() const {
  if (const auto edit = FileGdbEdit::UnderWay(source_->Path())) edit->RowsChange(source_->LayerName());
}

std::shared_ptr<IEdit> OgrClass::BeginEdit() {
  if (facts_.store == FileStore::Shapefile) {
    std::shared_ptr<IEdit> edit = LockShapefile(ShapefileOf(*source_));
    // Another run may have changed it until now.
    source_->Renew();
    ReadTraits();
    return edit;
  }
  if (facts_.store == FileStore::PersonalGeodatabase)
    return std::make_shared<PersonalGeodatabaseEdit>(PersonalEdit::Begin(source_->Path()));
  if (facts_.store != FileStore::FileGeodatabase) return nullptr;
  return std::make_shared<GeodatabaseEdit>(FileGdbEdit::Begin(source_->Path()));
}

std::int32_t OgrClass::CountRows(const QueryFilter* filter) const {
  LayerHandle handle = source_->Read();
  std::int64_t count = 0;
  if (source_->Kind() || (filter != nullptr && filter->Geometry)) {
    // Only a look at every row can tell which belong.
    auto self = std::const_pointer_cast<OgrClass>(shared_from_this());
    ReadingCursor cursor(self, std::move(handle), filter, Recycling::Yes);
    while (cursor.NextFeature()) ++count;
  } else {
    if (filter != nullptr) ApplyFilter(handle, *filter);
    const GdalErrorScope errors;
    count = handle.Layer().GetFeatureCount(1);
    if (count < 0 || errors.Failed()) {
      RaiseEngineFault("The rows of '" + Name() + "' in '" + source_->Path() + "' can't be counted" + errors.Quote() +
                       ".");
    }
    // The driver counts records that it will not read.
    const bool all = filter == nullptr || filter->WhereClause.empty();
    if (facts_.store == FileStore::Shapefile && all)
      count -= std::min(count, CountDeletedRecords(FindDbaseTable(*source_)));
  }
  if (count > std::numeric_limits<std::int32_t>::max()) {
    Raise(kOverflow, "'" + source_->Path() + "' holds more rows than can be counted.");
  }
  return static_cast<std::int32_t>(count);
}

std::shared_ptr<IFeatureCursor> OgrClass::OpenReader(const QueryFilter* filter, Recycling recycling) {
  return std::make_shared<ReadingCursor>(shared_from_this(), source_->Read(), filter, recycling);
}

std::shared_ptr<IFeatureCursor> OgrClass::OpenUpdater(const QueryFilter* filter, Recycling recycling,
                                                      ChosenRows chosen) {
  return std::make_shared<UpdatingCursor>(shared_from_this(), source_->Write(), filter, recycling, std::move(chosen));
}

std::shared_ptr<IFeatureCursor> OgrClass::OpenInserter() {
  LayerHandle handle = source_->Write();
  RowsChange();
  return std::make_shared<InsertingCursor>(shared_from_this(), std::move(handle));
}

std::shared_ptr<IFeature> OgrClass::ReadRow(std::int64_t oid) {
  const LayerHandle handle = source_->Read();
  const ReadingScope errors;
  OgrFeatureHandle feature(handle.Layer().GetFeature(oid));
  if (!feature) Raise(kInvalidCall, "'" + Name() + "' has no row " + std::to_string(oid) + ".");
  std::string shape_fault = ShapeFaultOf(*feature, errors, source_->Path());
  auto row = std::make_shared<OgrFeature>(traits_, std::move(feature), weak_from_this());
  row->LackShape(std::move(shape_fault));
  return row;
}

Envelope OgrClass::LayerExtent() const {
  const LayerHandle handle = source_->Read();
  OGREnvelope box;
  const GdalErrorScope quiet;
  if (handle.Layer().GetExtent(&box, TRUE) != OGRERR_NONE || !box.IsInit()) return {};
  return {box.MinX, box.MinY, box.MaxX, box.MaxY};
}

std::string OgrFeatureClass::ShapeFieldName() const {
  const FieldMap& fields = Traits()->fields;
  return fields.fields->Field(fields.shape_index)->Name;
}

std::vector<LeftOutRecords> OgrFeatureClass::LeftOut() const { return FindLeftOut(*Source()); }

std::shared_ptr<IFeatureBuffer> OgrFeatureClass::CreateFeatureBuffer() {
  const LayerHandle handle = Source()->Read();
  return std::make_shared<OgrRow>(Traits(), OgrFeatureHandle(OGRFeature::CreateFeature(handle.Layer().GetLayerDefn())));
}

}  // namespace tessarine::engine
