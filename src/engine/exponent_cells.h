// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers of a dBASE table that have room with an exponent only, as -1.79769313486E+308 in a column of 20 places.
//
// Other programs write them so, and GDAL reads them; but it writes plain digits alone, cut off at the width. Such
// values stay null while GDAL writes the rows, and are put in their places when it is done.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine/ogr_source.h"

namespace tessarine::engine {

class ExponentCells {
 public:
  /// Makes these attributes of the feature null, and keeps their values.
  void TakeOut(OGRFeature& feature, std::span<const int> attributes);
  /// Gives the feature back what was taken out last, and remembers it for the row that GDAL has made of it.
  void PutBack(OGRFeature& feature);
  /// Writes the values into the table. No handle on it is open.
  void Write(const OgrSource& source);

 private:
  struct Cell {
    std::int64_t fid;
    int attribute;
    double value;
  };
  std::vector<Cell> taken_, cells_;
};

}  // namespace tessarine::engine
