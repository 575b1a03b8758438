// SPDX-License-Identifier: GPL-2.0-or-later
// Databases of the format .mdb of the years from 2000 on, read, made and written.
//
//   jet::Database database("world.mdb", jet::Database::Mode::Write);
//   jet::Table& cities = database.Open("Cities");
//   cities.Insert({std::monostate{}, std::string("Lima")});
//   database.Commit();
//
// Changes go into the file while they are made: whoever wants the old file to outlive a failure works on a copy. All
// texts are UTF-8. Errors are `jet::Error`. Not for several threads.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "jet/table.h"

namespace tessarine::jet {

struct ColumnSpec {
  std::string name;
  ColumnType type = ColumnType::Long;
  std::size_t length = 0;  ///< of texts in UTF-16 units, of binary columns in bytes
  bool numbered = false;   ///< gets its number by itself
};

struct IndexSpec {
  std::string name;
  std::vector<std::string> columns;
  std::uint8_t flags = 0;  ///< of `Index`
};

struct TableSpec {
  std::string name;
  std::vector<ColumnSpec> columns;
  std::vector<IndexSpec> indexes;
};

struct TableEntry {
  std::string name;
  std::uint32_t page = 0;
  bool system = false;
};

/// The most columns of a table, and the longest text of one.
inline constexpr std::size_t kMostColumns = 255;
inline constexpr std::size_t kLongestText = 255;

class Database {
 public:
  enum class Mode { Read, Write };
  /// Errors name the file as `shown`, or by its path where that is empty: a working copy by what it is a copy of.
  Database(const std::string& path, Mode mode, const std::string& shown = "");
  /// Makes an empty database; what stands at the path goes. `date` is when, in days since 30 December 1899.
  [[nodiscard]] static std::unique_ptr<Database> Create(const std::string& path, double date,
                                                        const std::string& shown = "");
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  [[nodiscard]] const std::vector<TableEntry>& Tables() const { return tables_; }
  /// By name in any case of ASCII letters.
  [[nodiscard]] bool Has(const std::string& table) const { return Find(table) != nullptr; }
  /// Stays valid as long as the database. An error where there is none of this name.
  [[nodiscard]] Table& Open(const std::string& table);

  /// `date` as for `Create`. The new table is empty.
  Table& CreateTable(const TableSpec& spec, double date);
  void DropTable(const std::string& table);
  /// Rows that are there get null.
  void AddColumn(const std::string& table, const ColumnSpec& column);

  /// Makes indexes, maps and counts fit the rows, and writes all to the file.
  void Commit();

  [[nodiscard]] PageFile& File() { return *file_; }
  [[nodiscard]] FreePages& Free() { return *free_pages_; }

 private:
  Database(std::unique_ptr<PageFile> file, double date);
  [[nodiscard]] const TableEntry* Find(const std::string& table) const;
  void ReadTables();
  void Enter(const TableSpec& spec, std::uint32_t page, double date);
  void Permit(std::uint32_t page);

  std::unique_ptr<PageFile> file_;
  std::unique_ptr<FreePages> free_pages_;
  std::vector<TableEntry> tables_;
  std::map<std::uint32_t, std::unique_ptr<Table>> open_;  // by the page of the definition
};

}  // namespace tessarine::jet
