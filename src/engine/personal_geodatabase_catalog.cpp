// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/personal_geodatabase_catalog.h"

#include <algorithm>
#include <limits>

#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

NumberRange RangeBetween(double low, double high) { return low <= high ? NumberRange{low, high} : NumberRange{}; }

PersonalClass ClassOf(const PersonalRow& row) {
  PersonalClass found;
  found.name = row.Text("TableName");
  found.shape_column = row.Text("FieldName");
  found.shape_type = row.Whole("ShapeType");
  found.layout = {row.Flag("HasZ"), row.Flag("HasM")};
  const double left = row.Real("ExtentLeft"), right = row.Real("ExtentRight");
  const double bottom = row.Real("ExtentBottom"), top = row.Real("ExtentTop");
  // An extent turned round is that of no shapes.
  if (left <= right && bottom <= top) {
    found.extent.MinX = left;
    found.extent.MaxX = right;
    found.extent.MinY = bottom;
    found.extent.MaxY = top;
  }
  found.heights = RangeBetween(row.Real("ZLow"), row.Real("ZHigh"));
  found.measures = RangeBetween(row.Real("MLow"), row.Real("MHigh"));
  found.grid = {row.Real("IdxOriginX"), row.Real("IdxOriginY"), row.Real("IdxGridSize")};
  found.reference = row.Whole("SRID");
  return found;
}

// Tables of the geodatabase and of other programs.
bool IsInternal(const std::string& name, const std::vector<PersonalClass>& classes) {
  const std::string lower = LowerCase(name);
  for (const char* prefix : {"gdb_", "msys", "usys", "~"}) {
    if (lower.starts_with(prefix)) return true;
  }
  if (lower == "selections" || lower == "selectedobjects") return true;
  return std::ranges::any_of(classes, [&](const PersonalClass& one) {
    return jet::SameName(one.IndexTable(), name) || jet::SameName(one.name, name);
  });
}

}  // namespace

OGRwkbGeometryType PersonalClass::OgrType() const {
  OGRwkbGeometryType type = wkbUnknown;
  if (shape_column.empty()) return wkbNone;
  if (shape_type == 1) type = wkbPoint;
  if (shape_type == 2) type = wkbMultiPoint;
  if (shape_type == 3) type = wkbMultiLineString;
  if (shape_type == 4) type = wkbMultiPolygon;
  if (layout.has_z) type = wkbSetZ(type);
  if (layout.has_m) type = wkbSetM(type);
  return type;
}

std::string PersonalRow::Text(const char* column) const {
  const auto* text = std::get_if<std::string>(&Value(column));
  return text == nullptr ? std::string() : *text;
}

std::int32_t PersonalRow::Whole(const char* column) const {
  const auto* number = std::get_if<std::int32_t>(&Value(column));
  return number == nullptr ? 0 : *number;
}

double PersonalRow::Real(const char* column) const {
  const auto* number = std::get_if<double>(&Value(column));
  return number == nullptr ? std::numeric_limits<double>::quiet_NaN() : *number;
}

bool PersonalRow::Flag(const char* column) const {
  const auto* flag = std::get_if<bool>(&Value(column));
  return flag != nullptr && *flag;
}

jet::Bytes PersonalRow::Guid(const char* column) const {
  const auto* guid = std::get_if<jet::Bytes>(&Value(column));
  return guid == nullptr ? jet::Bytes() : *guid;
}

std::vector<PersonalClass> ReadPersonalClasses(jet::Database& database) {
  std::vector<PersonalClass> classes;
  if (database.Has("GDB_GeomColumns")) {
    const jet::Table& table = database.Open("GDB_GeomColumns");
    for (jet::Table::Scan scan(table); scan.Next();) {
      PersonalClass found = ClassOf(PersonalRow(table, scan.Values()));
      if (!LowerCase(found.name).starts_with("gdb_") && database.Has(found.name)) classes.push_back(std::move(found));
    }
  }
  std::vector<PersonalClass> tables;
  for (const jet::TableEntry& entry : database.Tables()) {
    if (entry.system || IsInternal(entry.name, classes)) continue;
    tables.emplace_back().name = entry.name;
  }
  classes.insert(classes.end(), tables.begin(), tables.end());
  return classes;
}

std::string PersonalReferenceText(jet::Database& database, std::int32_t reference) {
  if (!database.Has("GDB_SpatialRefs")) return "";
  const jet::Table& table = database.Open("GDB_SpatialRefs");
  for (jet::Table::Scan scan(table); scan.Next();) {
    const PersonalRow row(table, scan.Values());
    if (row.Whole("SRID") == reference) return row.Memo("SRTEXT");
  }
  return "";
}

std::vector<PersonalDataset> ReadPersonalDatasets(jet::Database& database) {
  std::vector<PersonalDataset> datasets;
  if (!database.Has("GDB_Items")) return datasets;
  const jet::Table& table = database.Open("GDB_Items");
  const jet::Bytes kind = jet::GuidOf(kDatasetItem);
  for (jet::Table::Scan scan(table); scan.Next();) {
    const PersonalRow row(table, scan.Values());
    if (row.Guid("Type") == kind) datasets.push_back({row.Text("Name"), row.Guid("UUID")});
  }
  return datasets;
}

namespace {

// A memo of a class's item; empty where there is no such item.
std::string MemoOfItem(jet::Database& database, const std::string& name, const char* column) {
  if (!database.Has("GDB_Items")) return "";
  const jet::Table& table = database.Open("GDB_Items");
  const jet::Bytes kind = jet::GuidOf(kClassItem);
  for (jet::Table::Scan scan(table); scan.Next();) {
    const PersonalRow row(table, scan.Values());
    if (row.Guid("Type") != kind || !jet::SameName(row.Text("Name"), name)) continue;
    return row.Memo(column);
  }
  return "";
}

}  // namespace

std::string DatasetOfPersonalClass(jet::Database& database, const std::string& name) {
  const std::string path = MemoOfItem(database, name, "Path");
  const std::size_t end = path.rfind('\\');
  return end == std::string::npos || end == 0 ? "" : path.substr(1, end - 1);
}

std::string DefinitionOfPersonalClass(jet::Database& database, const std::string& name) {
  return MemoOfItem(database, name, "Definition");
}

}  // namespace tessarine::engine
