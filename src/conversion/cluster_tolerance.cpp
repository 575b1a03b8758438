// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/cluster_tolerance.h"

#include "platform/text_formats.h"

namespace tessarine {

std::string ProposedClusterTolerance(const SpatialReference& reference) {
  constexpr double kPlainTolerance = 0.0001;
  constexpr int kDecimals = 13;
  std::string text = FixedText(reference.XYToleranceValid() ? reference.XYTolerance() : kPlainTolerance, kDecimals);
  while (text.ends_with('0')) text.pop_back();
  if (text.ends_with('.')) text.pop_back();
  return text;
}

}  // namespace tessarine
