// SPDX-License-Identifier: GPL-2.0-or-later
// Reading the small RTF subset and writing it out.
#include "platform/rich_text.h"

#include <gtest/gtest.h>

#include <string>

namespace tessarine {
namespace {

using Alignment = RichParagraph::Alignment;

std::string PlainOf(const std::string& rtf) { return ToPlainText(ReadRtf(rtf)); }

TEST(RichText, ReadsTheTextOfRtf) {
  struct Row {
    const char* what;
    std::string rtf, plain;
  };
  const Row rows[] = {
      {"words", R"({\rtf1 one two})", "one two"},
      {"paragraphs", R"({\rtf1 a\par b\par\par c\par})", "a\nb\n\nc"},
      {"line", R"({\rtf1 a\line b})", "a\nb"},
      {"tab", R"({\rtf1 a\tab b})", "a\tb"},
      {"line ends of the file mean nothing", "{\\rtf1 a\r\nb\nc}", "abc"},
      {"one blank ends a word, the next is text", R"({\rtf1 a\b  b\b0  c})", "a b c"},
      {"escapes", R"({\rtf1 \{a\}\\b\~c})", "{a}\\b\u00A0c"},
      {"code page 1252", R"({\rtf1 caf\'e9 \'80 \'93x\'94})", "café € “x”"},
      {"unicode with its substitute", R"({\rtf1 \u8364?5 \u233\'e9!})", "€5 é!"},
      {"no substitute", R"({\rtf1 {\uc0\u8364 5}\u8364?6})", "€5€6"},
      {"two substitutes", R"({\rtf1\uc2 \u8364EUR})", "€R"},
      {"surrogates", R"({\rtf1 \u-10179?\u-8704?})", "\U0001F600"},
      {"tables are passed over",
       R"({\rtf1{\fonttbl{\f0 Arial;}{\f1 Times;}}{\colortbl ;\red255;}{\*\generator Writer \par;}text})", "text"},
      {"unknown words", R"({\rtf1\viewkind4\lang1033\cf1 text})", "text"},
      {"plain text", "no rtf {\\b at all}\r\nsecond", "no rtf {\\b at all}\nsecond"},
      {"empty", "", ""},
  };
  for (const Row& row : rows) EXPECT_EQ(PlainOf(row.rtf), row.plain) << row.what;
}

TEST(RichText, DamagedTextNeverFails) {
  EXPECT_EQ(PlainOf("{\\rtf1 {{{ a"), " a");
  EXPECT_EQ(PlainOf("{\\rtf1 a}}}} b"), "a b");
  EXPECT_EQ(PlainOf("{\\rtf1 a\\"), "a");
  EXPECT_EQ(PlainOf("{\\rtf1 a\\'4"), "a4");
  EXPECT_EQ(PlainOf("{\\rtf1 a\\u8364"), "a€");
  EXPECT_EQ(PlainOf("{\\rtf"), "");
  // However short the text is cut, no font name comes to light.
  const std::string whole = R"({\rtf1{\fonttbl{\f0 A;}}\b x\b0\u8364?\'e9\qc{\i y}\par\{z})";
  for (std::size_t length = 6; length < whole.size(); ++length) {
    EXPECT_EQ(PlainOf(whole.substr(0, length)).find("A"), std::string::npos) << length;
  }
}

TEST(RichText, EmphasisAndSizesFollowTheGroups) {
  const RichText text = ReadRtf(R"({\rtf1\fs17 a{\b\ul b{\i\fs30 c}d}e\i1 f\plain g})");
  ASSERT_EQ(text.size(), 1U);
  const std::vector<RichRun> runs = {
      {"a", false, false, false, 17}, {"b", true, false, true, 17},   {"c", true, true, true, 30},
      {"d", true, false, true, 17},   {"e", false, false, false, 17}, {"f", false, true, false, 17},
      {"g", false, false, false, 24},
  };
  EXPECT_EQ(text[0].runs, runs);
}

TEST(RichText, AlignmentHoldsUntilTheNextReset) {
  const RichText text = ReadRtf(R"({\rtf1\qc a\par b\par\pard c\par\qr d\ql\par\qr e})");
  ASSERT_EQ(text.size(), 5U);
  const Alignment expected[] = {Alignment::Center, Alignment::Center, Alignment::Left, Alignment::Left,
                                Alignment::Right};
  for (std::size_t index = 0; index < 5; ++index) EXPECT_EQ(text[index].alignment, expected[index]) << index;
}

TEST(RichText, StylesheetsDoNotAlignTheText) {
  const RichText text = ReadRtf(R"({\rtf1{\stylesheet{\s1\qc Title;}}{\*\pn\qr;}text})");
  ASSERT_EQ(text.size(), 1U);
  EXPECT_EQ(text[0].alignment, Alignment::Left);
}

TEST(RichText, TerminalTextMarksEmphasisAndEndsIt) {
  EXPECT_EQ(ToTerminalText(ReadRtf(R"({\rtf1 a{\b b}\par{\i\ul c}})")), "a\033[1mb\033[0m\n\033[3m\033[4mc\033[0m");
}

TEST(RichText, HtmlEscapesWhatComesFromData) {
  const std::string html = ToHtml(ReadRtf(R"({\rtf1\qc\fs17{\b <script>"x" & y</script>}\par})"), "A & <B>");
  EXPECT_NE(html.find("<title>A &amp; &lt;B&gt;</title>"), std::string::npos);
  EXPECT_NE(html.find("&lt;script&gt;&quot;x&quot; &amp; y&lt;/script&gt;"), std::string::npos);
  EXPECT_EQ(html.find("<script>"), std::string::npos);
  EXPECT_NE(html.find("text-align: center"), std::string::npos);
  EXPECT_NE(html.find("8.5pt"), std::string::npos);
  EXPECT_NE(html.find("<b>"), std::string::npos);
}

TEST(RichText, EscapedTextComesBackWhole) {
  for (const char* text : {"plain", "{curly} \\back\\", "é€“ñ", "\U0001F600 mixed \u4E2D", "a\tb", "\\par {\\b x}"}) {
    EXPECT_EQ(PlainOf("{\\rtf1 " + EscapeRtf(text) + "}"), text);
    const std::string two_lines = std::string(text) + "\n\n" + text;
    EXPECT_EQ(PlainOf(PlainTextToRtf(two_lines)), two_lines);
  }
  // RTF is a 7-bit format: nothing outside ASCII stays, not even a damaged byte.
  for (const char c : EscapeRtf("é\xFF\xC3")) EXPECT_GE(c, 0);
  EXPECT_EQ(EscapeRtf("\xE2\x82\xAC"), "\\u8364?");
}

}  // namespace
}  // namespace tessarine
