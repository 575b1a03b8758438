// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/system_tables.h"

#include <algorithm>

#include "jet/new_table.h"

namespace tessarine::jet {
namespace {

// Columns of the database's own tables stand in the order of their names, are numbered by themselves, and have places
// that don't follow from their order.
struct SystemColumn {
  const char* name;
  ColumnType type;
  std::uint16_t number, variable, offset, length;
  std::uint8_t flags;
};
struct SystemIndex {
  const char* name;
  std::vector<std::uint16_t> columns;
  std::uint8_t flags;
};
struct SystemName {
  const char* name;
  std::uint8_t index;
  std::uint8_t kind;  // of `IndexName`
};

constexpr std::uint8_t kPlain = 0x13, kVariable = 0x12, kSid = 0x32;

std::vector<Column> Columns(std::initializer_list<SystemColumn> rows) {
  std::vector<Column> columns;
  for (const SystemColumn& row : rows) {
    Column column;
    column.name = row.name;
    column.type = row.type;
    column.number = row.number;
    column.variable_number = row.variable;
    column.fixed_offset = row.offset;
    column.length = row.length;
    column.flags = row.flags;
    column.fixed = (row.flags & 1U) != 0;
    column.detail = kTextOrder;
    columns.push_back(column);
  }
  return columns;
}

TableDefinition Definition(std::vector<Column> columns, const std::vector<SystemIndex>& indexes,
                           const std::vector<SystemName>& names) {
  TableDefinition table;
  table.system = true;
  table.columns = std::move(columns);
  table.columns_ever = static_cast<std::uint16_t>(table.columns.size());
  for (const Column& column : table.columns) {
    if (!column.fixed) ++table.variable_columns;
  }
  for (const SystemIndex& row : indexes) {
    Index index;
    index.flags = row.flags;
    for (const std::uint16_t column : row.columns) index.columns.push_back({column, false});
    table.indexes.push_back(index);
  }
  for (const SystemName& row : names) table.index_names.push_back(IndexName::Of(row.name, row.index, row.kind));
  return table;
}

TableDefinition ObjectsTable() {
  using enum ColumnType;
  return Definition(Columns({{"Connect", Memo, 9, 3, 0, 0, kVariable},
                             {"Database", Memo, 8, 2, 0, 0, kVariable},
                             {"DateCreate", Date, 4, 1, 10, 8, kPlain},
                             {"DateUpdate", Date, 5, 1, 18, 8, kPlain},
                             {"Flags", Long, 7, 2, 26, 4, kPlain},
                             {"ForeignName", Text, 10, 4, 0, 510, kVariable},
                             {"Id", Long, 0, 0, 0, 4, kPlain},
                             {"Lv", Ole, 13, 7, 0, 0, kVariable},
                             {"LvExtra", Ole, 16, 10, 0, 0, kVariable},
                             {"LvModule", Ole, 15, 9, 0, 0, kVariable},
                             {"LvProp", Ole, 14, 8, 0, 0, kVariable},
                             {"Name", Text, 2, 0, 0, 510, kVariable},
                             {"Owner", Binary, 6, 1, 0, 510, kSid},
                             {"ParentId", Long, 1, 0, 4, 4, kPlain},
                             {"RmtInfoLong", Ole, 12, 6, 0, 0, kVariable},
                             {"RmtInfoShort", Binary, 11, 5, 0, 510, kVariable},
                             {"Type", Short, 3, 1, 8, 2, kPlain}}),
                    {{"ParentIdName", {1, 2}, 0x81}, {"Id", {0}, 0x81}}, {{"Id", 1, 1}, {"ParentIdName", 0, 0}});
}

TableDefinition PermissionsTable() {
  using enum ColumnType;
  return Definition(Columns({{"ACM", Long, 2, 1, 4, 4, kPlain},
                             {"FInheritable", Flag, 3, 1, 0, 1, kPlain},
                             {"ObjectId", Long, 0, 0, 0, 4, kPlain},
                             {"SID", Binary, 1, 0, 0, 510, kSid}}),
                    {{"ObjectId", {0}, 0x88}}, {{"ObjectId", 0, 0}});
}

TableDefinition QueriesTable() {
  using enum ColumnType;
  return Definition(Columns({{"Attribute", Byte, 1, 0, 4, 1, kPlain},
                             {"Expression", Memo, 5, 3, 0, 0, kVariable},
                             {"Flag", Short, 6, 4, 5, 2, kPlain},
                             {"LvExtra", Long, 7, 4, 7, 4, kPlain},
                             {"Name1", Text, 3, 1, 0, 510, kVariable},
                             {"Name2", Text, 4, 2, 0, 510, kVariable},
                             {"ObjectId", Long, 0, 0, 0, 4, kPlain},
                             {"Order", Binary, 2, 0, 0, 510, kVariable}}),
                    {{"ObjectIdAttribute", {0, 1, 2}, 0x81}}, {{"ObjectIdAttribute", 0, 1}});
}

TableDefinition RelationshipsTable() {
  using enum ColumnType;
  return Definition(Columns({{"ccolumn", Long, 2, 1, 4, 4, kPlain},
                             {"grbit", Long, 1, 1, 0, 4, kPlain},
                             {"icolumn", Long, 3, 1, 8, 4, kPlain},
                             {"szColumn", Text, 5, 2, 0, 510, kVariable},
                             {"szObject", Text, 4, 1, 0, 510, kVariable},
                             {"szReferencedColumn", Text, 7, 4, 0, 510, kVariable},
                             {"szReferencedObject", Text, 6, 3, 0, 510, kVariable},
                             {"szRelationship", Text, 0, 0, 0, 510, kVariable}}),
                    {{"szRelationship", {0}, 0x82}, {"szObject", {4}, 0x82}, {"szReferencedObject", {6}, 0x82}},
                    {{"szObject", 1, 0}, {"szReferencedObject", 2, 0}, {"szRelationship", 0, 0}});
}

// The masked part of page 0, unmasked. Code page and order of texts are the general ones; the numbers from 0x5A on are
// a date (45804.64 days), the build of an engine and the date again, which the owners below go with.
Bytes PlainHeader() {
  Bytes plain(0x80);
  Put32(plain, 0x00, 0x0100);
  Put32(plain, 0x04, 0x0101);
  for (std::size_t index = 0; index < 4; ++index) Put32(plain, 0x08 + index * 4, 2 + index);
  Put32(plain, 0x24, 1252);
  for (std::size_t index = 0; index < 10; ++index) Put32(plain, 0x2A + index * 4, 45804);
  Put32(plain, 0x52, 0x11A6);
  Put32(plain, 0x56, 0x409);
  Put<std::uint64_t>(plain, 0x5A, 0x40E65D949F8626CE);
  return plain;
}

const Bytes kOwner = {0xEA, 0x57}, kEngine = {0xEB, 0x55}, kUsers = {0xEB, 0x57}, kAdministrators = {0xEB, 0x52};

void MakeHeaderPage(Page& page) {
  constexpr std::array<std::uint8_t, 24> kBegin = {0,   1,   0,   0,   'S', 't', 'a', 'n', 'd', 'a', 'r', 'd',
                                                   ' ', 'J', 'e', 't', ' ', 'D', 'B', 0,   1,   0,   0,   0};
  std::ranges::copy(kBegin, page.begin());
  MaskHeader(PlainHeader(), page);
  Put32(page, 0x98, 0x0654);
  page[0x9C] = '4';
  page[0x9D] = '.';
  page[0x9E] = '0';
  for (std::size_t at = 0xE01; at < kPageSize; at += 2) page[at] = 1;
  page[0xE00] = 1;
}

struct ObjectRow {
  std::uint32_t id, parent;
  const char* name;
  std::int32_t type;
  const Bytes& owner;
};
struct PermissionRow {
  std::uint32_t object;
  std::uint32_t rights;
  const Bytes& user;
  bool inheritable;
};

}  // namespace

void MakeSystemPages(PageFile& file, FreePages& free_pages) {
  for (int page = 0; page < 7; ++page) (void)file.Append();
  MakeHeaderPage(*file.Edit(0));
  DataPage::Format(*file.Edit(1), 1);
  const Bytes empty(kMapRowLength);
  DataPage(*file.Edit(1)).Insert(empty);
  DataPage(*file.Edit(1)).Insert(empty);
  std::uint32_t maps = 6;
  DataPage::Format(*file.Edit(maps), 0);
  std::uint32_t page = kObjectsPage;
  for (TableDefinition table : {ObjectsTable(), PermissionsTable(), QueriesTable(), RelationshipsTable()}) {
    table.page = page++;
    PlaceParts(file, free_pages, maps, table);
    WriteTableDefinition(file, table, {table.page});
  }
}

void FillSystemTables(Table& objects, Table& permissions, double date) {
  const ObjectRow object_rows[] = {
      {0x0F000001, 0x0F000000, "Tables", 3, kEngine},        {0x0F000002, 0x0F000000, "Databases", 3, kEngine},
      {0x0F000003, 0x0F000000, "Relationships", 3, kEngine}, {0x10000000, 0x0F000002, "MSysDb", 2, kOwner},
      {2, 0x0F000001, "MSysObjects", kTableType, kEngine},   {3, 0x0F000001, "MSysACEs", kTableType, kEngine},
      {4, 0x0F000001, "MSysQueries", kTableType, kEngine},   {5, 0x0F000001, "MSysRelationships", kTableType, kEngine}};
  for (const ObjectRow& row : object_rows) {
    objects.InsertNamed({{"Id", static_cast<std::int32_t>(row.id)},
                         {"ParentId", static_cast<std::int32_t>(row.parent)},
                         {"Name", std::string(row.name)},
                         {"Type", row.type},
                         {"DateCreate", date},
                         {"DateUpdate", date},
                         {"Flags", static_cast<std::int32_t>(0x80000000)},
                         {"Owner", row.owner}});
  }
  const PermissionRow permission_rows[] = {{0x0F000002, 0x00060000, kOwner, false},
                                           {0x0F000003, 0x000F00FE, kAdministrators, true},
                                           {0x0F000003, 0x00060001, kOwner, false},
                                           {0x0F000003, 0x000FFFFF, kUsers, true},
                                           {0x0F000001, 0x000F00FE, kAdministrators, true},
                                           {0x0F000001, 0x000FFEFF, kOwner, true},
                                           {0x0F000001, 0x000FFEFF, kUsers, true},
                                           {0x10000000, 0x0006000E, kOwner, false},
                                           {0x10000000, 0x0000000E, kUsers, false},
                                           {3, 0x00060000, kOwner, false},
                                           {2, 0x00060000, kOwner, false},
                                           {2, 0x00000014, kUsers, false},
                                           {4, 0x00060000, kOwner, false},
                                           {4, 0x00000014, kUsers, false},
                                           {5, 0x000E0000, kOwner, false},
                                           {5, 0x00000014, kUsers, false}};
  for (const PermissionRow& row : permission_rows) {
    permissions.InsertNamed({{"ObjectId", static_cast<std::int32_t>(row.object)},
                             {"ACM", static_cast<std::int32_t>(row.rights)},
                             {"SID", row.user},
                             {"FInheritable", row.inheritable}});
  }
}

std::vector<Permission> DefaultPermissions() { return {{0x000F00FE, kOwner}, {0x000FFEFF, kUsers}}; }

}  // namespace tessarine::jet
