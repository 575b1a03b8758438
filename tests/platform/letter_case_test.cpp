// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/letter_case.h"

#include <gtest/gtest.h>

namespace tessarine {
namespace {

TEST(LetterCase, TextsThatDifferInCaseFoldToTheSame) {
  struct Row {
    const char *first, *second;
    bool same;
  };
  constexpr Row kRows[] = {
      {"Ägypten", "ägypten", true},
      {"ŁÓDŹ", "łódź", true},
      {"ΟΔΟΣ", "οδος", true},
      {"οδος", "οδοσ", true},
      {"МОСКВА", "москва", true},
      {"ԵՐԵՎԱՆ", "երեւան", false},
      {"ԵՐԵՒԱՆ", "երեւան", true},
      {"ＡＢＣ", "ａｂｃ", true},
      {"Ȳ", "ȳ", true},
      {"I", "ı", false},
      {"İ", "i", false},
      {"a", "ä", false},
      {"東京", "東京", true},
      {"東京", "京東", false},
      {"\xE4gypten", "\xC4gypten", false},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(FoldedCase(row.first) == FoldedCase(row.second), row.same) << row.first << " " << row.second;
  }
}

}  // namespace
}  // namespace tessarine
