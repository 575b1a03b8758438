// Dates as the suite counts them: days since 30 December 1899, local time, with the time of day as the fraction.
#pragma once

#include <compare>
#include <cstdint>

namespace tessarine {

struct Date {
  double serial = 0.0;

  auto operator<=>(const Date&) const = default;
};

struct DateParts {
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
  int weekday = 6;  ///< 0 is Sunday
};

/// The date of a civil day and time in the proleptic Gregorian calendar.
[[nodiscard]] Date MakeDate(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);
/// The civil parts, rounded to the whole second.
[[nodiscard]] DateParts Split(Date date);
/// Whole seconds from `begin` to `end`; both are rounded to the second first.
[[nodiscard]] std::int64_t SecondsBetween(Date begin, Date end);
[[nodiscard]] Date AddSeconds(Date date, double seconds);

}  // namespace tessarine
