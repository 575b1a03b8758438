// SPDX-License-Identifier: GPL-2.0-or-later
// Key filters, number texts, sorting, elapsed times and the other small routines.
#include <gtest/gtest.h>

#include "helpers/fake_application.h"
#include "helpers/reported_faults.h"
#include "helpers/temporary_folder.h"
#include "helpers/test_host.h"
#include "platform/rich_text.h"
#include "support/MyGeneralOperations.h"
#include "support/QuickSort.h"

namespace tessarine::MyGeneralOperations {
namespace {

using testing::TestHost;

TEST(KeyFilterTest, RefusesWhatMakesNoNumber) {
  struct Row {
    const char* name;
    std::int32_t key;
    const char* text;
    std::int32_t caret;
    bool real, positive;
  };
  const Row rows[] = {
      {"backspace", 8, "1", 1, true, true},
      {"tab", 9, "1", 1, false, false},
      {"return", 13, "1", 1, false, false},
      {"plus", 43, "", 0, false, false},
      {"comma", 44, "1", 1, true, true},
      {"minus", 45, "", 0, true, false},
      {"slash", 47, "1", 1, false, false},
      {"zero", 48, "", 0, true, true},
      {"nine", 57, "1", 1, true, true},
      {"colon", 58, "1", 1, false, false},
      {"exponent letter", 'e', "1", 1, false, false},
      {"first point", 46, "15", 1, true, true},
      {"leading point", 46, "5", 0, true, true},
      {"second point", 46, "1.5", 3, false, false},
      {"second point ahead", 46, "1.5", 0, false, false},
      {"point alone", 46, "", 0, false, false},
      {"point behind a sign and digit", 46, "-5", 2, true, true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    Form form("keys");
    TextBox box(form, "box");
    box.SetText(row.text);
    box.SetSelStart(row.caret);
    std::int32_t key = row.key;
    CheckNumericReal(key, box);
    EXPECT_EQ(key, row.real ? row.key : 0);
    key = row.key;
    CheckNumericRealPositive(key, box);
    EXPECT_EQ(key, row.positive ? row.key : 0);
  }
}

TEST(NumberTextTest, TrimZerosAndDecimals) {
  struct Row {
    double number;
    const char* plain;
    const char* grouped;
  };
  const Row rows[] = {
      {0, "0", "0"},
      {2.5, "2.5", "2.5"},
      {3, "3", "3"},
      {100, "100", "100"},
      {-1200.25, "-1200.25", "-1,200.25"},
      {0.1, "0.1", "0.1"},
      {1234567.1, "1234567.1", "1,234,567.1"},
      {1.0 / 3.0, "0.333333333333333", "0.333333333333333"},
      {4e-16, "0", "0"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(TrimZerosAndDecimals(row.number, false), row.plain);
    EXPECT_EQ(TrimZerosAndDecimals(row.number, true), row.grouped);
  }
}

TEST(QuickSortTest, SortsTheRangeInBinaryOrder) {
  struct Row {
    const char* name;
    std::vector<std::string> before;
    std::int32_t first, last;
    std::vector<std::string> after;
  };
  const Row rows[] = {
      {"one element", {"b"}, 0, 0, {"b"}},
      {"nothing", {}, 0, -1, {}},
      {"capitals first, bytes after letters", {"b", "\xC3\xA4", "B", "a", ""}, 0, 4, {"", "B", "a", "b", "\xC3\xA4"}},
      {"equal texts", {"b", "a", "b", "a", "b"}, 0, 4, {"a", "a", "b", "b", "b"}},
      {"only the range", {"z", "d", "c", "b", "a"}, 1, 3, {"z", "b", "c", "d", "a"}},
      {"sorted already", {"10", "2", "30"}, 0, 2, {"10", "2", "30"}},
  };
  for (Row row : rows) {
    SCOPED_TRACE(row.name);
    QuickSort::StringsAscending(row.before, row.first, row.last);
    EXPECT_EQ(row.before, row.after);
  }
  std::vector<std::string> many;
  for (int i = 0; i < 5000; ++i) many.push_back(std::to_string(i * 7919 % 5000));
  QuickSort::StringsAscending(many, 0, 4999);
  EXPECT_TRUE(std::ranges::is_sorted(many));
}

TEST(QuickSortTest, ARangeOutsideTheListIsReported) {
  const TestHost host;
  const testing::ReportedFaults reported;
  std::vector<std::string> texts{"b", "a"};
  QuickSort::StringsAscending(texts, 0, 2);
  EXPECT_EQ(texts, (std::vector<std::string>{"b", "a"}));
  EXPECT_EQ(host.error_reports.size(), 1U);
}

TEST(ElapsedTimeTest, UnitsAndPlurals) {
  struct Row {
    double seconds;
    const char* text;
  };
  const Row rows[] = {
      {0, "0 seconds..."},
      {1, "1 second..."},
      {61, "1 minute, 1 second..."},
      {3600, "1 hour, 0 minutes, 0 seconds..."},
      {7325, "2 hours, 2 minutes, 5 seconds..."},
      {90061, "1 day, 1 hour, 1 minute, 1 second..."},
      {172800, "2 days, 0 hours, 0 minutes, 0 seconds..."},
  };
  const Date begin = MakeDate(2026, 3, 14, 9, 26, 53);
  for (const Row& row : rows) {
    const std::string text = ReturnTimeElapsed(begin, AddSeconds(begin, row.seconds));
    EXPECT_TRUE(text.ends_with(std::string("\r\nTime Elapsed: ") + row.text)) << text;
  }
  EXPECT_EQ(ReturnTimeElapsed(begin, AddSeconds(begin, 43200)),
            "Analysis Began: Saturday, March 14, 2026;  9:26:53 AM\r\n"
            "Analysis Complete: Saturday, March 14, 2026;  9:26:53 PM\r\n"
            "Time Elapsed: 12 hours, 0 minutes, 0 seconds...");
}

TEST(ElapsedTimeTest, TheRichTextBlockReadsTheSame) {
  const Date begin = MakeDate(2026, 11, 20, 23, 59, 59);
  const RichText text = ReadRtf("{\\rtf1 " + ReturnTimeElapsedRTF(begin, AddSeconds(begin, 1), 8) + "}");
  ASSERT_GE(text.size(), 3U);
  EXPECT_EQ(text[0].runs.front().half_points, 16);
  EXPECT_TRUE(text[0].runs.front().bold);
  const std::string plain = ToPlainText(text);
  EXPECT_NE(plain.find("Began:   Friday, November 20, 2026 at 11:59:59 PM"), std::string::npos) << plain;
  EXPECT_NE(plain.find("Complete:   Saturday, November 21, 2026 at 12:00:00 AM"), std::string::npos) << plain;
  EXPECT_NE(plain.find("Elapsed:   1 second..."), std::string::npos) << plain;
}

TEST(SpatialReferenceTest, ComparesAlsoNothing) {
  const auto wgs84 = SpatialReferenceEnvironment::CreateFromText("EPSG:4326");
  const auto again = SpatialReferenceEnvironment::CreateFromText("EPSG:4326");
  const auto utm = SpatialReferenceEnvironment::CreateFromText("EPSG:32612");
  EXPECT_TRUE(CompareSpatialReferences(nullptr, nullptr));
  EXPECT_FALSE(CompareSpatialReferences(wgs84, nullptr));
  EXPECT_FALSE(CompareSpatialReferences(nullptr, wgs84));
  EXPECT_TRUE(CompareSpatialReferences(wgs84, again));
  EXPECT_FALSE(CompareSpatialReferences(wgs84, utm));
}

TEST(SelectToolTest, WithoutADocumentTheToolIsReported) {
  const TestHost host;
  const testing::ReportedFaults reported;
  EnableSelectTool(nullptr);
  EnableSelectTool(std::make_shared<testing::FakeApplication>());
  EXPECT_EQ(host.error_reports.size(), 2U);
}

TEST(OpenDocTest, OpensWhatIsThereAndTellsWhatIsMissing) {
  TestHost host;
  const testing::TemporaryFolder folder;
  folder.Write("manual.pdf");
  OpenDoc(folder.Path("manual.pdf"));
  EXPECT_EQ(host.system.opened, std::vector<std::string>{folder.Path("manual.pdf")});
  EXPECT_TRUE(host.messages.shown.empty());

  OpenDoc(folder.Path("gone.pdf"));
  EXPECT_EQ(host.system.opened.size(), 1U);
  ASSERT_EQ(host.messages.shown.size(), 1U);
  EXPECT_EQ(host.messages.shown[0].title, "Missing File:");
  EXPECT_EQ(host.messages.shown[0].text,
            "Unable to find the following file:\r\n\r\n" + folder.Native("gone.pdf") + "\r\n\r\nBailing out...");
}

}  // namespace
}  // namespace tessarine::MyGeneralOperations
