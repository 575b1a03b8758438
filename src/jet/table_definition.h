// SPDX-License-Identifier: GPL-2.0-or-later
// The definition of a table: columns, indexes, and where its maps are.
//
// A definition is one page (02 01) or a chain of them, whose parts without the first eight bytes are one structure. At
// 8 its length, at 16 the number of rows, at 20 the last number that was given out by itself, at 40 'N' (or 'S' for the
// database's own), at 41, 43 and 45 the numbers of columns ever, of columns of variable length and of columns, at 47
// and 51 those of the names of indexes and of the indexes, at 55 and 59 where the maps of owned and of roomy pages are.
// From 63 on: 12 bytes for each index (rows, distinct rows), 25 for each column, the columns' names, 52 for each index
// (ten columns with their order, its map, its root, flags), 28 for each name of an index, those names, 10 for each
// column of long values (its maps), FF FF.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "jet/bytes.h"
#include "jet/page_file.h"
#include "jet/value.h"

namespace tessarine::jet {

struct Column {
  std::string name;
  ColumnType type = ColumnType::Long;
  std::uint16_t number = 0;           ///< its bit in a row's mask of nulls
  std::uint16_t variable_number = 0;  ///< among those of variable length
  std::uint16_t order = 0;
  std::uint16_t fixed_offset = 0;  ///< after a row's first two bytes
  std::uint16_t length = 0;        ///< in bytes; 0 for long values
  bool fixed = false;
  bool numbered = false;  ///< gets its number by itself
  std::uint8_t scale = 0;
  std::array<std::uint8_t, 4> detail{};  ///< order of texts, or precision and scale, as stored
  std::uint8_t flags = 0;                ///< all of them, as stored
  std::uint8_t more_flags = 0;           ///< 1: texts may be stored packed

  [[nodiscard]] bool IsLong() const { return type == ColumnType::Ole || type == ColumnType::Memo; }
};

struct IndexColumn {
  std::uint16_t column = 0;  ///< by `Column::number`
  bool descending = false;
};

struct Index {
  static constexpr std::uint8_t kUnique = 1;
  static constexpr std::uint8_t kIgnoreNull = 2;
  static constexpr std::uint8_t kRequired = 8;
  static constexpr std::uint8_t kAlways = 0x80;

  std::vector<IndexColumn> columns;
  std::uint8_t flags = kAlways;
  RowId map;
  std::uint32_t root = 0;
  std::uint32_t row_count = 0, distinct_count = 0;

  [[nodiscard]] bool IsUnique() const { return (flags & kUnique) != 0; }
  [[nodiscard]] bool IgnoresNull() const { return (flags & kIgnoreNull) != 0; }
};

/// Several names may stand for one index.
struct IndexName {
  std::string name;
  std::uint32_t index = 0;
  Bytes stored;  ///< its 28 bytes

  static constexpr std::uint8_t kPlain = 0, kPrimaryKey = 1;
  /// The name of an index of a new table.
  [[nodiscard]] static IndexName Of(const std::string& name, std::size_t index, std::uint8_t kind = kPlain);
};

struct LongColumnMaps {
  std::uint16_t column = 0;  ///< by `Column::number`
  RowId owned, roomy;
};

struct TableDefinition {
  std::uint32_t page = 0;
  std::uint32_t row_count = 0;
  std::uint32_t last_number = 0;  ///< given out by itself
  bool system = false;
  std::uint16_t columns_ever = 0;
  std::uint16_t variable_columns = 0;
  std::vector<Column> columns;
  std::vector<Index> indexes;
  std::vector<IndexName> index_names;
  std::vector<LongColumnMaps> long_columns;
  RowId owned, roomy;

  /// By name in any case of ASCII letters; null where there is none.
  [[nodiscard]] const Column* FindColumn(const std::string& name) const;
  /// The place of the column of this number among the columns; an error where there is none.
  [[nodiscard]] std::size_t PlaceOf(std::uint16_t number) const;
  /// After the last fixed column.
  [[nodiscard]] std::size_t FixedEnd() const;
};

/// The general order of texts, as columns of variable length keep it.
inline constexpr std::array<std::uint8_t, 4> kTextOrder = {0x09, 0x04, 0, 0};

[[nodiscard]] inline char LowerLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 'a' - 'A') : c; }
[[nodiscard]] bool SameName(const std::string& one, const std::string& other);

/// An error for a type of column that isn't known, or a definition that contradicts itself.
[[nodiscard]] TableDefinition ReadTableDefinition(PageFile& file, std::uint32_t page);
[[nodiscard]] Bytes PackTableDefinition(const TableDefinition& definition);

/// What changes with the rows: their number, the last number given out, the counts and roots of the indexes.
void WriteCounts(PageFile& file, const TableDefinition& definition);
/// The page of a definition and those that go on with it.
[[nodiscard]] std::vector<std::uint32_t> DefinitionPages(PageFile& file, std::uint32_t page);
/// Writes a whole definition to these pages; there must be as many as it needs.
void WriteTableDefinition(PageFile& file, const TableDefinition& definition, const std::vector<std::uint32_t>& pages);
[[nodiscard]] std::size_t DefinitionPageCount(std::size_t length);
/// Whether packing a definition gives the bytes that it was read from. Where not, they hold what isn't known here.
[[nodiscard]] bool IsWhollyKnown(PageFile& file, std::uint32_t page);

}  // namespace tessarine::jet
