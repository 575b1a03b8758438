// SPDX-License-Identifier: GPL-2.0-or-later
// The one-line status of a run.
#pragma once

#include <cstdint>
#include <string>

#include "platform/date.h"

namespace tessarine::MyGeneralOperations {

/// Prefix, record of total, share done and the estimated time left. Never fails: before the first record is done there
/// is no estimate, and the time left reads 0.
[[nodiscard]] std::string CalcTimeLeft(const std::string& prefix, double elapsed_seconds, std::int32_t done,
                                       std::int32_t total);
/// The same from the moment of the start, for callers that kept no steady time.
[[nodiscard]] std::string CalcTimeLeft(const std::string& prefix, Date start, std::int32_t done, std::int32_t total);

/// `done` of `total` as a percentage, rounded to two decimals; 0 for a total that isn't above 0.
[[nodiscard]] double PercentDone(std::int32_t done, std::int32_t total);

}  // namespace tessarine::MyGeneralOperations
