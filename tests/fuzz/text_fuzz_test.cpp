// SPDX-License-Identifier: GPL-2.0-or-later
// Damaged texts for the small readers: rich text, numbers, references. Whatever the bytes, there is a result or a
// fault.
#include <gtest/gtest.h>

#include <cmath>

#include "fuzz/mutator.h"
#include "platform/fault.h"
#include "platform/rich_text.h"
#include "platform/spatial_reference.h"
#include "platform/text_formats.h"

namespace tessarine::testing {
namespace {

constexpr int kTexts = 20000;

TEST(TextFuzz, RichTextIsAlwaysReadAndItsWritersEscapeIt) {
  Mutator mutator(
      {"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\r\n\\viewkind4\\uc1\\pard\\qc\\b\\f0\\fs16 "
       "Title \\'e9\\u8364?\\par\r\n\\pard  ** <a> & \"b\"\\b0\\par\r\n{\\*\\generator x;}\\i end\\i0\\line\\tab}",
       "plain text\r\nsecond <line>"},
      {"\\", "{", "}", "\\par", "\\u-1?", "\\u55357?\\u56832?", "\\'zz", "\\bin5", "\\fs99999", "\\uc9", "<", "&"});
  for (int round = 0; round < kTexts; ++round) {
    const std::string text = mutator.Next();
    const RichText read = ReadRtf(text);
    const std::string html = ToHtml(read, "title");
    // No character of the data may open a tag of its own.
    const std::size_t script = html.find("<a>");
    EXPECT_EQ(script, std::string::npos) << text;
    (void)ToPlainText(read);
  }
}

TEST(TextFuzz, NumbersAreReadOrRefused) {
  Mutator mutator({"-1,234.5e-7", "  0.000001", "+12", "1e308", "123456789012345678901234567890"},
                  {"e", "E", "-", "+", ".", ",", " ", "9", "0000", "inf", "nan", "0x1p3", "e999", "e-999", "&H10"});
  int read = 0;
  for (int round = 0; round < kTexts; ++round) {
    const std::string text = mutator.Next();
    try {
      EXPECT_TRUE(std::isfinite(ToNumber(text))) << text;
      EXPECT_TRUE(IsNumericText(text)) << text;
      ++read;
    } catch (const Fault& fault) {
      EXPECT_TRUE(fault.Number() == kTypeMismatch || fault.Number() == kOverflow) << text;
    }
  }
  EXPECT_GT(read, 1000);
}

TEST(TextFuzz, ReferencesAreReadOrRefused) {
  Mutator mutator({"GEOGCS[\"GCS_WGS_1984\",DATUM[\"D_WGS_1984\",SPHEROID[\"WGS_1984\",6378137.0,298.257223563]],"
                   "PRIMEM[\"Greenwich\",0.0],UNIT[\"Degree\",0.0174532925199433]]",
                   "EPSG:32633", "+proj=utm +zone=33 +ellps=GRS80"},
                  {"[", "]", "\"", ",", "GEOGCS", "PROJCS", "UNIT", "0", "-1", "1e400", "+proj=", "EPSG:", "\xFF"});
  for (int round = 0; round < 1500; ++round) {
    const std::string text = mutator.Next();
    try {
      EXPECT_NE(SpatialReferenceEnvironment::CreateFromText(text), nullptr) << text;
    } catch (const Fault& fault) {
      EXPECT_FALSE(fault.Description().empty());
    }
  }
}

}  // namespace
}  // namespace tessarine::testing
