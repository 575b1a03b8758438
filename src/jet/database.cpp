// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/database.h"

#include <algorithm>
#include <optional>

#include "jet/new_table.h"
#include "jet/system_tables.h"

namespace tessarine::jet {
namespace {

std::int32_t WholeNumber(const Value& value) {
  const auto* number = std::get_if<std::int32_t>(&value);
  return number == nullptr ? 0 : *number;
}

std::string Text(const Value& value) {
  const auto* text = std::get_if<std::string>(&value);
  return text == nullptr ? std::string() : *text;
}

// The rows of an object, by the column that tells of it.
std::vector<RowId> RowsOf(const Table& table, const char* column, std::uint32_t object) {
  std::vector<RowId> rows;
  const std::size_t place = table.ColumnPlace(column);
  for (Table::Scan scan(table); scan.Next();) {
    const Value value = UnpackValue(table.Definition(), scan.Bytes(), place);
    if (value == Value(static_cast<std::int32_t>(object))) rows.push_back(scan.Id());
  }
  return rows;
}

Bytes OwnerOfDatabase(const Table& objects) {
  for (Table::Scan scan(objects); scan.Next();) {
    const RowValues values = scan.Values();
    if (Text(values[objects.ColumnPlace("Name")]) != "MSysDb") continue;
    if (const auto* owner = std::get_if<Bytes>(&values[objects.ColumnPlace("Owner")])) return *owner;
  }
  throw Error("the database doesn't tell its owner (MSysDb)");
}

// Those that another table has.
std::vector<Permission> PermissionsOf(const Table& permissions, std::uint32_t object) {
  std::vector<Permission> found;
  for (const RowId row : RowsOf(permissions, "ObjectId", object)) {
    const RowValues values = permissions.Read(row);
    const auto* user = std::get_if<Bytes>(&values[permissions.ColumnPlace("SID")]);
    if (user == nullptr) continue;
    found.push_back({WholeNumber(values[permissions.ColumnPlace("ACM")]), *user});
  }
  return found;
}

}  // namespace

Database::Database(const std::string& path, Mode mode, const std::string& shown)
    : file_(std::make_unique<PageFile>(path, mode == Mode::Read ? PageFile::Mode::Read : PageFile::Mode::Write, shown)),
      free_pages_(std::make_unique<FreePages>(*file_)) {
  if (mode == Mode::Write) free_pages_->Read();
  ReadTables();
}

Database::Database(std::unique_ptr<PageFile> file, double date)
    : file_(std::move(file)), free_pages_(std::make_unique<FreePages>(*file_)) {
  MakeSystemPages(*file_, *free_pages_);
  tables_ = {{"MSysObjects", kObjectsPage, true}, {"MSysACEs", kPermissionsPage, true}};
  FillSystemTables(Open("MSysObjects"), Open("MSysACEs"), date);
  ReadTables();
}

std::unique_ptr<Database> Database::Create(const std::string& path, double date, const std::string& shown) {
  return std::unique_ptr<Database>(new Database(std::make_unique<PageFile>(path, PageFile::Mode::Create, shown), date));
}

Database::~Database() = default;

void Database::ReadTables() {
  tables_ = {{"MSysObjects", kObjectsPage, true}};
  const Table& objects = Open("MSysObjects");
  std::vector<TableEntry> found;
  for (Table::Scan scan(objects); scan.Next();) {
    const RowValues values = scan.Values();
    if (WholeNumber(values[objects.ColumnPlace("Type")]) != kTableType) continue;
    const auto flags = static_cast<std::uint32_t>(WholeNumber(values[objects.ColumnPlace("Flags")]));
    const std::string name = Text(values[objects.ColumnPlace("Name")]);
    const auto page = static_cast<std::uint32_t>(WholeNumber(values[objects.ColumnPlace("Id")])) & 0xFFFFFFU;
    found.push_back({name, page, (flags & kSystemFlags) != 0 || name.starts_with("MSys")});
  }
  tables_ = std::move(found);
}

const TableEntry* Database::Find(const std::string& table) const {
  const auto found =
      std::ranges::find_if(tables_, [&](const TableEntry& entry) { return SameName(entry.name, table); });
  return found == tables_.end() ? nullptr : &*found;
}

Table& Database::Open(const std::string& table) {
  const TableEntry* entry = Find(table);
  if (entry == nullptr) throw Error("'" + file_->ShownPath() + "' has no table '" + table + "'");
  if (const auto open = open_.find(entry->page); open != open_.end()) return *open->second;
  try {
    auto opened = std::make_unique<Table>(*file_, *free_pages_, ReadTableDefinition(*file_, entry->page), entry->name);
    return *(open_[entry->page] = std::move(opened));
  } catch (const Error& error) {
    throw Error("the table '" + table + "' of '" + file_->ShownPath() + "' can't be opened: " + error.what());
  }
}

Table& Database::CreateTable(const TableSpec& spec, double date) {
  if (Has(spec.name)) throw Error("there is a table '" + spec.name + "' already");
  if (spec.name.empty() || StoredText(spec.name).size() > 128) {
    throw Error("'" + spec.name + "' can't be the name of a table: it must be 1 to 64 characters long");
  }
  Open("MSysObjects").BeforeChange();
  Open("MSysACEs").BeforeChange();
  TableDefinition definition = DefineTable(spec);
  definition.page = free_pages_->Take();
  std::uint32_t maps = 0;
  PlaceParts(*file_, *free_pages_, maps, definition);
  WriteGrownDefinition(*file_, *free_pages_, definition, {definition.page});
  Enter(spec, definition.page, date);
  Permit(definition.page);
  tables_.push_back({spec.name, definition.page, false});
  Table& table = Open(spec.name);
  table.TrustIndexes();
  return table;
}

void Database::Enter(const TableSpec& spec, std::uint32_t page, double date) {
  Table& objects = Open("MSysObjects");
  objects.InsertNamed({{"Id", static_cast<std::int32_t>(page)},
                       {"ParentId", kTablesContainer},
                       {"Name", spec.name},
                       {"Type", kTableType},
                       {"DateCreate", date},
                       {"DateUpdate", date},
                       {"Flags", 0},
                       {"Owner", OwnerOfDatabase(objects)}});
}

// As the other tables of the database; the first gets what was seen with the owners of new databases.
void Database::Permit(std::uint32_t page) {
  Table& permissions = Open("MSysACEs");
  std::vector<Permission> wanted;
  for (const TableEntry& entry : tables_) {
    if (!entry.system && wanted.empty()) wanted = PermissionsOf(permissions, entry.page);
  }
  if (wanted.empty()) {
    wanted = DefaultPermissions();
    const std::vector<Permission> container = PermissionsOf(permissions, static_cast<std::uint32_t>(kTablesContainer));
    const bool known = std::ranges::any_of(
        container, [&](const Permission& permission) { return permission.user == wanted.front().user; });
    if (!known) throw Error("the database has no table yet, and who may do what with a new one isn't known");
  }
  for (const Permission& permission : wanted) {
    permissions.InsertNamed({{"ObjectId", static_cast<std::int32_t>(page)},
                             {"ACM", permission.rights},
                             {"SID", permission.user},
                             {"FInheritable", false}});
  }
}

void Database::DropTable(const std::string& name) {
  Table& table = Open(name);
  table.BeforeChange();
  const TableDefinition& definition = table.Definition();
  if (definition.system) throw Error("'" + name + "' is a table of the database itself");
  Table& objects = Open("MSysObjects");
  Table& permissions = Open("MSysACEs");
  objects.BeforeChange();
  permissions.BeforeChange();
  table.Clear();
  RowStore maps(*file_, *free_pages_, 0, {1, 0}, {1, 1});
  std::vector<RowId> rows = {definition.owned, definition.roomy};
  for (const Index& index : definition.indexes) rows.push_back(index.map);
  for (const LongColumnMaps& column : definition.long_columns) rows.insert(rows.end(), {column.owned, column.roomy});
  for (const RowId row : rows) {
    const Bytes map = ReadMapRow(*file_, row);
    for (std::size_t at = 1; map[0] == 1 && at + 4 <= map.size(); at += 4) {
      if (Get32(map, at) != 0) free_pages_->GiveBack(Get32(map, at));
    }
    if (row.page > 6) maps.DeleteAndShrink(row);
  }
  for (const std::uint32_t page : DefinitionPages(*file_, definition.page)) free_pages_->GiveBack(page);
  const std::uint32_t page = definition.page;
  for (const RowId row : RowsOf(objects, "Id", page)) objects.Delete(row);
  for (const RowId row : RowsOf(permissions, "ObjectId", page)) permissions.Delete(row);
  open_.erase(page);
  std::erase_if(tables_, [&](const TableEntry& entry) { return entry.page == page; });
}

void Database::AddColumn(const std::string& name, const ColumnSpec& spec) {
  Table& table = Open(name);
  table.BeforeChange();
  TableDefinition definition = table.Definition();
  if (!IsWhollyKnown(*file_, definition.page)) {
    throw Error("the definition of the table '" + name + "' holds what isn't known here, so that it can get no column");
  }
  const Column column = NextColumn(definition, spec);
  definition.columns.push_back(column);
  ++definition.columns_ever;
  if (!column.fixed) ++definition.variable_columns;
  std::uint32_t maps = definition.owned.page;
  PlaceLongColumn(*file_, *free_pages_, maps, column, definition);
  WriteGrownDefinition(*file_, *free_pages_, definition, DefinitionPages(*file_, definition.page));
  table.Redefine(std::move(definition));
}

void Database::Commit() {
  for (const auto& [page, table] : open_) table->Commit();
  free_pages_->Write();
  file_->Flush();
}

}  // namespace tessarine::jet
