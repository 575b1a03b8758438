// SPDX-License-Identifier: GPL-2.0-or-later
// Dates as the suite counts them: days since 30 December 1899, local time, with the time of day as the fraction.
#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace tessarine {

struct Date {
  static constexpr std::int16_t kNoZone = INT16_MIN;

  double serial = 0.0;
  std::int16_t zone = kNoZone;  ///< minutes that this clock is ahead of UTC, where the data tell them
  bool time_only = false;       ///< a time of day without a day: `serial` lies between 0 and 1

  auto operator<=>(const Date&) const = default;
};

struct DateParts {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
  int millisecond = 0;
  int weekday = 6;  ///< 0 is Sunday
};

/// The date of a civil day and time in the proleptic Gregorian calendar.
[[nodiscard]] Date MakeDate(int year, int month, int day, int hour = 0, int minute = 0, double second = 0.0);
/// The civil parts, rounded to the whole second.
[[nodiscard]] DateParts Split(Date date);
/// The civil parts, rounded to the thousandth of a second.
[[nodiscard]] DateParts SplitToMilliseconds(Date date);
/// "2026-11-21T09:05:07.250+01:00": without the fraction where it is 0, without a zone where none is known, and the
/// time alone for a time without a day.
[[nodiscard]] std::string IsoText(Date date);
/// Whole seconds from `begin` to `end`; both are rounded to the second first.
[[nodiscard]] std::int64_t SecondsBetween(Date begin, Date end);
[[nodiscard]] Date AddSeconds(Date date, double seconds);

}  // namespace tessarine
