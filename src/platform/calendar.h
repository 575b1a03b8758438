// SPDX-License-Identifier: GPL-2.0-or-later
// Dates that the data give and no calendar knows, as the 31st of February.
#pragma once

#include <cmath>
#include <limits>

#include "platform/date.h"

namespace tessarine {

/// Whether the proleptic Gregorian calendar has this day.
[[nodiscard]] bool IsCalendarDay(int year, int month, int day);

/// What stands for such a date: its `serial` is no number. No column keeps it.
[[nodiscard]] inline Date ImpossibleDate() { return {std::numeric_limits<double>::quiet_NaN()}; }
[[nodiscard]] inline bool IsImpossible(Date date) { return std::isnan(date.serial); }

}  // namespace tessarine
