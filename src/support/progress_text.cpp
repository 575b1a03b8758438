// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/progress_text.h"

#include <algorithm>
#include <cmath>

#include "platform/text_formats.h"

namespace tessarine::MyGeneralOperations {
namespace {

// Some thousand years; nobody reads an estimate beyond it.
constexpr double kLongest = 1e11;

}  // namespace

double PercentDone(std::int32_t done, std::int32_t total) {
  const float fraction = total > 0 ? static_cast<float>(done) / static_cast<float>(total) : 0.0F;
  return ToNumber(FixedText(static_cast<double>(fraction * 100.0F), 2));
}

std::string CalcTimeLeft(const std::string& prefix, double elapsed_seconds, std::int32_t done, std::int32_t total) {
  const double elapsed = std::floor(elapsed_seconds);
  const double estimate = done > 0 ? std::nearbyint(static_cast<double>(total) * elapsed / done) : elapsed;
  const auto left = static_cast<std::int64_t>(std::clamp(estimate - elapsed, -kLongest, kLongest));
  const std::int64_t hours = left / 3600;
  const std::int64_t minutes = left % 3600 / 60;
  return prefix + ".....[record #" + std::to_string(done) + " of " + std::to_string(total) + "  ---  " +
         NumberText(PercentDone(done, total)) + "%]....." + "Est. Time Left = " + std::to_string(hours) + ":" +
         TwoDigits(minutes) + ":" + TwoDigits(left % 60) + "...";
}

}  // namespace tessarine::MyGeneralOperations
