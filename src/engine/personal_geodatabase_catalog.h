// SPDX-License-Identifier: GPL-2.0-or-later
// What the tables of a personal geodatabase tell of its classes.
//
// GDB_GeomColumns has a row for each class: its table, its column of shapes, their type, their extent, and the grid by
// which the table NAME_SHAPE_Index knows the boxes of its shapes. GDB_SpatialRefs has the references. GDB_Items has a
// row for each class and feature dataset, with a path of both and a description in XML; GDB_ItemRelationships tells
// which lies in which.
#pragma once

#include <ogr_core.h>

#include <optional>
#include <string>
#include <vector>

#include "engine/personal_geodatabase_shape.h"
#include "jet/database.h"

namespace tessarine::engine {

struct PersonalIndexGrid {
  double x_origin = 0.0, y_origin = 0.0, cell = 0.0;
};

struct PersonalClass {
  std::string name;
  std::string shape_column;  ///< empty for a table without shapes
  std::int32_t shape_type = 0;
  ShapeLayout layout;
  OGREnvelope extent;
  NumberRange heights, measures;
  PersonalIndexGrid grid;
  std::int32_t reference = 0;  ///< its row in GDB_SpatialRefs

  [[nodiscard]] OGRwkbGeometryType OgrType() const;
  [[nodiscard]] std::string IndexTable() const { return name + "_" + shape_column + "_Index"; }
};

/// The classes, then the tables that a user made. Costs a walk over GDB_GeomColumns.
[[nodiscard]] std::vector<PersonalClass> ReadPersonalClasses(jet::Database& database);

/// The text of a reference; empty where there is none.
[[nodiscard]] std::string PersonalReferenceText(jet::Database& database, std::int32_t reference);

struct PersonalDataset {
  std::string name;
  jet::Bytes identifier;
};
/// The feature datasets.
[[nodiscard]] std::vector<PersonalDataset> ReadPersonalDatasets(jet::Database& database);
/// The feature dataset that a class lies in; empty at the root and where that isn't told.
[[nodiscard]] std::string DatasetOfPersonalClass(jet::Database& database, const std::string& name);

/// The description of a class in XML; empty where the geodatabase has none.
[[nodiscard]] std::string DefinitionOfPersonalClass(jet::Database& database, const std::string& name);

/// A row of a table by the names of its columns.
class PersonalRow {
 public:
  PersonalRow(const jet::Table& table, jet::RowValues values) : table_(table), values_(std::move(values)) {}

  [[nodiscard]] std::string Text(const char* column) const;
  [[nodiscard]] std::string Memo(const char* column) const { return table_.ReadMemo(Value(column)); }
  [[nodiscard]] std::int32_t Whole(const char* column) const;
  /// Not a number where it is null.
  [[nodiscard]] double Real(const char* column) const;
  [[nodiscard]] bool Flag(const char* column) const;
  [[nodiscard]] jet::Bytes Guid(const char* column) const;
  [[nodiscard]] const jet::Value& Value(const char* column) const { return values_[table_.ColumnPlace(column)]; }

 private:
  const jet::Table& table_;
  jet::RowValues values_;
};

/// The kinds of items in GDB_Items and of relations in GDB_ItemRelationships.
inline constexpr const char* kClassItem = "{70737809-852C-4A03-9E22-2CECEA5B9BFA}";
inline constexpr const char* kDatasetItem = "{74737149-DCB5-4257-8904-B9724E32A530}";
inline constexpr const char* kFolderItem = "{F3783E6F-65CA-4514-8315-CE3985DAD3B1}";
inline constexpr const char* kWorkspaceItem = "{C673FE0F-7280-404F-8532-20755DD8FC06}";
inline constexpr const char* kDatasetInFolder = "{DC78F1AB-34E4-43AC-BA47-1C4EABD0E7C7}";
inline constexpr const char* kClassInDataset = "{A1633A59-46BA-4448-8706-D8ABE2B2B02E}";

}  // namespace tessarine::engine
