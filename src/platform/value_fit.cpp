// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/value_fit.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "platform/calendar.h"
#include "platform/fault.h"
#include "platform/text_encoding.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using Kind = ColumnLimits::Kind;

// 1 January of the year 1, and of the year 10000.
constexpr double kFirstDay = -693593.0;
constexpr double kEndOfDays = 2958466.0;
constexpr int kWidestWhole = 18;
constexpr int kMostDigits = 16;

FittedValue Nulled(ValueChange change) { return {Null{}, change}; }

// Those that doubles hold.
constexpr std::array kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                     1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

double PowerOfTen(int exponent) {
  const bool is_listed = exponent >= 0 && exponent < static_cast<int>(kPowersOfTen.size());
  return is_listed ? kPowersOfTen[static_cast<std::size_t>(exponent)] : std::pow(10.0, exponent);
}

// Digits in front of the point: no number has fewer, whatever it is rounded to.
int WholeDigits(double value) {
  const double size = std::fabs(value);
  return 1 + static_cast<int>(std::upper_bound(kPowersOfTen.begin() + 1, kPowersOfTen.end(), size) -
                              (kPowersOfTen.begin() + 1));
}

// Whether two numbers have the same 15 digits.
bool ShowAlike(double first, double second) {
  constexpr int kBehindFirst = 14;
  std::array<char, 40> first_room, second_room;
  const auto text = [](double value, std::span<char> room) {
    const auto end =
        std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::scientific, kBehindFirst);
    return std::string_view(room.data(), static_cast<std::size_t>(end.ptr - room.data()));
  };
  return text(first, first_room) == text(second, second_room);
}

// --- Numbers -------------------------------------------------------------------------------------------------------

// A number of any kind as one: whole where it is, for whole numbers may have more digits than a double.
struct Number {
  std::optional<std::int64_t> whole;
  double value = 0.0;
};

std::optional<Number> NumberOf(const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::Single:
    case Variant::Kind::Double:
    case Variant::Kind::Date:
      return Number{std::nullopt, value.AsDouble()};
    case Variant::Kind::String: {
      if (!value.IsNumeric()) return std::nullopt;
      const double number = value.AsDouble();
      const bool has_fraction = value.Text().find_first_of(".eE") != std::string::npos;
      if (has_fraction || std::fabs(number) >= std::ldexp(1.0, 63)) return Number{std::nullopt, number};
      return Number{value.AsLongLong(), number};
    }
    case Variant::Kind::Boolean:
    case Variant::Kind::Short:
    case Variant::Kind::Long:
    case Variant::Kind::LongLong:
      return Number{value.AsLongLong(), value.AsDouble()};
    default:
      return std::nullopt;
  }
}

FittedValue FitWhole(const Number& number, const ColumnLimits& column) {
  std::int64_t whole = 0;
  ValueChange change = ValueChange::None;
  if (number.whole) {
    whole = *number.whole;
  } else {
    if (!(std::fabs(number.value) < std::ldexp(1.0, 63))) return Nulled(ValueChange::OutOfRange);
    whole = Variant(number.value).AsLongLong();
    if (static_cast<double>(whole) != number.value) change = ValueChange::Rounded;
  }
  if (whole < column.least || whole > column.most) return Nulled(ValueChange::OutOfRange);
  return {whole, change};
}

// A double's decimal text has 15 digits that mean something; numbers that agree in them are the same.
constexpr int kSoundDigits = 15;

bool AgreeInDigits(double first, double second) {
  const double apart = std::fabs(first - second), size = std::fabs(second);
  if (apart <= 4e-16 * size) return true;
  return apart <= 1e-14 * size && ShowAlike(first, second);
}

// The same for the double next to a number of so many decimals: where that has no more digits than mean something, it
// is one of those that 15 digits can show, and the value shows as it within half a step of them. Printing, which is
// dear, tells of values beside that limit alone.
bool AgreesWithDecimal(double decimal, double value, int decimals) {
  const double apart = std::fabs(decimal - value), size = std::fabs(value);
  const int whole_digits = WholeDigits(value);
  if (size >= 1.0 && whole_digits + decimals <= kSoundDigits) {
    const double half_step = 0.5 / PowerOfTen(kSoundDigits - whole_digits);
    // The double lies beside its decimal by half of its last place at most.
    const double rounding = 0.6 * std::numeric_limits<double>::epsilon() * size;
    if (apart < half_step - rounding) return true;
    if (apart > half_step + rounding) return false;
  }
  return AgreeInDigits(decimal, value);
}

// Of numbers that have fewer digits in all than a double.
double NearestDecimal(double value, int decimals) {
  const double unit = PowerOfTen(decimals), steps = std::nearbyint(value * unit);
  // The product is rounded, too, and may have come to lie on the other side of the half.
  const double rest = std::fma(value, unit, -steps);
  return (std::fabs(rest) > 0.5 ? steps + std::copysign(1.0, rest) : steps) / unit;
}

FittedValue FitDecimals(double value, const ColumnLimits& column) {
  if (std::fabs(value) < column.safe_below) {
    const bool same = AgreesWithDecimal(NearestDecimal(value, column.decimals), value, column.decimals);
    return {value, same ? ValueChange::None : ValueChange::Rounded};
  }
  std::array<char, 400> room;
  const std::string_view text = NumberInColumn(value, static_cast<std::size_t>(column.width), column.decimals, room);
  if (text.empty()) {
    const bool has_room =
        column.takes_exponent && !ExponentInColumn(value, static_cast<std::size_t>(column.width), room).empty();
    return has_room ? FittedValue{value} : Nulled(ValueChange::OutOfRange);
  }
  double fitted = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), fitted);
  const std::size_t point = text.find('.');
  const auto decimals = point == std::string_view::npos ? 0 : static_cast<int>(text.size() - point - 1);
  return {fitted, AgreesWithDecimal(fitted, value, decimals) ? ValueChange::None : ValueChange::Rounded};
}

FittedValue FitReal(const Number& number, const ColumnLimits& column) {
  if (!std::isfinite(number.value)) return Nulled(ValueChange::NotFinite);
  // 2^63 itself is a double, but no whole number of 64 bits.
  const bool exact =
      !number.whole || (number.value < std::ldexp(1.0, 63) && static_cast<std::int64_t>(number.value) == *number.whole);
  const bool too_far = column.farthest > 0.0 && std::fabs(number.value) > column.farthest;
  if (!exact || too_far) return Nulled(ValueChange::OutOfRange);
  if (column.kind == Kind::Single) {
    if (std::fabs(number.value) > static_cast<double>(std::numeric_limits<float>::max())) {
      return Nulled(ValueChange::OutOfRange);
    }
    const auto single = static_cast<double>(static_cast<float>(number.value));
    return {single, AgreeInDigits(single, number.value) ? ValueChange::None : ValueChange::Rounded};
  }
  return column.width > 0 ? FitDecimals(number.value, column) : FittedValue{number.value};
}

FittedValue FitNumber(const Variant& value, const ColumnLimits& column) {
  const std::optional<Number> number = NumberOf(value);
  if (!number) return Nulled(ValueChange::Unreadable);
  if (!std::isfinite(number->value)) return Nulled(ValueChange::NotFinite);
  return column.kind == Kind::Whole ? FitWhole(*number, column) : FitReal(*number, column);
}

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// --- Texts ---------------------------------------------------------------------------------------------------------

bool HasRoom(std::string_view text, const ColumnLimits& column) {
  return (column.most_bytes == 0 || FirstBytes(text, column.most_bytes).size() == text.size()) &&
         (column.most_characters == 0 || FirstCharacters(text, column.most_characters).size() == text.size()) &&
         (column.most_units == 0 || FirstUnits(text, column.most_units).size() == text.size());
}

// Digits after the point may go, others not: what is left would be another number.
FittedValue FitNumberAsText(const Variant& value, const ColumnLimits& column) {
  const std::string text = value.AsText();
  if (HasRoom(text, column)) return {text};
  const std::size_t point = text.find('.');
  if (point == std::string::npos || text.find_first_of("eE") != std::string::npos)
    return Nulled(ValueChange::OutOfRange);
  const double number = value.AsDouble();
  std::array<char, 400> room;
  for (auto decimals = static_cast<int>(text.size() - point) - 2; decimals >= 0; --decimals) {
    const auto end = std::to_chars(room.data(), room.data() + room.size(), number, std::chars_format::fixed, decimals);
    std::string kept(room.data(), end.ptr);
    if (kept.find_first_of("123456789") == std::string::npos && kept.front() == '-') kept.erase(0, 1);
    if (HasRoom(kept, column)) return {kept, ValueChange::Rounded};
  }
  return Nulled(ValueChange::OutOfRange);
}

FittedValue FitText(const Variant& value, const ColumnLimits& column) {
  FittedValue fitted;
  std::string text;
  switch (value.kind()) {
    case Variant::Kind::Object:
      return Nulled(ValueChange::Unreadable);
    case Variant::Kind::Date:
      text = IsoText(value.AsDate());
      break;
    case Variant::Kind::Single:
    case Variant::Kind::Double:
      if (!std::isfinite(value.AsDouble())) return Nulled(ValueChange::NotFinite);
      return FitNumberAsText(value, column);
    case Variant::Kind::Short:
    case Variant::Kind::Long:
    case Variant::Kind::LongLong:
      return FitNumberAsText(value, column);
    default:
      text = value.AsText();
  }
  if (!IsUtf8(text)) {
    text = Utf8FromLatin1(text);
    fitted.change = ValueChange::BadText;
  }
  if (!column.keeps_mark && text.starts_with(kByteOrderMark)) {
    while (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
    fitted.change = ValueChange::MarkDropped;
  }
  std::string_view kept = text;
  if (column.most_bytes > 0) kept = FirstBytes(kept, column.most_bytes);
  if (column.most_characters > 0) kept = FirstCharacters(kept, column.most_characters);
  if (column.most_units > 0) kept = FirstUnits(kept, column.most_units);
  if (kept.size() < text.size()) {
    text.resize(kept.size());
    fitted.change = ValueChange::TextCut;
  }
  fitted.value = std::move(text);
  return fitted;
}

// --- Dates ---------------------------------------------------------------------------------------------------------

// The time in whole seconds.
ValueChange DropFraction(Date& date) {
  if (SplitToMilliseconds(date).millisecond == 0) return ValueChange::None;
  date.serial = std::round(date.serial * 86400.0) / 86400.0;
  return ValueChange::Rounded;
}

FittedValue FitTimeOfDay(Date date, const ColumnLimits& column) {
  switch (column.kind) {
    case Kind::Day:
      return Nulled(ValueChange::Unreadable);
    case Kind::DayAndTime: {
      ValueChange change = ValueChange::DayAdded;
      date.time_only = false;
      if (!column.keeps_zone) date.zone = Date::kNoZone;
      if (!column.keeps_fraction) static_cast<void>(DropFraction(date));
      return {date, change};
    }
    default:
      return {date, column.keeps_fraction ? ValueChange::None : DropFraction(date)};
  }
}

FittedValue FitDay(Date date, const ColumnLimits& column) {
  if (!(date.serial >= kFirstDay && date.serial < kEndOfDays)) {
    return Nulled(std::isfinite(date.serial) ? ValueChange::OutOfRange : ValueChange::NotFinite);
  }
  if (column.kind == Kind::Time) return Nulled(ValueChange::Unreadable);
  const bool has_zone = date.zone != Date::kNoZone;
  if (column.kind == Kind::Day) {
    const DateParts parts = SplitToMilliseconds(date);
    const bool has_time = parts.hour + parts.minute + parts.second + parts.millisecond > 0;
    return {MakeDate(parts.year, parts.month, parts.day), has_time   ? ValueChange::TimeDropped
                                                          : has_zone ? ValueChange::ZoneDropped
                                                                     : ValueChange::None};
  }
  ValueChange change = column.keeps_fraction ? ValueChange::None : DropFraction(date);
  if (has_zone && !column.keeps_zone) {
    date.zone = Date::kNoZone;
    change = ValueChange::ZoneDropped;
  }
  return {date, change};
}

FittedValue FitDate(const Variant& value, const ColumnLimits& column) {
  if (value.kind() == Variant::Kind::Date) {
    const Date date = value.AsDate();
    return date.time_only ? FitTimeOfDay(date, column) : FitDay(date, column);
  }
  const std::optional<Number> number = NumberOf(value);
  return number ? FitDay({number->value}, column) : Nulled(ValueChange::Unreadable);
}

}  // namespace

void ColumnLimits::LimitPlaces(int places) {
  if (places <= 0 || places > kWidestWhole) return;
  const auto ones = [](int count) {
    std::int64_t number = 1;
    for (; count > 0; --count) number *= 10;
    return number - 1;
  };
  most = std::min(most, ones(places));
  least = std::max(least, -ones(places - 1));
}

void ColumnLimits::LimitDecimals(int most_places, int places_behind_point) {
  width = most_places;
  decimals = places_behind_point;
  // The sign and the point take a place each.
  safe_below = PowerOfTen(width - decimals - (decimals > 0 ? 2 : 1)) - 1.0;
}

FittedValue FitValue(const Variant& value, const ColumnLimits& column) {
  if (column.kind == Kind::Unwritable) Raise(kInvalidCall, "Such fields can't be written.");
  if (value.IsNull() || value.IsEmpty()) return {Null{}};
  if (value.kind() == Variant::Kind::Date && IsImpossible(value.AsDate())) return Nulled(ValueChange::Unreadable);
  switch (column.kind) {
    case Kind::Text:
      return FitText(value, column);
    case Kind::Day:
    case Kind::Time:
    case Kind::DayAndTime:
      return FitDate(value, column);
    default:
      return FitNumber(value, column);
  }
}

std::string_view ExponentInColumn(double value, std::size_t width, std::span<char> room) {
  for (int decimals = kMostDigits; decimals >= 0; --decimals) {
    const auto end =
        std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::scientific, decimals);
    const auto size = static_cast<std::size_t>(end.ptr - room.data());
    if (end.ec != std::errc() || size > width) continue;
    double written = 0.0;
    std::from_chars(room.data(), end.ptr, written);
    if (!AgreeInDigits(written, value)) return {};
    return {room.data(), size};
  }
  return {};
}

bool HasRoomInColumn(double value, std::size_t width) {
  const auto places = static_cast<int>(width) - (std::signbit(value) ? 1 : 0);
  // One less is the rounding's.
  if (places > 0 && std::fabs(value) < PowerOfTen(places) - 1.0) return true;
  std::array<char, 400> room;
  return !NumberInColumn(value, width, 0, room).empty();
}

std::string_view NumberInColumn(double value, std::size_t width, int decimals, std::span<char> room) {
  // More decimals than these have no room beside sign and point.
  const int most = static_cast<int>(width) - (std::signbit(value) ? 1 : 0) - WholeDigits(value) - 1;
  decimals = std::min(decimals, std::max(most, 0));
  for (; decimals >= 0; --decimals) {
    const auto end = std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed, decimals);
    const auto size = static_cast<std::size_t>(end.ptr - room.data());
    if (end.ec == std::errc() && size <= width) return {room.data(), size};
  }
  return {};
}

}  // namespace tessarine
