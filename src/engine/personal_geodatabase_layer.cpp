// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/personal_geodatabase_layer.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "engine/engine_fault.h"
#include "engine/personal_geodatabase_create.h"
#include "engine/personal_geodatabase_values.h"
#include "engine/reading_warnings.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

// Runs something that may raise the errors of the file format, and tells GDAL of them.
template <class Work>
bool Try(Work&& work) {
  try {
    work();
    return true;
  } catch (const jet::RowError& error) {
    CPLError(CE_Failure, kRowRefusedByFormat, "%s", error.what());
  } catch (const jet::Error& error) {
    CPLError(CE_Failure, CPLE_AppDefined, "%s", error.what());
  } catch (const std::exception& error) {
    CPLError(CE_Failure, CPLE_AppDefined, "the file is damaged (%s)", error.what());
  }
  return false;
}

std::int32_t Cell(double coordinate, double origin, double size) {
  const double cell = std::floor((coordinate - origin) / size);
  return static_cast<std::int32_t>(std::clamp(cell, -2147483648.0, 2147483647.0));
}

}  // namespace

PersonalLayer::PersonalLayer(std::shared_ptr<jet::Database> database, PersonalClass description, Access access,
                             bool can_write)
    : database_(std::move(database)),
      description_(std::move(description)),
      table_(database_->Open(description_.name)),
      access_(access),
      can_write_(can_write) {
  definition_ = new OGRFeatureDefn(description_.name.c_str());
  definition_->Reference();
  definition_->SetGeomType(description_.OgrType());
  SetDescription(description_.name.c_str());
  DefineFields();
  if (!shape_column_) return;
  definition_->GetGeomFieldDefn(0)->SetName(description_.shape_column.c_str());
  const std::string text = PersonalReferenceText(*database_, description_.reference);
  if (text.empty()) return;
  auto* reference = new OGRSpatialReference();
  reference->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  CPLPushErrorHandler(CPLQuietErrorHandler);
  const bool known = reference->importFromWkt(text.c_str()) == OGRERR_NONE;
  CPLPopErrorHandler();
  if (known) {
    reference->AutoIdentifyEPSG();
    definition_->GetGeomFieldDefn(0)->SetSpatialRef(reference);
  }
  reference->Release();
}

PersonalLayer::~PersonalLayer() { definition_->Release(); }

void PersonalLayer::DefineFields() {
  const std::vector<jet::Column>& columns = table_.Definition().columns;
  // Columns stand in a definition as the file pleases; their order is that of the user.
  std::vector<std::size_t> order(columns.size());
  for (std::size_t index = 0; index < order.size(); ++index) order[index] = index;
  std::ranges::stable_sort(order, {}, [&](std::size_t index) { return columns[index].order; });
  for (const std::size_t index : order) {
    const jet::Column& column = columns[index];
    const bool is_fid = column.numbered && column.type == jet::ColumnType::Long && !fid_column_;
    if (is_fid) {
      fid_column_ = index;
      fid_name_ = column.name;
    } else if (!description_.shape_column.empty() && jet::SameName(column.name, description_.shape_column)) {
      shape_column_ = index;
    } else {
      const std::unique_ptr<OGRFieldDefn> field = FieldOfColumn(column);
      definition_->AddFieldDefn(field.get());
      columns_.push_back(index);
    }
  }
}

void PersonalLayer::ResetReading() {
  scan_.reset();
  rows_read_ = 0;
  last_number_ = kBeforeAll;
  failed_ = false;
}

GIntBig PersonalLayer::FidOf(const jet::RowValues& values, GIntBig row) const {
  if (!fid_column_) return row;
  const auto* number = std::get_if<std::int32_t>(&values[*fid_column_]);
  return number == nullptr ? OGRNullFID : *number;
}

std::unique_ptr<OGRFeature> PersonalLayer::FeatureOf(GIntBig fid, jet::RowValues values) const {
  auto feature = std::make_unique<OGRFeature>(definition_);
  feature->SetFID(fid);
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    const int attribute = static_cast<int>(index);
    if (definition_->GetFieldDefn(attribute)->IsIgnored() != 0) continue;
    try {
      PutColumnValue(table_, columns_[index], values[columns_[index]], *feature, attribute);
    } catch (const jet::Error& error) {
      feature->SetFieldNull(attribute);
      CPLError(CE_Warning, CPLE_AppDefined, "the value of field '%s' of record " CPL_FRMT_GIB " %s: %s",
               definition_->GetFieldDefn(attribute)->GetNameRef(), fid, kDamagedValue, error.what());
    }
  }
  const bool wants_shape = shape_column_ && definition_->IsGeometryIgnored() == 0;
  if (!wants_shape || jet::IsNull(values[*shape_column_])) return feature;
  std::unique_ptr<OGRGeometry> shape;
  if (!Try([&] { shape = ShapeFromBytes(table_.ReadLong(values[*shape_column_])); })) return feature;
  if (shape) {
    // As the class says, whatever the number of parts.
    if (description_.shape_type == 3) shape.reset(OGRGeometryFactory::forceToMultiLineString(shape.release()));
    if (description_.shape_type == 4) shape.reset(OGRGeometryFactory::forceToMultiPolygon(shape.release()));
    shape->assignSpatialReference(definition_->GetGeomFieldDefn(0)->GetSpatialRef());
    feature->SetGeometryDirectly(shape.release());
  }
  return feature;
}

// Rows that grew lie after the others. They are read in the order of their numbers all the same, as long as each has
// one of its own.
bool PersonalLayer::ReadsByNumber() {
  if (by_number_) return *by_number_;
  if (access_ == Access::Write) return *(by_number_ = true);
  by_number_ = false;
  if (!fid_column_) return false;
  std::int64_t last = kBeforeAll;
  std::size_t rows = 0;
  bool ascending = true;
  for (jet::Table::Scan scan(table_); scan.Next(); ++rows) {
    const jet::Value value = jet::UnpackValue(table_.Definition(), scan.Bytes(), *fid_column_);
    const auto* number = std::get_if<std::int32_t>(&value);
    ascending = ascending && number != nullptr && *number > last;
    if (number != nullptr) last = *number;
  }
  if (!ascending) by_number_ = Places().size() == rows;
  return *by_number_;
}

std::unique_ptr<OGRFeature> PersonalLayer::NextRow() {
  if (ReadsByNumber()) {
    const auto& places = Places();
    const bool begins = last_number_ == kBeforeAll;
    const auto next = begins ? places.begin() : places.upper_bound(static_cast<std::int32_t>(last_number_));
    if (next == places.end()) return nullptr;
    last_number_ = next->first;
    return FeatureOf(next->first, table_.Read(next->second));
  }
  if (!scan_) scan_.emplace(table_);
  if (!scan_->Next()) return nullptr;
  jet::RowValues values = scan_->Values();
  const GIntBig fid = FidOf(values, ++rows_read_);
  return FeatureOf(fid, std::move(values));
}

OGRFeature* PersonalLayer::GetNextFeature() {
  std::unique_ptr<OGRFeature> feature;
  const auto next = [&] {
    do {
      feature = NextRow();
    } while (feature && !((m_poFilterGeom == nullptr || FilterGeometry(feature->GetGeometryRef()) != 0) &&
                          (m_poAttrQuery == nullptr || m_poAttrQuery->Evaluate(feature.get()) != 0)));
  };
  if (failed_) return nullptr;
  failed_ = !Try(next);
  return failed_ ? nullptr : feature.release();
}

std::map<std::int32_t, jet::RowId>& PersonalLayer::Places() {
  if (places_) return *places_;
  std::map<std::int32_t, jet::RowId> places;
  GIntBig row = 0;
  for (jet::Table::Scan scan(table_); scan.Next();) {
    ++row;
    const jet::Value value =
        fid_column_ ? jet::UnpackValue(table_.Definition(), scan.Bytes(), *fid_column_) : jet::Value();
    const auto* fid = std::get_if<std::int32_t>(&value);
    if (fid != nullptr || !fid_column_) places[fid != nullptr ? *fid : static_cast<std::int32_t>(row)] = scan.Id();
  }
  return places_.emplace(std::move(places));
}

jet::RowId PersonalLayer::PlaceOf(GIntBig fid) {
  const auto found =
      fid < INT32_MIN || fid > INT32_MAX ? Places().end() : Places().find(static_cast<std::int32_t>(fid));
  if (found == Places().end()) throw jet::Error("there is no row " + std::to_string(fid));
  return found->second;
}

OGRFeature* PersonalLayer::GetFeature(GIntBig fid) {
  std::unique_ptr<OGRFeature> feature;
  const bool read = Try([&] { feature = FeatureOf(fid, table_.Read(PlaceOf(fid))); });
  return read ? feature.release() : nullptr;
}

GIntBig PersonalLayer::GetFeatureCount(int force) {
  const bool filtered = m_poFilterGeom != nullptr || m_poAttrQuery != nullptr;
  return filtered ? OGRLayer::GetFeatureCount(force) : GIntBig{table_.RowCount()};
}

OGRErr PersonalLayer::GetExtent(OGREnvelope* extent, int force) {
  if (description_.extent.IsInit() == 0 || !settled_) return OGRLayer::GetExtent(extent, force);
  *extent = description_.extent;
  return OGRERR_NONE;
}

int PersonalLayer::TestCapability(const char* capability) {
  const auto is = [&](const char* name) { return EQUAL(capability, name); };
  if (is(OLCRandomRead) || is(OLCStringsAsUTF8) || is(OLCIgnoreFields)) return 1;
  if (is(OLCFastFeatureCount)) return m_poFilterGeom == nullptr && m_poAttrQuery == nullptr ? 1 : 0;
  if (is(OLCFastGetExtent)) return description_.extent.IsInit();
  if (is(OLCMeasuredGeometries) || is(OLCZGeometries)) return 1;
  const bool writes = is(OLCRandomWrite) || is(OLCSequentialWrite) || is(OLCDeleteFeature) || is(OLCCreateField);
  return writes && can_write_ && fid_column_ ? 1 : 0;
}

void PersonalLayer::RequireWritable() const {
  if (access_ != Access::Write) throw jet::Error("'" + description_.name + "' is written to outside of an edit");
  if (!fid_column_) throw jet::Error("'" + description_.name + "' has no column that numbers its rows");
}

OGRErr PersonalLayer::CreateField(OGRFieldDefn* field, int) {
  const bool made = Try([&] {
    RequireWritable();
    database_->AddColumn(description_.name, ColumnOfField(*field, table_.Definition()));
    definition_->AddFieldDefn(field);
    columns_.push_back(table_.Definition().columns.size() - 1);
    TellNewField(*database_, description_.name, field->GetNameRef(), field->GetAlternativeNameRef());
  });
  return made ? OGRERR_NONE : OGRERR_FAILURE;
}

jet::Value PersonalLayer::ValueOf(const OGRFeature& feature, int attribute) const {
  return ColumnValueOf(feature, attribute, table_.Definition().columns[columns_[static_cast<std::size_t>(attribute)]]);
}

// The shape, and the columns that tell its length and area.
PersonalLayer::PlacedShape PersonalLayer::AddShape(const OGRFeature& feature, jet::ValueChanges& changes) {
  PlacedShape placed;
  if (!shape_column_) return placed;
  const OGRGeometry* shape = feature.GetGeometryRef();
  const bool some = shape != nullptr && shape->IsEmpty() == 0;
  jet::Value bytes;
  if (some) {
    StoredShape stored = StoreShape(*shape, description_.layout);
    bytes = std::move(stored.bytes);
    placed.heights = stored.z;
    placed.measures = stored.m;
    OGREnvelope box;
    shape->getEnvelope(&box);
    if (!std::isfinite(box.MinX + box.MaxX + box.MinY + box.MaxY)) {
      throw jet::RowError("a shape has coordinates that are no numbers");
    }
    placed.box = box;
  }
  FindMeasures();
  changes.emplace_back(*shape_column_, std::move(bytes));
  const auto measure = [&](std::optional<std::size_t> column, double value) {
    if (!column) return;
    std::erase_if(changes, [&](const auto& change) { return change.first == *column; });
    changes.emplace_back(*column, some ? jet::Value(value) : jet::Value());
  };
  measure(length_column_, some ? LengthOfShape(*shape) : 0.0);
  measure(area_column_, some ? AreaOfShape(*shape) : 0.0);
  return placed;
}

// Once the row itself is there: a row that was refused leaves no trace.
void PersonalLayer::TakeShape(std::int32_t fid, Row row, const PlacedShape& placed) {
  if (!shape_column_) return;
  description_.heights.Add(placed.heights);
  description_.measures.Add(placed.measures);
  if (placed.box) description_.extent.Merge(*placed.box);
  MoveInIndex(fid, row, placed.box ? &*placed.box : nullptr);
}

const ClassFacts& PersonalLayer::Facts() {
  if (!facts_) {
    facts_.emplace();
    if (shape_column_) facts_ = ReadClassXml(DefinitionOfPersonalClass(*database_, description_.name));
  }
  return *facts_;
}

// A geodatabase keeps the columns up to date that the class's description names. Those of version 9 describe none:
// there the names tell. Whatever else bears such a name is the user's.
void PersonalLayer::FindMeasures() {
  if (measures_found_) return;
  measures_found_ = true;
  const bool described = database_->Has("GDB_Items");
  const auto find = [&](const std::string& name) -> std::optional<std::size_t> {
    const jet::Column* column = name.empty() ? nullptr : table_.Definition().FindColumn(name);
    if (column == nullptr || column->type != jet::ColumnType::Double) return std::nullopt;
    return static_cast<std::size_t>(column - table_.Definition().columns.data());
  };
  length_column_ = find(described ? Facts().length_column : description_.shape_column + "_Length");
  area_column_ = find(described ? Facts().area_column : description_.shape_column + "_Area");
}

OGRFeatureDefn* PersonalLayer::GetLayerDefn() {
  if (aliases_set_) return definition_;
  aliases_set_ = true;
  (void)Try([&] {
    const auto& aliases = Facts().aliases;
    for (int index = 0; !aliases.empty() && index < definition_->GetFieldCount(); ++index) {
      OGRFieldDefn& field = *definition_->GetFieldDefn(index);
      const auto alias = aliases.find(LowerCase(field.GetNameRef()));
      if (alias != aliases.end()) field.SetAlternativeName(alias->second.c_str());
    }
  });
  return definition_;
}

void PersonalLayer::MoveInIndex(std::int32_t fid, Row row, const OGREnvelope* box) {
  settled_ = false;
  if (!shape_index_) {
    if (!database_->Has(description_.IndexTable()) || !(description_.grid.cell > 0.0)) return;
    jet::Table& table = database_->Open(description_.IndexTable());
    shape_index_.emplace(ShapeIndex{table, table.ColumnPlace("IndexedObjectId"), table.ColumnPlace("MinGX"),
                                    table.ColumnPlace("MinGY"), table.ColumnPlace("MaxGX"), table.ColumnPlace("MaxGY"),
                                    std::nullopt});
  }
  ShapeIndex& index = *shape_index_;
  if (row == Row::Stored && !index.places) {
    index.places.emplace();
    for (jet::Table::Scan scan(index.table); scan.Next();) {
      const jet::Value value = jet::UnpackValue(index.table.Definition(), scan.Bytes(), index.number);
      if (const auto* number = std::get_if<std::int32_t>(&value)) (*index.places)[*number] = scan.Id();
    }
  }
  std::optional<jet::RowId> place;
  if (row == Row::Stored) {
    if (const auto found = index.places->find(fid); found != index.places->end()) place = found->second;
  }
  if (box == nullptr) {
    if (!place) return;
    index.table.Delete(*place);
    index.places->erase(fid);
    return;
  }
  const PersonalIndexGrid& grid = description_.grid;
  const jet::ValueChanges cells = {{index.number, fid},
                                   {index.left, Cell(box->MinX, grid.x_origin, grid.cell)},
                                   {index.bottom, Cell(box->MinY, grid.y_origin, grid.cell)},
                                   {index.right, Cell(box->MaxX, grid.x_origin, grid.cell)},
                                   {index.top, Cell(box->MaxY, grid.y_origin, grid.cell)}};
  if (place) {
    place = index.table.Update(*place, cells);
  } else {
    jet::RowValues values(index.table.Definition().columns.size());
    for (const auto& [column, value] : cells) values[column] = value;
    place = index.table.Insert(std::move(values));
  }
  if (index.places) (*index.places)[fid] = *place;
}

OGRErr PersonalLayer::ICreateFeature(OGRFeature* feature) {
  const bool made = Try([&] {
    RequireWritable();
    const std::int32_t fid =
        feature->GetFID() == OGRNullFID ? table_.NextNumber() : static_cast<std::int32_t>(feature->GetFID());
    if (feature->GetFID() != OGRNullFID && (feature->GetFID() != fid || Places().contains(fid))) {
      throw jet::RowError("a row can't have the number " + std::to_string(feature->GetFID()));
    }
    jet::ValueChanges changes;
    for (int index = 0; index < definition_->GetFieldCount(); ++index) {
      changes.emplace_back(columns_[static_cast<std::size_t>(index)], ValueOf(*feature, index));
    }
    jet::RowValues values(table_.Definition().columns.size());
    values[*fid_column_] = fid;
    const PlacedShape placed = AddShape(*feature, changes);
    for (auto& [column, value] : changes) values[column] = std::move(value);
    const jet::RowId place = table_.Insert(std::move(values));
    TakeShape(fid, Row::New, placed);
    if (places_) (*places_)[fid] = place;
    feature->SetFID(fid);
  });
  return made ? OGRERR_NONE : OGRERR_FAILURE;
}

void PersonalLayer::WriteAttributes(const OGRFeature& feature, std::span<const int> attributes) {
  RequireWritable();
  jet::ValueChanges changes;
  for (const int attribute : attributes) {
    changes.emplace_back(columns_.at(static_cast<std::size_t>(attribute)), ValueOf(feature, attribute));
  }
  const jet::RowId place = table_.Update(PlaceOf(feature.GetFID()), changes);
  Places()[static_cast<std::int32_t>(feature.GetFID())] = place;
}

OGRErr PersonalLayer::ISetFeature(OGRFeature* feature) {
  const bool written = Try([&] {
    RequireWritable();
    const jet::RowId place = PlaceOf(feature->GetFID());
    const auto fid = static_cast<std::int32_t>(feature->GetFID());
    const std::unique_ptr<OGRFeature> before = FeatureOf(fid, table_.Read(place));
    jet::ValueChanges changes;
    for (int index = 0; index < definition_->GetFieldCount(); ++index) {
      const jet::Value value = ValueOf(*feature, index);
      // What wasn't changed stays as it is stored, byte for byte.
      if (value != ValueOf(*before, index)) changes.emplace_back(columns_[static_cast<std::size_t>(index)], value);
    }
    const OGRGeometry *shape = feature->GetGeometryRef(), *old = before->GetGeometryRef();
    const auto bytes_of = [&](const OGRGeometry& any) { return StoreShape(any, description_.layout).bytes; };
    const bool same = shape == nullptr || old == nullptr ? shape == old : bytes_of(*shape) == bytes_of(*old);
    std::optional<PlacedShape> placed;
    if (!same) placed = AddShape(*feature, changes);
    if (!changes.empty()) Places()[fid] = table_.Update(place, changes);
    if (placed) TakeShape(fid, Row::Stored, *placed);
  });
  return written ? OGRERR_NONE : OGRERR_FAILURE;
}

void PersonalLayer::Settle() {
  if (!settled_ && shape_column_) TellExtent(*database_, description_);
  settled_ = true;
}

OGRErr PersonalLayer::DeleteFeature(GIntBig fid) {
  const bool deleted = Try([&] {
    RequireWritable();
    table_.Delete(PlaceOf(fid));
    Places().erase(static_cast<std::int32_t>(fid));
    if (shape_column_) MoveInIndex(static_cast<std::int32_t>(fid), Row::Stored, nullptr);
  });
  return deleted ? OGRERR_NONE : OGRERR_FAILURE;
}

}  // namespace tessarine::engine
