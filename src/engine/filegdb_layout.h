// The columns of a table of a file geodatabase, as its own header tells them.
//
// A row is its length in 4 bytes, one bit for each nullable column (set: null), then the values that aren't null, in
// the order of the columns. Texts, shapes and blobs have their length in front, seven bits a byte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "engine/raw_file.h"

namespace tessarine::engine {

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

/// The columns in order; empty where the header tells anything that isn't understood.
[[nodiscard]] std::vector<GdbColumn> ReadGdbColumns(const RawFile& table);

/// The size of a column's value at the start of `bytes`, its length in front included; 0 where that can't be told.
[[nodiscard]] std::size_t GdbValueSize(GdbColumn::Type type, std::span<const char> bytes);

/// The bytes of a length.
[[nodiscard]] std::string GdbLength(std::size_t length);

}  // namespace tessarine::engine
