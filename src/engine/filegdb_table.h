// SPDX-License-Identifier: GPL-2.0-or-later
// The rows of one table of a file geodatabase, reached by their numbers. `filegdb_layout.h` tells the bytes.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/filegdb_layout.h"

namespace tessarine::engine {

/// Where the rows of a table lie.
class GdbRowPlaces {
 public:
  /// `path` is that of the .gdbtablx.
  GdbRowPlaces(const std::string& path, FileAccess access);

  /// False where the file is missing, or isn't understood.
  [[nodiscard]] bool IsUsable() const { return usable_; }
  [[nodiscard]] std::int64_t OffsetLimit() const { return std::int64_t{1} << (8 * width_); }
  [[nodiscard]] std::size_t OffsetWidth() const { return width_; }
  /// The highest row number that was given out.
  [[nodiscard]] std::int64_t RowLimit() const { return row_limit_; }

  /// 0 where there is no such row.
  [[nodiscard]] std::int64_t Find(std::int64_t oid) const;
  void Set(std::int64_t oid, std::int64_t offset) const;
  /// Calls `look` with number and offset of each row, in order.
  void ForEach(const std::function<void(std::int64_t oid, std::int64_t offset)>& look) const;

 private:
  void ReadPages();
  void ReadTrailer(std::int64_t trailer);
  [[nodiscard]] std::int64_t PlaceOf(std::int64_t oid) const;

  RawFile file_;
  std::int64_t page_count_ = 0, row_limit_ = 0;
  std::size_t width_ = 0;
  std::vector<std::int32_t> page_in_file_;  // by page; -1 where it is left out
  bool usable_ = false;
};

/// A table, its description and its rows.
class GdbTable {
 public:
  /// `base` is the path without ".gdbtable".
  explicit GdbTable(const std::string& base, FileAccess access = FileAccess::Read);

  [[nodiscard]] bool IsUsable() const { return usable_; }
  [[nodiscard]] const RawFile& File() const { return file_; }
  [[nodiscard]] const GdbRowPlaces& Places() const { return places_; }
  [[nodiscard]] const GdbDescription& Description() const { return description_; }
  /// -1 for an unknown name; case counts.
  [[nodiscard]] int FindColumn(std::string_view name) const;

  /// The length at an offset; negative where no row lies there, or one that ends after the file.
  [[nodiscard]] std::int64_t RowSize(std::int64_t offset) const;
  /// The row at an offset; empty where `RowSize` is negative.
  [[nodiscard]] std::optional<std::string> Row(std::int64_t offset) const;

 private:
  RawFile file_;
  GdbRowPlaces places_;
  GdbDescription description_;
  bool usable_ = false;
};

/// Reads the rows of a table that nobody changes meanwhile, each after the one before or nearly so: a table of many
/// rows costs few transfers.
class GdbRowScan {
 public:
  explicit GdbRowScan(const GdbTable& table) : file_(table.File()), file_size_(file_.Size()) {}

  /// As `GdbTable::RowSize`.
  [[nodiscard]] std::int64_t RowSize(std::int64_t offset);
  /// As `GdbTable::Row`; good until the next call.
  [[nodiscard]] std::optional<std::string_view> Row(std::int64_t offset);

 private:
  [[nodiscard]] std::string_view Bytes(std::int64_t offset, std::int64_t count);

  const RawFile& file_;
  std::int64_t file_size_, first_ = 0;
  std::vector<char> window_;
};

/// Brings the header of a table up to date: the size of the file, and the longest row.
void SettleGdbHeader(const std::string& base);

/// The files of table number `number`, without their endings.
[[nodiscard]] std::string GdbTableBase(const std::string& folder, std::int64_t number);
/// The names of the tables of a geodatabase by number, as its catalogue tells; empty where that can't be read.
[[nodiscard]] std::vector<std::pair<std::int64_t, std::string>> GdbTableNames(const std::string& folder);
/// The files of the table of this name; empty where the catalogue has none.
[[nodiscard]] std::string FindGdbTable(const std::string& folder, const std::string& name);

}  // namespace tessarine::engine
