// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/personal_geodatabase_create.h"

#include <algorithm>
#include <bit>
#include <random>

#include "engine/personal_geodatabase_kinds.h"
#include "engine/personal_geodatabase_tables.h"
#include "engine/personal_geodatabase_values.h"
#include "engine/srs_from_gdal.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

using enum jet::ColumnType;
using jet::Index;

// The quiet number that says "none" in these tables.
const double kNone = std::bit_cast<double>(std::uint64_t{0x7FF8000000000001});
// Cells of the index of shapes: 2^31 of them over 800 degrees.
constexpr double kCells = 2147483648.0;
constexpr double kDegreesOfCells = 800.0;

constexpr const char* kUnknownReference = "{B286C06B-0879-11D2-AACA-00C04FA33C20}";

jet::Bytes NewGuid() {
  std::random_device random;
  jet::Bytes guid(16);
  for (std::uint8_t& byte : guid) byte = static_cast<std::uint8_t>(random());
  guid[7] = static_cast<std::uint8_t>((guid[7] & 0x0FU) | 0x40U);
  guid[8] = static_cast<std::uint8_t>((guid[8] & 0x3FU) | 0x80U);
  return guid;
}

// Names of items are ASCII.
std::string InCapitals(std::string name) {
  for (char& c : name) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return name;
}

void FillKinds(jet::Database& database) {
  for (const ItemKind& kind : ItemKinds()) {
    database.Open("GDB_ItemTypes")
        .InsertNamed({{"UUID", jet::GuidOf(kind.identifier)},
                      {"ParentTypeID", jet::GuidOf(kind.parent)},
                      {"Name", std::string(kind.name)}});
  }
  for (const RelationKind& kind : RelationKinds()) {
    database.Open("GDB_ItemRelationshipTypes")
        .InsertNamed({{"UUID", jet::GuidOf(kind.identifier)},
                      {"OrigItemTypeID", jet::GuidOf(kind.origin)},
                      {"DestItemTypeID", jet::GuidOf(kind.destination)},
                      {"Name", std::string(kind.name)},
                      {"ForwardLabel", std::string(kind.forward)},
                      {"BackwardLabel", std::string(kind.backward)},
                      {"IsContainment", std::int32_t{kind.contains ? 1 : 0}}});
  }
  constexpr std::pair<const char*, std::pair<const char*, int>> kColumns[] = {
      {"GDB_Items", {"UUID", 1}},
      {"GDB_Items", {"Definition", 2}},
      {"GDB_Items", {"Documentation", 2}},
      {"GDB_Items", {"ItemInfo", 2}},
      {"GDB_ItemRelationships", {"UUID", 1}},
      {"GDB_ItemRelationships", {"Attributes", 2}}};
  for (const auto& [table, column] : kColumns) {
    database.Open("GDB_ColumnInfo")
        .InsertNamed({{"TableName", std::string(table)},
                      {"FieldName", std::string(column.first)},
                      {"columnFlags", std::int32_t{column.second}}});
  }
}

PersonalIndexGrid GridOf(const PersonalReference& reference) {
  const bool degrees = reference.kind == "GeographicCoordinateSystem";
  const double width =
      degrees ? kDegreesOfCells : std::max(-2.0 * std::min(reference.x_origin, reference.y_origin), 1e6);
  return {reference.x_origin, reference.y_origin, width / kCells};
}

// The row of an equal reference, or a new one.
std::int32_t EnterReference(jet::Database& database, const PersonalReference& reference) {
  jet::Table& table = database.Open("GDB_SpatialRefs");
  for (jet::Table::Scan scan(table); scan.Next();) {
    const PersonalRow row(table, scan.Values());
    const bool same = row.Memo("SRTEXT") == reference.text && row.Real("FalseX") == reference.x_origin &&
                      row.Real("FalseY") == reference.y_origin && row.Real("XYUnits") == reference.xy_scale &&
                      row.Real("XYTolerance") == reference.xy_tolerance;
    if (same) return row.Whole("SRID");
  }
  const std::int32_t number = table.NextNumber();
  database.Open("GDB_SpatialRefs")
      .InsertNamed({{"SRTEXT", reference.text},
                    {"FalseX", reference.x_origin},
                    {"FalseY", reference.y_origin},
                    {"XYUnits", reference.xy_scale},
                    {"FalseZ", -100000.0},
                    {"ZUnits", 10000.0},
                    {"FalseM", -100000.0},
                    {"MUnits", 10000.0},
                    {"IsHighPrecision", std::int32_t{1}},
                    {"XYTolerance", reference.xy_tolerance},
                    {"ZTolerance", 0.001},
                    {"MTolerance", 0.001}});
  return number;
}

void EnterGeometryColumn(jet::Database& database, const PersonalClass& described) {
  database.Open("GDB_GeomColumns")
      .InsertNamed({{"TableName", described.name},
                    {"FieldName", described.shape_column},
                    {"ShapeType", described.shape_type},
                    {"ExtentLeft", 1.0},
                    {"ExtentBottom", 1.0},
                    {"ExtentRight", -1.0},
                    {"ExtentTop", -1.0},
                    {"IdxOriginX", described.grid.x_origin},
                    {"IdxOriginY", described.grid.y_origin},
                    {"IdxGridSize", described.grid.cell},
                    {"SRID", described.reference},
                    {"HasZ", described.layout.has_z},
                    {"HasM", described.layout.has_m},
                    {"ZLow", kNone},
                    {"ZHigh", kNone},
                    {"MLow", kNone},
                    {"MHigh", kNone}});
}

// A polygon without parts, with a box of no numbers.
jet::Bytes EmptyItemShape() {
  jet::Bytes shape;
  jet::Append32(shape, 5);
  for (int side = 0; side < 4; ++side) jet::Append(shape, kNone);
  jet::Append32(shape, 0);
  jet::Append32(shape, 0);
  return shape;
}

struct FoundItem {
  jet::RowId place;
  jet::Bytes identifier;
};
std::optional<FoundItem> FindItem(jet::Database& database, const char* kind, const std::string& name) {
  const jet::Table& table = database.Open("GDB_Items");
  const jet::Bytes type = jet::GuidOf(kind);
  for (jet::Table::Scan scan(table); scan.Next();) {
    const PersonalRow row(table, scan.Values());
    if (row.Guid("Type") == type && jet::SameName(row.Text("Name"), name))
      return FoundItem{scan.Id(), row.Guid("UUID")};
  }
  return std::nullopt;
}

void Relate(jet::Database& database, const jet::Bytes& origin, const jet::Bytes& destination, const char* kind) {
  database.Open("GDB_ItemRelationships")
      .InsertNamed({{"UUID", NewGuid()},
                    {"OriginID", origin},
                    {"DestID", destination},
                    {"Type", jet::GuidOf(kind)},
                    {"Properties", std::int32_t{1}}});
}

jet::Bytes RootFolder(jet::Database& database) {
  const std::optional<FoundItem> folder = FindItem(database, kFolderItem, "");
  if (!folder) throw jet::Error("the geodatabase has no root folder (GDB_Items)");
  return folder->identifier;
}

jet::Bytes EnterDataset(jet::Database& database, const std::string& name, const PersonalReference& reference) {
  if (const auto found = FindItem(database, kDatasetItem, name)) return found->identifier;
  jet::Bytes identifier = NewGuid();
  const ItemPlace place{"\\" + name, name, database.Open("GDB_Items").NextNumber()};
  database.Open("GDB_Items")
      .InsertNamed({{"UUID", identifier},
                    {"Type", jet::GuidOf(kDatasetItem)},
                    {"Name", name},
                    {"PhysicalName", InCapitals(name)},
                    {"Path", place.path},
                    {"Definition", DatasetXml(place, reference)},
                    {"Properties", std::int32_t{1}},
                    {"Shape", EmptyItemShape()}});
  Relate(database, RootFolder(database), identifier, kDatasetInFolder);
  return identifier;
}

constexpr const char* kCatalogTables[] = {"GDB_Items", "GDB_ItemRelationships", "GDB_GeomColumns", "GDB_SpatialRefs"};

void RequireItems(const jet::Database& database) {
  for (const char* table : kCatalogTables) {
    if (database.Has(table)) continue;
    throw jet::Error(std::string("it has no table ") + table +
                     ": it is no geodatabase of version 10, and only in such ones classes can be made or deleted");
  }
}

}  // namespace

void RequireRoomForClasses(jet::Database& database) {
  RequireItems(database);
  for (const char* table : kCatalogTables) database.Open(table).CompareIndexes();
  for (const char* table : {"MSysObjects", "MSysACEs"}) database.Open(table).CompareIndexes();
}

namespace {

// The first way of telling a reference that takes it: the one of these geodatabases has no words for rotated poles and
// the like.
std::string TextOf(const OGRSpatialReference& reference) {
  CPLPushErrorHandler(CPLQuietErrorHandler);
  std::string found;
  for (const WktForm form : {WktForm::Esri, WktForm::Gdal, WktForm::Iso}) {
    std::string text = WellKnownText(reference, form);
    OGRSpatialReference again;
    if (text.empty() || again.importFromWkt(text.c_str()) != OGRERR_NONE) continue;
    found = std::move(text);
    break;
  }
  CPLPopErrorHandler();
  return found.empty() ? kUnknownReference : found;
}

}  // namespace

PersonalReference ReferenceOf(const OGRSpatialReference* reference) {
  PersonalReference made;
  if (reference == nullptr) {
    made.kind = "UnknownCoordinateSystem";
    made.text = kUnknownReference;
  } else {
    made.text = TextOf(*reference);
    made.kind = reference->IsGeographic() != 0  ? "GeographicCoordinateSystem"
                : reference->IsProjected() != 0 ? "ProjectedCoordinateSystem"
                                                : "UnknownCoordinateSystem";
    const char* authority = reference->GetAuthorityName(nullptr);
    const char* code = reference->GetAuthorityCode(nullptr);
    if (authority != nullptr && code != nullptr && EQUAL(authority, "EPSG")) made.number = atoi(code);
  }
  return made;
}

void MakePersonalGeodatabase(jet::Database& database) {
  const double now = PersonalDateNow();
  for (const jet::TableSpec& spec : OwnTables()) database.CreateTable(spec, now);
  database.CreateTable(ShapeIndexTable("GDB_Items_Shape_Index"), now);
  FillKinds(database);
  PersonalReference reference;
  OGRSpatialReference wgs84;
  wgs84.SetWellKnownGeogCS("WGS84");
  reference = ReferenceOf(&wgs84);
  reference.x_origin = -180.0;
  reference.y_origin = -90.0;
  reference.xy_scale = 1e6;
  reference.xy_tolerance = 2e-6;
  PersonalClass items;
  items.name = "GDB_Items";
  items.shape_column = "Shape";
  items.shape_type = 4;
  items.reference = EnterReference(database, reference);
  items.grid = GridOf(reference);
  EnterGeometryColumn(database, items);
  const jet::Bytes folder = NewGuid();
  database.Open("GDB_Items")
      .InsertNamed({{"UUID", folder},
                    {"Type", jet::GuidOf(kFolderItem)},
                    {"Name", std::string()},
                    {"PhysicalName", std::string()},
                    {"Path", std::string("\\")},
                    {"Properties", std::int32_t{1}}});
  database.Open("GDB_Items")
      .InsertNamed({{"UUID", NewGuid()},
                    {"Type", jet::GuidOf(kWorkspaceItem)},
                    {"Name", std::string("Workspace")},
                    {"PhysicalName", std::string("WORKSPACE")},
                    {"Path", std::string()},
                    {"Definition", WorkspaceXml()},
                    {"Properties", std::int32_t{0}}});
}

void CreatePersonalClass(jet::Database& database, const NewPersonalClass& made) {
  RequireItems(database);
  PersonalClass described = made.description;
  const double now = PersonalDateNow();
  described.reference = EnterReference(database, made.reference);
  described.grid = GridOf(made.reference);
  database.CreateTable({described.name,
                        {{made.identifier_column, Long, 0, true}, {described.shape_column, Ole}},
                        {{"FDO_" + made.identifier_column, {made.identifier_column}, kIdentifier}}},
                       now);
  database.CreateTable(ShapeIndexTable(described.IndexTable()), now);
  EnterGeometryColumn(database, described);
  const bool in_dataset = !made.dataset.empty();
  const jet::Bytes parent = in_dataset ? EnterDataset(database, made.dataset, made.reference) : RootFolder(database);
  const ItemPlace place{(in_dataset ? "\\" + made.dataset : "") + "\\" + described.name, described.name,
                        database.Open("GDB_Items").NextNumber()};
  const jet::Bytes identifier = NewGuid();
  database.Open("GDB_Items")
      .InsertNamed({{"UUID", identifier},
                    {"Type", jet::GuidOf(kClassItem)},
                    {"Name", described.name},
                    {"PhysicalName", InCapitals(described.name)},
                    {"Path", place.path},
                    {"DatasetSubtype1", std::int32_t{1}},
                    {"DatasetSubtype2", described.shape_type},
                    {"DatasetInfo1", described.shape_column},
                    {"Definition", ClassXml(place, described, made.identifier_column, made.reference)},
                    {"Properties", std::int32_t{1}},
                    {"Shape", EmptyItemShape()}});
  Relate(database, parent, identifier, in_dataset ? kClassInDataset : kDatasetInFolder);
}

void DeletePersonalClass(jet::Database& database, const PersonalClass& description) {
  RequireItems(database);
  const std::optional<FoundItem> item = FindItem(database, kClassItem, description.name);
  if (item) {
    jet::Table& relations = database.Open("GDB_ItemRelationships");
    std::vector<jet::RowId> own;
    for (jet::Table::Scan scan(relations); scan.Next();) {
      const PersonalRow row(relations, scan.Values());
      const bool destination = row.Guid("DestID") == item->identifier;
      if (!destination && row.Guid("OriginID") != item->identifier) continue;
      const jet::Bytes type = row.Guid("Type");
      const bool place = destination && (type == jet::GuidOf(kDatasetInFolder) || type == jet::GuidOf(kClassInDataset));
      if (!place) {
        throw jet::Error("'" + description.name +
                         "' belongs to other items of its geodatabase (a relationship class, " +
                         "topology or the like) and can't be deleted here");
      }
      own.push_back(scan.Id());
    }
    for (const jet::RowId row : own) relations.Delete(row);
    database.Open("GDB_Items").Delete(item->place);
  }
  jet::Table& columns = database.Open("GDB_GeomColumns");
  std::vector<jet::RowId> rows;
  for (jet::Table::Scan scan(columns); scan.Next();) {
    if (jet::SameName(PersonalRow(columns, scan.Values()).Text("TableName"), description.name))
      rows.push_back(scan.Id());
  }
  for (const jet::RowId row : rows) columns.Delete(row);
  if (database.Has(description.IndexTable())) database.DropTable(description.IndexTable());
  database.DropTable(description.name);
}

void TellNewField(jet::Database& database, const std::string& class_name, const std::string& column_name,
                  const std::string& alias) {
  if (!database.Has("GDB_Items")) return;
  const std::optional<FoundItem> item = FindItem(database, kClassItem, class_name);
  const jet::Column* column = database.Open(class_name).Definition().FindColumn(column_name);
  if (!item || column == nullptr) return;
  jet::Table& items = database.Open("GDB_Items");
  const std::size_t place = items.ColumnPlace("Definition");
  const std::string before = items.ReadMemo(items.Read(item->place)[place]);
  items.Update(item->place, {{place, AddFieldXml(before, *column, alias)}});
}

void TellExtent(jet::Database& database, const PersonalClass& description) {
  if (description.extent.IsInit() == 0 || !database.Has("GDB_GeomColumns")) return;
  jet::Table& table = database.Open("GDB_GeomColumns");
  std::optional<jet::RowId> found;
  for (jet::Table::Scan scan(table); scan.Next();) {
    if (jet::SameName(PersonalRow(table, scan.Values()).Text("TableName"), description.name)) found = scan.Id();
  }
  if (!found) return;
  jet::ValueChanges changes;
  const auto tell = [&](const char* column, double value) { changes.emplace_back(table.ColumnPlace(column), value); };
  tell("ExtentLeft", description.extent.MinX);
  tell("ExtentBottom", description.extent.MinY);
  tell("ExtentRight", description.extent.MaxX);
  tell("ExtentTop", description.extent.MaxY);
  if (!description.heights.IsEmpty()) {
    tell("ZLow", description.heights.low);
    tell("ZHigh", description.heights.high);
  }
  if (!description.measures.IsEmpty()) {
    tell("MLow", description.measures.low);
    tell("MHigh", description.measures.high);
  }
  table.Update(*found, changes);
}

}  // namespace tessarine::engine
