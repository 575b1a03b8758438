// The one-line status of a run.
#pragma once

#include <cstdint>
#include <string>

#include "platform/date.h"

namespace tessarine::MyGeneralOperations {

/// Prefix, record of total, share done and the estimated time left. Fault 6 when the estimate overflows 32 bits.
[[nodiscard]] std::string CalcTimeLeft(const std::string& prefix, Date start, std::int32_t done, std::int32_t total);

/// `done` of `total` as a percentage, rounded to two decimals; 0 for a total that isn't above 0.
[[nodiscard]] double PercentDone(std::int32_t done, std::int32_t total);

}  // namespace tessarine::MyGeneralOperations
