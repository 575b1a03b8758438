// SPDX-License-Identifier: GPL-2.0-or-later
// The bytes of a table of a file geodatabase of version 10. Numbers are little-endian; places count from the start of a
// file.
//
// A geodatabase is a folder. Table number N is made of files named "a" and N in eight hexadecimal digits:
//
//   .gdbtable     the description of the columns, and the rows
//     0   4  3 (4: row numbers of 64 bits)
//     4   4  rows that aren't deleted
//     8   4  the length of the longest row or of the description; readers take their buffer from it
//    24   8  the size of the file
//    32   8  the place of the description: its length in 4 bytes, 4 bytes (4), the flags of the table in 4 bytes, the
//            number of columns in 2 bytes, the columns. The low byte of the flags is the kind of shape, bit 8 is set
//            where texts are UTF-8 (else UTF-16), bit 30 for M, bit 31 for Z.
//     A column is its name and its alias, each a count of characters in 1 byte and UTF-16; its type in 1 byte, as
//     `GdbColumn::Type` numbers them; then
//       text: the greatest length in 4 bytes, the flags in 1 byte, the length of the default value, seven bits a
//         byte, and the default value where bit 2 of the flags says that there is one
//       identifier, blob, XML: 1 byte, and the flags in 1 byte
//       shape: 1 byte, the flags in 1 byte, the length of the reference's text in 2 bytes, the text in UTF-16, and
//         1 byte with bit 1 for M and bit 2 for Z. Then doubles: the origins of x and y, the steps in a unit, origin
//         and steps for M and for Z where there are any, the tolerances of each, the extent in x and y, and in Z and
//         in M where the flags of the table have them. At last 1 byte, the number of cell sizes of the spatial index
//         in 4 bytes, and these as doubles
//       any other: the width in 1 byte, the flags in 1 byte, the length of the default value in 1 byte, the value
//     Bit 0 of the flags is set where the column may be null.
//     A row is its length in 4 bytes, one bit for each nullable column (set: null; bits to spare are set), then the
//     values that aren't null, in the order of the columns. Texts, shapes and blobs have their length in front, seven
//     bits a byte. The identifier isn't stored. A place that was given up holds the negative of its length.
//   .gdbtablx     where the rows are
//     0   4  3
//     4   4  pages that are in the file
//     8   4  the highest row number
//    12   4  bytes of an offset: 4, 5 or 6
//    16      the pages: 1024 offsets each, 0 where there is no row
//     after them 16 bytes: words of a bit map, pages in all, pages in the file, words in use; then the bit map, one
//     bit for each page that is in the file. No words: all pages are there.
//   .freelist     places that rows gave up, for rows to come; may be missing
//     Pages of 4096 bytes: entries in 4 bytes, the page before in 4 bytes, then for each its size (the length in front
//     included) in 4 bytes and its offset. At the end 344 bytes: 1, the first empty page, then the last page and the
//     number of pages of each class of sizes.
//   .gdbindexes   the indexes: their number in 4 bytes; of each its name, 12 bytes, its expression (a column, or
//                 "LOWER(column)"), 2 bytes. Names are a count in 4 bytes and UTF-16.
//   .NAME.atx     the index of that name: values with the row numbers they belong to
//   .spx          the same for the cells of shapes
//
// Table 1 is the catalogue: the name of table N is in its row N. Names that begin with "GDB_" are the geodatabase's
// own. GDB_Items has a row for each class, table and feature dataset, with its definition as XML;
// GDB_ItemRelationships tells by two identifiers what lies in what.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/raw_file.h"

namespace tessarine::engine {

// Of the header of a .gdbtable.
inline constexpr std::size_t kGdbHeaderSize = 40;
inline constexpr HeaderNumber kGdbLongestRow{8, 4}, kGdbFileSize{24, 8}, kGdbDescriptionPlace{32, 8};

struct GdbColumn {
  enum Type : std::uint8_t {
    kShort = 0,
    kLong = 1,
    kSingle = 2,
    kDouble = 3,
    kText = 4,
    kDate = 5,
    kOid = 6,
    kShape = 7,
    kBlob = 8,
    kRaster = 9,
    kGuid = 10,
    kGlobalId = 11,
    kXml = 12
  };
  std::string name;
  Type type = kShort;
  bool nullable = true;
  int null_bit = -1;  ///< the place among the nullable columns
};

/// The grid that coordinates are kept on: a coordinate is stored as (value - origin) * scale, which isn't negative.
struct GdbGrid {
  double x_origin = 0.0, y_origin = 0.0, xy_scale = 0.0;
};

struct GdbDescription {
  std::int64_t place = 0, size = 0;  ///< the length in front included
  bool utf8 = true;
  std::vector<GdbColumn> columns;  ///< in order; empty where anything isn't understood
  std::size_t null_bytes = 0;      ///< at the start of each row
  std::optional<GdbGrid> grid;     ///< of tables with shapes
};

[[nodiscard]] GdbDescription ReadGdbDescription(const RawFile& table);

/// The size of a column's value at the start of `bytes`, its length in front included; 0 where that can't be told.
[[nodiscard]] std::size_t GdbValueSize(GdbColumn::Type type, std::span<const char> bytes);

[[nodiscard]] bool IsGdbNull(std::span<const char> row, const GdbColumn& column);

/// The values of a row by column, as stored, without lengths in front; empty for null and for the identifier.
using GdbValues = std::vector<std::optional<std::string_view>>;
/// Empty where the row doesn't end with its last value.
[[nodiscard]] std::optional<GdbValues> SplitGdbRow(const GdbDescription& description, std::string_view row);
/// The same into values that many rows share one after the other, so that none costs memory of its own; false for
/// empty.
[[nodiscard]] bool SplitGdbRow(const GdbDescription& description, std::string_view row, GdbValues& values);

/// A stored text as UTF-8.
[[nodiscard]] std::string GdbText(const GdbDescription& description, std::string_view stored);
/// Pairs of bytes as UTF-8.
[[nodiscard]] std::string TextOfUtf16(std::span<const char> bytes);
/// The reverse; the text must be UTF-8.
[[nodiscard]] std::string Utf16OfText(std::string_view text);

/// The bytes of a length.
[[nodiscard]] std::string GdbLength(std::size_t length);

}  // namespace tessarine::engine
