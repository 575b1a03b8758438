// SPDX-License-Identifier: GPL-2.0-or-later
// What becomes of values that a column can't hold as they are.
#include "platform/value_fit.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "helpers/shapes.h"
#include "platform/calendar.h"
#include "platform/fault.h"
#include "platform/text_encoding.h"

namespace tessarine {
namespace {

using Kind = ColumnLimits::Kind;

ColumnLimits ColumnOf(Kind kind) {
  ColumnLimits column;
  column.kind = kind;
  return column;
}

ColumnLimits Places(int places) {
  ColumnLimits column = ColumnOf(Kind::Whole);
  column.LimitPlaces(places);
  return column;
}

ColumnLimits Decimals(int places, int behind_point) {
  ColumnLimits column = ColumnOf(Kind::Double);
  column.LimitDecimals(places, behind_point);
  return column;
}

ColumnLimits WithExponent(int places, int behind_point) {
  ColumnLimits column = Decimals(places, behind_point);
  column.takes_exponent = true;
  return column;
}

ColumnLimits SixteenBits() {
  ColumnLimits column = ColumnOf(Kind::Whole);
  column.least = -32768;
  column.most = 32767;
  return column;
}

struct Row {
  const char* what;
  Variant value;
  ColumnLimits column;
  Variant kept;
  ValueChange change = ValueChange::None;
};

void Expect(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    const FittedValue fitted = FitValue(row.value, row.column);
    EXPECT_EQ(fitted.change, row.change) << ValueChangeKey(fitted.change);
    EXPECT_EQ(fitted.value, row.kept) << (fitted.value.IsNull() ? "null" : fitted.value.AsText());
  }
}

TEST(ValueFit, WholeNumbersHaveRoomOrAreNull) {
  constexpr std::int64_t kLarge = 123456789012345678;
  Expect({
      {"64 bits", kLarge, ColumnOf(Kind::Whole), kLarge},
      {"64 bits as text", "123456789012345678", ColumnOf(Kind::Whole), kLarge},
      {"64 bits are no double", kLarge, ColumnOf(Kind::Double), Null{}, ValueChange::OutOfRange},
      {"2^53 is a double", std::int64_t{1} << 53, ColumnOf(Kind::Double), 9007199254740992.0},
      {"2^53 + 1 is none", (std::int64_t{1} << 53) + 1, ColumnOf(Kind::Double), Null{}, ValueChange::OutOfRange},
      {"the greatest is none", std::numeric_limits<std::int64_t>::max(), ColumnOf(Kind::Double), Null{},
       ValueChange::OutOfRange},
      {"16 bits", 32767, SixteenBits(), std::int64_t{32767}},
      {"one more", 32768, SixteenBits(), Null{}, ValueChange::OutOfRange},
      {"a double of 16 bits", -32768.0, SixteenBits(), std::int64_t{-32768}},
      {"rounded to the even one", 2.5, SixteenBits(), std::int64_t{2}, ValueChange::Rounded},
      {"far too large", 1e19, ColumnOf(Kind::Whole), Null{}, ValueChange::OutOfRange},
      {"-9999 in five places", std::int16_t{-9999}, Places(5), std::int64_t{-9999}},
      {"-9999 in four", std::int16_t{-9999}, Places(4), Null{}, ValueChange::OutOfRange},
      {"9999 in four", std::int16_t{9999}, Places(4), std::int64_t{9999}},
      {"no number", "twelve", Places(9), Null{}, ValueChange::Unreadable},
      {"nan", std::nan(""), Places(9), Null{}, ValueChange::NotFinite},
      {"null", Null{}, Places(9), Null{}},
      {"nothing", {}, Places(9), Null{}},
  });
}

TEST(ValueFit, RealNumbersKeepFifteenDigitsOrSayThatTheyDont) {
  Expect({
      {"infinity", HUGE_VAL, ColumnOf(Kind::Double), Null{}, ValueChange::NotFinite},
      {"the greatest double", 1.79769313486e+308, ColumnOf(Kind::Double), 1.79769313486e+308},
      {"it has no room", -1.79769313486e+308, Decimals(24, 15), Null{}, ValueChange::OutOfRange},
      {"it has some with an exponent", -1.79769313486e+308, WithExponent(19, 11), -1.79769313486e+308},
      {"but not for all its digits", -1.79769313486e+308, WithExponent(12, 4), Null{}, ValueChange::OutOfRange},
      {"1e-300 in decimals", 1e-300, Decimals(24, 15), 1e-300, ValueChange::Rounded},
      {"a third", 1.0 / 3.0, Decimals(24, 15), 1.0 / 3.0},
      {"a hundredth of a third", 1.0 / 300.0, Decimals(24, 15), 1.0 / 300.0, ValueChange::Rounded},
      {"two decimals", 12.25, Decimals(8, 2), 12.25},
      {"three in two", 12.125, Decimals(8, 2), 12.125, ValueChange::Rounded},
      {"fewer decimals where there is no room", 1234567.25, Decimals(10, 6), 1234567.25},
      {"too few", 12345678.125, Decimals(10, 6), 12345678.1, ValueChange::Rounded},
      {"no room before the point", 12345678901.0, Decimals(10, 6), Null{}, ValueChange::OutOfRange},
      {"a single", 0.5, ColumnOf(Kind::Single), 0.5},
      {"more than a single has", 1e39, ColumnOf(Kind::Single), Null{}, ValueChange::OutOfRange},
      {"a text", " 1,234.5 ", ColumnOf(Kind::Double), 1234.5},
  });
}

// By the digits that C prints.
TEST(ValueFit, NumbersAreRoundedWhereFifteenDigitsTellIt) {
  const auto printed = [](const char* format, int places, double value) {
    std::array<char, 400> room;
    const int size = std::snprintf(room.data(), room.size(), format, places, value);
    return std::string(room.data(), static_cast<std::size_t>(size));
  };
  const auto fitting = [&](double value, const ColumnLimits& column) {
    for (int decimals = column.decimals;; --decimals) {
      const std::string text = printed("%.*f", decimals, value);
      if (text.size() <= static_cast<std::size_t>(column.width)) return std::strtod(text.c_str(), nullptr);
    }
  };
  std::mt19937_64 random(20260723);
  std::uniform_real_distribution<double> exponent(-2.0, 8.9);
  int rounded = 0, kept = 0;
  for (int draw = 0; draw < 20000; ++draw) {
    const double size = std::pow(10.0, exponent(random));
    // Some lie beside a step of their fifteenth digit, or half a step.
    const double step = std::pow(10.0, std::floor(std::log10(size)) - 14.0) * (draw % 3 == 0 ? 0.5 : 1.0);
    const double near_step = std::round(size / step) * step;
    for (const double value : {size, -size, near_step, std::nextafter(near_step, 0.0)}) {
      for (const ColumnLimits& column : {Decimals(16, 12), Decimals(24, 15), Decimals(19, 11), Decimals(12, 4)}) {
        const double fitted = fitting(value, column);
        const bool same = printed("%.*e", 14, fitted) == printed("%.*e", 14, value) ||
                          std::fabs(fitted - value) <= 4e-16 * std::fabs(value);
        ++(same ? kept : rounded);
        ASSERT_EQ(FitValue(value, column).change, same ? ValueChange::None : ValueChange::Rounded)
            << printed("%.*e", 20, value) << " in " << column.width << " places, " << column.decimals << " decimals";
      }
    }
  }
  EXPECT_GT(rounded, 10000);
  EXPECT_GT(kept, 10000);
}

TEST(ValueFit, NumbersInColumnsHaveAllDecimalsThatHaveRoom) {
  constexpr int kDecimals = 12;
  const auto printed = [](double value, int decimals) {
    std::array<char, 400> room;
    const int size = std::snprintf(room.data(), room.size(), "%.*f", decimals, value);
    return std::string(room.data(), static_cast<std::size_t>(size));
  };
  std::mt19937_64 random(20260722);
  std::vector<double> values{0.0, -0.0, 0.5, 9.5, -9.5, 1e22, 1e23, -1e300, 99999999.99999999, -9999999.999999999};
  std::uniform_real_distribution<double> exponent(-3.0, 20.0);
  for (int draw = 0; draw < 2000; ++draw) {
    const double size = std::pow(10.0, exponent(random));
    // Just below a power of ten a number gains a digit by rounding.
    values.insert(values.end(), {size, -size, std::pow(10.0, draw % 19) - 1.0 / size});
  }
  for (const double value : values) {
    for (const std::size_t width : {1U, 2U, 9U, 16U, 24U}) {
      std::string expected;
      for (int decimals = kDecimals; decimals >= 0 && expected.empty(); --decimals) {
        if (printed(value, decimals).size() <= width) expected = printed(value, decimals);
      }
      std::array<char, 400> room;
      EXPECT_EQ(NumberInColumn(value, width, kDecimals, room), expected) << value << " in " << width;
      EXPECT_EQ(HasRoomInColumn(value, width), !expected.empty()) << value << " in " << width;
    }
  }
}

TEST(ValueFit, TextsAreCutBetweenCharacters) {
  ColumnLimits bytes, characters, unmarked;
  unmarked.keeps_mark = false;
  bytes.most_bytes = 4;
  characters.most_characters = 4;
  Expect({
      {"fits", "abcd", bytes, "abcd"},
      {"cut", "abcde", bytes, "abcd", ValueChange::TextCut},
      {"not within a character", "abc\xC3\xA9", bytes, "abc", ValueChange::TextCut},
      {"four characters", "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", characters, "\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9"},
      {"five", "\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xACx", characters,
       "\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC", ValueChange::TextCut},
      {"mark of byte order", "\xEF\xBB\xBFK", unmarked, "K", ValueChange::MarkDropped},
      {"kept mark of byte order", "\xEF\xBB\xBFK", ColumnLimits(), "\xEF\xBB\xBFK", ValueChange::None},
      {"Latin-1", "K\xF6ln", ColumnLimits(), "K\xC3\xB6ln", ValueChange::BadText},
      {"a number", std::int64_t{123456789012345678}, ColumnLimits(), "123456789012345678"},
      {"a number without all its decimals", 1.2345, characters, "1.23", ValueChange::Rounded},
      {"a number without decimals", 123.45, characters, "123", ValueChange::Rounded},
      {"a number whose whole part has room alone", 1234.5, characters, "1234", ValueChange::Rounded},
      {"the nearest number", 45.188, characters, "45.2", ValueChange::Rounded},
      {"one that lies next to a half", 1235.4999999999998, characters, "1235", ValueChange::Rounded},
      {"a number below 0 of which nothing is left", -0.04, characters, "0.0", ValueChange::Rounded},
      {"one that gets a digit more", 99.96, characters, "100", ValueChange::Rounded},
      {"a number too long", 12345.6, characters, Null{}, ValueChange::OutOfRange},
      {"a whole number too long", std::int64_t{12345}, bytes, Null{}, ValueChange::OutOfRange},
      {"the mark of no value", std::int16_t{-9999}, bytes, Null{}, ValueChange::OutOfRange},
      {"a power too long", 1e20, bytes, Null{}, ValueChange::OutOfRange},
      {"no number", std::nan(""), ColumnLimits(), Null{}, ValueChange::NotFinite},
      {"an object", std::make_shared<Point>(), ColumnLimits(), Null{}, ValueChange::Unreadable},
  });
}

TEST(ValueFit, TimesKeepWhatTheColumnHasRoomFor) {
  Date moment = MakeDate(2020, 5, 17, 12, 34, 56.789);
  Date zoned = moment, clock{0.5}, midnight = MakeDate(2020, 5, 17);
  zoned.zone = 90;
  clock.time_only = true;
  ColumnLimits plain = ColumnOf(Kind::DayAndTime);
  plain.keeps_zone = plain.keeps_fraction = false;
  Expect({
      {"all of it", zoned, ColumnOf(Kind::DayAndTime), zoned},
      {"no zone", zoned, plain, MakeDate(2020, 5, 17, 12, 34, 57), ValueChange::ZoneDropped},
      {"no fraction", moment, plain, MakeDate(2020, 5, 17, 12, 34, 57), ValueChange::Rounded},
      {"a day", midnight, ColumnOf(Kind::Day), midnight},
      {"the day of a moment", zoned, ColumnOf(Kind::Day), midnight, ValueChange::TimeDropped},
      {"a time of day", clock, ColumnOf(Kind::Time), clock},
      {"a time of day as text", clock, ColumnLimits(), "12:00:00"},
      {"a moment as text", zoned, ColumnLimits(), "2020-05-17T12:34:56.789+01:30"},
      {"a time of day is no day", clock, ColumnOf(Kind::Day), Null{}, ValueChange::Unreadable},
      {"a day is no time of day", midnight, ColumnOf(Kind::Time), Null{}, ValueChange::Unreadable},
      {"a time of day gets one", clock, plain, Date{0.5}, ValueChange::DayAdded},
      {"a serial number", 36526.75, ColumnOf(Kind::DayAndTime), MakeDate(2000, 1, 1, 18)},
      {"beyond the year 9999", 3e6, ColumnOf(Kind::DayAndTime), Null{}, ValueChange::OutOfRange},
      {"an impossible date", ImpossibleDate(), ColumnOf(Kind::Day), Null{}, ValueChange::Unreadable},
      {"an impossible date as text", ImpossibleDate(), ColumnLimits(), Null{}, ValueChange::Unreadable},
      {"an impossible date as a number", ImpossibleDate(), Places(9), Null{}, ValueChange::Unreadable},
      {"no date", "Whitsun", ColumnOf(Kind::Day), Null{}, ValueChange::Unreadable},
  });
  EXPECT_EQ(testing::FaultOf([] { (void)FitValue(1, ColumnOf(Kind::Unwritable)); }), kInvalidCall);
}

TEST(TextEncoding, TellsUtf8FromOtherBytes) {
  struct Bytes {
    std::string_view text;
    bool utf8;
  };
  for (const Bytes& row : {Bytes{"", true}, Bytes{"plain", true}, Bytes{"\xC3\xA9", true}, Bytes{"\xE2\x82\xAC", true},
                           Bytes{"\xF0\x9F\x98\x80", true}, Bytes{"\xE9t\xE9", false}, Bytes{"caf\xE9", false},
                           Bytes{"\xC0\xAF", false}, Bytes{"\xED\xA0\x80", false}, Bytes{"\xF4\x90\x80\x80", false},
                           Bytes{"\x80", false}, Bytes{"\xE2\x82", false}, Bytes{"\xE0\x80\x80", false}}) {
    EXPECT_EQ(IsUtf8(row.text), row.utf8) << Utf8FromLatin1(row.text);
  }
  EXPECT_EQ(Utf8FromLatin1("\xE9\xFF"
                           "A"),
            "\xC3\xA9\xC3\xBF"
            "A");
  EXPECT_EQ(CharacterCount("\xE2\x82\xAC 5"), 3U);
}

}  // namespace
}  // namespace tessarine
