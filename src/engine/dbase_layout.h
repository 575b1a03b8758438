// SPDX-License-Identifier: GPL-2.0-or-later
// The bytes of a dBASE table, as shapefiles have it. Numbers are little-endian.
//
//   header
//     0   1  version (3)
//     1   3  the day of the last change: years since 1900, month, day
//     4   4  records, deleted ones included
//     8   2  where the first record begins
//    10   2  the size of a record
//    32      the columns, 32 bytes each, then 0Dh
//             0  11  name, filled up with zeros
//            11   1  type: C text, N or F number, D day, L flag
//            16   1  width
//            17   1  decimals of a number; of anything else the upper byte of the width
//   records, each of the same size: a blank, or "*" for a deleted one, then the text of each column in its width.
//   Numbers stand at the right, texts at the left; blanks alone, or "*" throughout a number, are null. 1Ah, which may
//   be missing
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/ogr_source.h"
#include "engine/raw_file.h"

namespace tessarine::engine {

struct DbaseColumn {
  std::string name;
  char type = 'C';
  std::size_t offset = 0;  ///< in the record
  std::size_t width = 0;
  int decimals = 0;
};

struct DbaseLayout {
  std::int64_t first_record = 0;
  std::int64_t record_size = 0;
  std::int64_t record_count = 0;
  std::vector<DbaseColumn> columns;  ///< none where the header contradicts itself
};

inline constexpr std::size_t kDbaseHeaderSize = 32;
inline constexpr std::size_t kDbaseColumnSize = 32;
inline constexpr std::int64_t kDbaseDateAt = 1;
inline constexpr HeaderNumber kDbaseRecordCount{4, 4}, kDbaseFirstRecord{8, 2}, kDbaseRecordSize{10, 2};
// Within the description of a column.
inline constexpr std::size_t kDbaseNameSize = 11, kDbaseTypeAt = 11, kDbaseWidthAt = 16, kDbaseDecimalsAt = 17;

/// The table of a layer: beside its .shp, or in the folder that was opened. Empty when there is none.
[[nodiscard]] std::string FindDbaseTable(const OgrSource& source);

[[nodiscard]] DbaseLayout ReadDbaseLayout(const RawFile& file);

/// How many records of the table bear the mark of deleted ones. Reads a byte of each record, at the cost of reading
/// the table; a table that didn't change since the last call on it is not read again.
[[nodiscard]] std::int64_t CountDeletedRecords(const std::string& table);

/// The day as the header tells the one of the last change: years since 1900, month, day.
[[nodiscard]] std::array<char, 3> DbaseDate();

}  // namespace tessarine::engine
