// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/date.h"

#include <cmath>
#include <cstdlib>

#include "platform/calendar.h"

namespace tessarine {
namespace {

constexpr double kSecondsPerDay = 86400.0;
// Days from 1 January 1970 to 30 December 1899.
constexpr std::int64_t kSerialEpoch = -25569;

// Days since 1 January 1970 of a civil day: shifted years that begin in March make the leap day the last one.
std::int64_t DaysFromCivil(std::int64_t year, int month, int day) {
  year -= month <= 2 ? 1 : 0;
  const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
  const std::int64_t year_of_era = year - era * 400;
  const std::int64_t day_of_year = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  return era * 146097 + year_of_era * 365 + year_of_era / 4 - year_of_era / 100 + day_of_year - 719468;
}

std::int64_t WholeSeconds(Date date) { return std::llround(date.serial * kSecondsPerDay); }

std::int64_t FloorDivide(std::int64_t value, std::int64_t divisor) {
  return value / divisor - (value % divisor < 0 ? 1 : 0);
}

DateParts PartsOf(std::int64_t seconds) {
  const std::int64_t serial_day = FloorDivide(seconds, 86400);
  const auto second_of_day = static_cast<int>(seconds - serial_day * 86400);
  const std::int64_t days = serial_day + kSerialEpoch + 719468;
  const std::int64_t era = FloorDivide(days, 146097);
  const std::int64_t day_of_era = days - era * 146097;
  const std::int64_t year_of_era = (day_of_era - day_of_era / 1460 + day_of_era / 36524 - day_of_era / 146096) / 365;
  const std::int64_t day_of_year = day_of_era - (365 * year_of_era + year_of_era / 4 - year_of_era / 100);
  const std::int64_t shifted_month = (5 * day_of_year + 2) / 153;

  DateParts parts;
  parts.day = static_cast<int>(day_of_year - (153 * shifted_month + 2) / 5 + 1);
  parts.month = static_cast<int>(shifted_month < 10 ? shifted_month + 3 : shifted_month - 9);
  parts.year = static_cast<int>(year_of_era + era * 400 + (parts.month <= 2 ? 1 : 0));
  parts.hour = second_of_day / 3600;
  parts.minute = second_of_day / 60 % 60;
  parts.second = second_of_day % 60;
  // 30 December 1899 was a Saturday.
  parts.weekday = static_cast<int>(((serial_day % 7) + 7 + 6) % 7);
  return parts;
}

}  // namespace

bool IsCalendarDay(int year, int month, int day) {
  if (month < 1 || month > 12 || day < 1) return false;
  const std::int64_t after = month == 12 ? DaysFromCivil(year + 1LL, 1, 1) : DaysFromCivil(year, month + 1, 1);
  return day <= after - DaysFromCivil(year, month, 1);
}

Date MakeDate(int year, int month, int day, int hour, int minute, double second) {
  const std::int64_t days = DaysFromCivil(year, month, day) - kSerialEpoch;
  return {static_cast<double>(days) + (hour * 3600 + minute * 60 + second) / kSecondsPerDay};
}

DateParts Split(Date date) { return PartsOf(WholeSeconds(date)); }

DateParts SplitToMilliseconds(Date date) {
  const std::int64_t milliseconds = std::llround(date.serial * kSecondsPerDay * 1000.0);
  const std::int64_t seconds = FloorDivide(milliseconds, 1000);
  DateParts parts = PartsOf(seconds);
  parts.millisecond = static_cast<int>(milliseconds - seconds * 1000);
  return parts;
}

std::string IsoText(Date date) {
  if (IsImpossible(date)) return "";
  const DateParts parts = SplitToMilliseconds(date);
  const auto padded = [](int value, std::size_t width) {
    std::string digits = std::to_string(std::abs(value));
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return (value < 0 ? "-" : "") + digits;
  };
  std::string text;
  if (!date.time_only) text = padded(parts.year, 4) + "-" + padded(parts.month, 2) + "-" + padded(parts.day, 2) + "T";
  text += padded(parts.hour, 2) + ":" + padded(parts.minute, 2) + ":" + padded(parts.second, 2);
  if (parts.millisecond != 0) text += "." + padded(parts.millisecond, 3);
  if (date.zone == Date::kNoZone) return text;
  if (date.zone == 0) return text + "Z";
  return text + (date.zone < 0 ? "-" : "+") + padded(std::abs(date.zone) / 60, 2) + ":" +
         padded(std::abs(date.zone) % 60, 2);
}

std::int64_t SecondsBetween(Date begin, Date end) { return WholeSeconds(end) - WholeSeconds(begin); }

Date AddSeconds(Date date, double seconds) {
  date.serial += seconds / kSecondsPerDay;
  return date;
}

}  // namespace tessarine
