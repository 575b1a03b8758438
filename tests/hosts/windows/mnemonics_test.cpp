// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/mnemonics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tessarine {
namespace {

struct LetterRow {
  const char* name;
  std::vector<MarkedCaption> captions;
  std::vector<const char*> shown;
};

class LettersTest : public ::testing::TestWithParam<LetterRow> {};

TEST_P(LettersTest, AreSharedOut) {
  std::vector<MarkedCaption> captions = GetParam().captions;
  ShareLetters(captions);
  std::vector<std::string> shown;
  for (const MarkedCaption& caption : captions) shown.push_back(caption.text.toStdString());
  EXPECT_THAT(shown, ::testing::ElementsAreArray(GetParam().shown));
}

INSTANTIATE_TEST_SUITE_P(
    Captions, LettersTest,
    ::testing::Values(LetterRow{"MarksStay", {{"&Layer", true}, {"Fie&lds", false}}, {"&Layer", "&Fields"}},
                      LetterRow{"ALaterDoubleGetsAnother", {{"&Type"}, {"&Tolerance", true}}, {"&Type", "T&olerance"}},
                      LetterRow{"AMarkComesBeforeAWish", {{"Layer", true}, {"&List"}}, {"L&ayer", "&List"}},
                      LetterRow{
                          "BeginningsOfWordsComeFirst", {{"&Area"}, {"All Fields", true}}, {"&Area", "All &Fields"}},
                      LetterRow{"NobodyIsForced", {{"OK"}, {"Units"}}, {"OK", "Units"}},
                      LetterRow{"NoneIsLeft", {{"&a"}, {"a", true}, {"&&", true}}, {"&a", "a", "&&"}},
                      LetterRow{"TheCharacterItselfIsNoMark", {{"A && B", true}, {"&Bend"}}, {"&A && B", "&Bend"}},
                      LetterRow{"LettersOfEveryKeyboard", {{"Öl", true}, {"Ärger 7", true}}, {"Ö&l", "Ärger &7"}}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tessarine
