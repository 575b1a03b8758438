// SPDX-License-Identifier: GPL-2.0-or-later
// dBASE tables: a header of 32 bytes, 32 bytes for each column, then records of one length, each with a deletion mark
// in front.
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

/// The table of a layer: beside its .shp, or in the folder that was opened. Empty when there is none.
[[nodiscard]] std::string FindDbaseTable(const OgrSource& source);

[[nodiscard]] DbaseLayout ReadDbaseLayout(const RawFile& file);

/// How many records of the table bear the mark of deleted ones. Reads a byte of each record, at the cost of reading
/// the table; a table that didn't change since the last call on it is not read again.
[[nodiscard]] std::int64_t CountDeletedRecords(const std::string& table);

/// The day as the header tells the one of the last change: years since 1900, month, day.
[[nodiscard]] std::array<char, 3> DbaseDate();

}  // namespace tessarine::engine
