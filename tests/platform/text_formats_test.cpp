// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers, dates and letters as text.
#include "platform/text_formats.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cstdlib>
#include <set>
#include <string>

#include "helpers/shapes.h"
#include "platform/free_name.h"

namespace tessarine {
namespace {

using testing::FaultOf;

struct NumberRow {
  double value;
  const char* text;
};

TEST(TextFormats, NumbersInRunningText) {
  const NumberRow rows[] = {
      {0.0, "0"},
      {-0.0, "0"},
      {7.0, "7"},
      {-1.5, "-1.5"},
      {0.1 + 0.2, "0.3"},
      {1.0 / 3.0, "0.333333333333333"},
      {-2.0 / 3.0, "-0.666666666666667"},
      {1e-5, "0.00001"},
      {1e-15, "0.000000000000001"},
      {1e-16, "1E-16"},
      {1.0 / 3e6, "3.33333333333333E-07"},
      {123456789012345.0, "123456789012345"},
      {1234567890123456.0, "1.23456789012346E+15"},
      {999999999999999.9, "1E+15"},
      {1e20, "1E+20"},
      {-1.5e300, "-1.5E+300"},
      {6378137.0, "6378137"},
      {6356752.31424518, "6356752.31424518"},
  };
  for (const NumberRow& row : rows) EXPECT_EQ(NumberText(row.value), row.text) << row.value;
}

TEST(TextFormats, ExactNumbersReadBackAsTheSameDouble) {
  EXPECT_EQ(ExactNumberText(0.1), "0.1");
  for (const double value : {1.0 / 3.0, 6356752.314245179, DBL_MAX, DBL_MIN, 5e-324, -0.1 - 0.2}) {
    // The C library is the other reader.
    EXPECT_EQ(std::strtod(ExactNumberText(value).c_str(), nullptr), value);
    EXPECT_EQ(ToNumber(ExactNumberText(value)), value);
  }
}

TEST(TextFormats, FixedDecimalsRoundHalvesAwayFromZero) {
  struct Row {
    double value;
    int decimals;
    bool thousands;
    const char* text;
  };
  const Row rows[] = {
      {2.5, 0, false, "3"},
      {0.5, 0, false, "1"},
      {-0.5, 0, false, "-1"},
      {-0.4, 0, false, "0"},
      {1.005, 2, false, "1.01"},
      {0.05, 1, false, "0.1"},
      {0.049, 1, false, "0.0"},
      {0.001, 2, false, "0.00"},
      {99.96, 1, false, "100.0"},
      {123.0, 2, false, "123.00"},
      {123456.123456789, 8, false, "123456.12345679"},
      {999.0, 0, true, "999"},
      {999.995, 2, true, "1,000.00"},
      {-1234.5, 0, true, "-1,235"},
      {1234567.891, 2, true, "1,234,567.89"},
      {1e20, 0, true, "100,000,000,000,000,000,000"},
  };
  for (const Row& row : rows) EXPECT_EQ(FixedText(row.value, row.decimals, row.thousands), row.text) << row.value;
  EXPECT_EQ(TwoDigits(0), "00");
  EXPECT_EQ(TwoDigits(9), "09");
  EXPECT_EQ(TwoDigits(123), "123");
  EXPECT_EQ(TwoDigits(-5), "-05");
}

TEST(TextFormats, ReadsNumbers) {
  struct Row {
    std::string text;
    double value;
  };
  const Row rows[] = {
      {"1", 1.0},
      {" -1.5\t", -1.5},
      {"+.5", 0.5},
      {"5.", 5.0},
      {"- 3", -3.0},
      {"1,234.5", 1234.5},
      {"1e5", 1e5},
      {"1.5E+05", 1.5e5},
      {"1e-400", 0.0},
      {"007", 7.0},
      {"-0", 0.0},
      {"1.7976931348623157e308", DBL_MAX},
      {"0." + std::string(400, '0') + "1", 0.0},
  };
  for (const Row& row : rows) {
    EXPECT_TRUE(IsNumericText(row.text)) << row.text;
    EXPECT_EQ(FaultOf([&] { EXPECT_EQ(ToNumber(row.text), row.value); }), 0) << row.text;
  }
}

TEST(TextFormats, RefusesWhatIsNoNumber) {
  for (const char* text : {"", " ", ".", "-", "+-1", "e5", "1e", "1e+", "1.2.3", "1 2", "0x10", "1-", "inf", "nan",
                           "-inf", "1,2e3,4", "12abc", "\xD9\xA1"}) {
    EXPECT_FALSE(IsNumericText(text)) << text;
    EXPECT_EQ(FaultOf([&] { (void)ToNumber(text); }), kTypeMismatch) << text;
  }
  const std::string many_nines(400, '9');
  EXPECT_EQ(FaultOf([] { (void)ToNumber("1e400"); }), kOverflow);
  EXPECT_EQ(FaultOf([&] { (void)ToNumber(many_nines); }), kOverflow);
  EXPECT_EQ(FaultOf([&] { (void)ToNumber(many_nines + "e-5"); }), kOverflow);
}

// Serial days as spreadsheets count them, and the epoch of the modified Julian day.
TEST(TextFormats, CivilDatesAndSerialDays) {
  struct Row {
    int year, month, day;
    double serial;
    int weekday;
  };
  const Row rows[] = {
      {1899, 12, 30, 0.0, 6},     {1900, 2, 28, 60.0, 3},      {1900, 3, 1, 61.0, 4},
      {1970, 1, 1, 25569.0, 4},   {2000, 1, 1, 36526.0, 6},    {2000, 2, 29, 36585.0, 2},
      {2026, 11, 21, 46347.0, 6}, {1858, 11, 17, -15018.0, 3}, {9999, 12, 31, 2958465.0, 5},
  };
  for (const Row& row : rows) {
    const Date date = MakeDate(row.year, row.month, row.day);
    EXPECT_EQ(date.serial, row.serial) << row.year << "-" << row.month;
    const DateParts parts = Split(MakeDate(row.year, row.month, row.day, 23, 59, 58));
    EXPECT_EQ(parts.year, row.year);
    EXPECT_EQ(parts.month, row.month);
    EXPECT_EQ(parts.day, row.day);
    EXPECT_EQ(parts.hour * 10000 + parts.minute * 100 + parts.second, 235958) << row.year;
    EXPECT_EQ(parts.weekday, row.weekday) << row.year << "-" << row.month;
  }
}

TEST(TextFormats, TimeRoundsToTheSecondAndCountsSeconds) {
  EXPECT_EQ(Split({36526.5}).hour, 12);
  EXPECT_EQ(Split({36525.9999999}).day, 1);
  EXPECT_EQ(Split({36525.9999999}).hour, 0);
  const Date begin = MakeDate(2024, 2, 28, 23, 59, 59);
  EXPECT_EQ(SecondsBetween(begin, MakeDate(2024, 3, 1)), 86401);
  EXPECT_EQ(SecondsBetween(MakeDate(2024, 3, 1), begin), -86401);
  EXPECT_EQ(Split(AddSeconds(begin, 1.0)).day, 29);
  EXPECT_EQ(SecondsBetween(begin, AddSeconds(begin, 0.4)), 0);
}

TEST(TextFormats, DateTexts) {
  const Date evening = MakeDate(2026, 11, 21, 21, 5, 7);
  EXPECT_EQ(ShortDate(evening), "11/21/2026");
  EXPECT_EQ(LongTime(evening), "9:05:07 PM");
  EXPECT_EQ(LongDate(evening), "Saturday, November 21, 2026");
  EXPECT_EQ(LongDate(MakeDate(2000, 2, 1)), "Tuesday, February 01, 2000");
  EXPECT_EQ(LongTime(MakeDate(2000, 1, 1)), "12:00:00 AM");
  EXPECT_EQ(LongTime(MakeDate(2000, 1, 1, 12)), "12:00:00 PM");
  EXPECT_EQ(LongTime(MakeDate(2000, 1, 1, 11, 59, 59)), "11:59:59 AM");
}

TEST(FreeNames, NumbersBeginBehindTheNameItself) {
  const std::set<std::string> names = {"Roads",      "Roads_2",    "Roads (2)", "Roads (3)",
                                       "LongName10", "LongName12", "Shape",     "Shape_"};
  const auto taken = [&](const std::string& name) { return names.contains(name); };
  EXPECT_EQ(FirstFree("Rivers", taken), "Rivers");
  EXPECT_EQ(FirstFree("Roads", taken), "Roads_3");
  EXPECT_EQ(FirstFreeTitle("Roads", taken), "Roads (4)");
  EXPECT_EQ(FirstFreeWithin(10, "LongName10", taken), "LongName13");
  EXPECT_EQ(FirstFreeWithin(11, "LongName10", taken), "LongName102");
  EXPECT_EQ(FirstFreeOfOwn("Shape", taken), "Shape__");
}

TEST(TextFormats, LettersOutsideAsciiStay) {
  EXPECT_EQ(LowerCase("ÄBC-Z[\\"), "Äbc-z[\\");
  EXPECT_TRUE(EqualsIgnoringCase("Roads.SHP", "rOADS.shp"));
  EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
  EXPECT_FALSE(EqualsIgnoringCase("abc", "abcd"));
  EXPECT_TRUE(EndsWithIgnoringCase("C:\\X.GDB", ".gdb"));
  EXPECT_FALSE(EndsWithIgnoringCase("gdb", ".gdb"));
  EXPECT_EQ(Replace("zzzz", "zz", "z"), "zz");
  EXPECT_EQ(Replace("a", "", "b"), "a");
  EXPECT_EQ(Replace("aXbX", "X", ""), "ab");
  EXPECT_EQ(Trim(" \t\r\n a b \n"), "a b");
  EXPECT_EQ(Trim(" \t"), "");
}

}  // namespace
}  // namespace tessarine
