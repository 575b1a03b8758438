// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/clsMeasureCatalog.h"

#include <algorithm>

namespace tessarine {

std::vector<std::string> clsMeasureCatalog::Captions() const {
  std::vector<std::string> captions;
  for (const MeasureRow& row : AllMeasures()) {
    if (std::ranges::find(captions, row.caption) == captions.end()) captions.emplace_back(row.caption);
  }
  return captions;
}

}  // namespace tessarine
