// SPDX-License-Identifier: GPL-2.0-or-later
// Whole numbers of more than 18 places in a dBASE table.
//
// GDAL reads such a column as doubles, which lose the last digits; here the digits themselves are read.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "engine/dbase_layout.h"
#include "engine/ogr_source.h"
#include "engine/raw_file.h"

namespace tessarine::engine {

/// A column that GDAL takes for one of doubles, of a dBASE table.
[[nodiscard]] bool IsWideWhole(const OGRFieldDefn& field);

class WideNumbers {
 public:
  /// Null where the table can't be found, isn't as the layer says, or has no such column.
  [[nodiscard]] static std::shared_ptr<const WideNumbers> Open(const OgrSource& source, OGRLayer& layer);

  [[nodiscard]] bool IsWide(int index) const { return wide_[static_cast<std::size_t>(index)]; }
  /// The number of a stored record; empty where it has a fraction or more than 64 bits.
  [[nodiscard]] std::optional<std::int64_t> Read(std::int64_t fid, int index) const;

 private:
  WideNumbers(std::unique_ptr<RawFile> file, DbaseLayout layout, std::vector<bool> wide)
      : file_(std::move(file)), layout_(std::move(layout)), wide_(std::move(wide)) {}

  std::unique_ptr<RawFile> file_;
  DbaseLayout layout_;
  std::vector<bool> wide_;
};

}  // namespace tessarine::engine
