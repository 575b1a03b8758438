// SPDX-License-Identifier: GPL-2.0-or-later
#include "session/ErrorHandling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "helpers/reported_faults.h"
#include "helpers/test_host.h"
#include "platform/run_scope.h"

namespace tessarine::ErrorHandling {
namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;
using testing::TestHost;

const std::string kOpening = "Record Call Stack Sequence - Bottom line is error line.\r\n\r\n";
const std::string kNumberBlock = "Error Number \r\n\t11\r\nDescription\r\n\tDivision by zero.\r\n\r\n";
const std::string kVersion = std::string("Tessarine Tools v. ") + TESSARINE_VERSION + ":  ";

void Report(bool top, const std::string& procedure, const std::string& description, std::int32_t form = 4) {
  HandleError(top, procedure, 11, "Test", description, form, 0);
}

// The description of the fault that a procedure hands on.
std::string HandedOn(const std::string& procedure, const std::string& description) {
  try {
    Report(false, procedure, description);
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.Number(), 11);
    EXPECT_EQ(fault.Source(), "Test");
    return fault.Description();
  }
  ADD_FAILURE() << "the fault was not raised again";
  return "";
}

TEST(HandleErrorTest, AFaultOfTheTopProcedureHasTheHeaderAndOneLine) {
  const TestHost host;
  Report(true, "Save x.cpp Line : 7", "Division by zero.");
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_EQ(host.error_reports[0], kOpening + "\tSave x.cpp Line : 7\r\n\r\n" + kVersion + kNumberBlock);
}

TEST(HandleErrorTest, LinesGoOnTopAndTheNumberStandsOnce) {
  const TestHost host;
  const std::string deepest = HandedOn("Deep a.cpp Line : 3", "Division by zero.");
  EXPECT_EQ(deepest, "\tDeep a.cpp Line : 3\r\n" + kNumberBlock);
  const std::string middle = HandedOn("Middle b.cpp ", deepest);
  Report(true, "Top c.cpp ", middle);
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_EQ(host.error_reports[0],
            kOpening + "\tTop c.cpp \r\n\tMiddle b.cpp \r\n\tDeep a.cpp Line : 3\r\n" + kNumberBlock);

  Report(true, "Next d.cpp ", "Division by zero.");
  ASSERT_EQ(host.error_reports.size(), 2U);
  EXPECT_EQ(host.error_reports[1], kOpening + "\tNext d.cpp \r\n\r\n" + kVersion + kNumberBlock) << "a fresh header";
}

TEST(HandleErrorTest, TheOtherReportForms) {
  TestHost host;
  const std::string opening =
      "An error has occured in the application.   Record the call stack sequence\r\nand the description of the "
      "error.\r\n\r\nError Call Stack Sequence \r\n\tSave x.cpp \r\n\r\n";
  for (const std::int32_t form : {1, 2, 9}) Report(true, "Save x.cpp ", "Division by zero.", form);
  ASSERT_EQ(host.messages.shown.size(), 3U);
  for (const auto& message : host.messages.shown) {
    EXPECT_EQ(message.title, "Unexpected Program Error");
    EXPECT_EQ(message.text, opening + kVersion + kNumberBlock);
  }
  host.messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
  EXPECT_NO_THROW(Report(true, "Save x.cpp ", "Division by zero.", 3));
  try {
    Report(true, "Save x.cpp ", "Division by zero.", 3);
    FAIL() << "Yes raises the fault again";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.Number(), 11);
    EXPECT_THAT(fault.Description(), StartsWith("\tSave x.cpp \r\n"));
  }
  EXPECT_TRUE(host.error_reports.empty());
}

TEST(HandleErrorTest, TrapsReportTheirProcedures) {
  const TestHost host;
  const testing::ReportedFaults reported;
  const int result = Trap(
      "Outer", [] { return TrapAndPassOn("Inner", []() -> int { Raise(kDivisionByZero, "Division by zero."); }); });
  EXPECT_EQ(result, 0);
  ASSERT_EQ(host.error_reports.size(), 1U);
  EXPECT_THAT(host.error_reports[0],
              MatchesRegex("[^\t]*\tOuter [^\r]*error_handling_test.cpp Line : [0-9]+\r\n\tInner "
                           "[^\r]*error_handling_test.cpp Line : [0-9]+\r\nError Number "
                           "\r\n\t11\r\nDescription\r\n\tDivision by zero.\r\n\r\n"));

  Trap("Plain", [] { throw std::out_of_range("beyond the end"); });
  ASSERT_EQ(host.error_reports.size(), 2U);
  EXPECT_THAT(host.error_reports[1], ::testing::HasSubstr("Error Number \r\n\t5\r\nDescription\r\n\tbeyond the end"));
}

TEST(HandleErrorTest, ALineBelongsToTheFileNamedBesideIt) {
  const TestHost host;
  const testing::ReportedFaults reported;
  const Fault deep(kOverflow, "Tessarine", "Overflow", 23, "geodesy/checked_arithmetic.h");
  Trap("Alone", [&] { throw deep; });
  Trap("Top", [&] { TrapAndPassOn("Middle", [&] { TrapAndPassOn("Deep", [&] { throw deep; }); }); });
  Trap("Standard", [] { throw std::out_of_range("beyond the end"); });
  ASSERT_EQ(host.error_reports.size(), 3U);
  EXPECT_THAT(host.error_reports[0],
              MatchesRegex("[^\t]*\tAlone [^\r]*error_handling_test.cpp Line : [0-9]+\r\n\tRaised in "
                           "geodesy/checked_arithmetic.h Line : 23\r\n\r\nTessarine Tools.*"));
  EXPECT_THAT(host.error_reports[1],
              MatchesRegex("[^\t]*\tTop [^\r]*error_handling_test.cpp Line : [0-9]+\r\n\tMiddle "
                           "[^\r]*error_handling_test.cpp Line : [0-9]+\r\n\tDeep "
                           "[^\r]*error_handling_test.cpp Line : [0-9]+\r\n\tRaised in geodesy/checked_arithmetic.h "
                           "Line : 23\r\nError Number \r\n\t6\r\nDescription\r\n\tOverflow\r\n\r\n"));
  EXPECT_THAT(host.error_reports[2], MatchesRegex("[^\t]*\tStandard [^\r]*error_handling_test.cpp Line : [0-9]+\r.*"));
}

TEST(HandleErrorTest, FaultsOfRecordsAreReportedOnceForEachKind) {
  TestHost host;
  const testing::ReportedFaults reported;
  const auto helper = [] {
    return TrapHelper("Helper", []() -> int { throw Fault(kOverflow, "Tessarine", "Overflow", 7, "deep.cpp"); });
  };
  EXPECT_EQ(helper(), 0) << "by itself it ends its faults";
  ASSERT_EQ(host.error_reports.size(), 1U);
  host.error_reports.clear();

  for (std::int64_t oid = 3; oid < 57; ++oid) EXPECT_FALSE(WorkOnRecord(host.journal, oid, helper));
  EXPECT_FALSE(WorkOnRecord(host.journal, 99, [] { Raise(kTypeMismatch, "Another."); }));
  EXPECT_TRUE(host.error_reports.empty());
  ReportRecordFaults(host.journal, "Loop", "roads");
  ASSERT_EQ(host.error_reports.size(), 2U);
  EXPECT_THAT(host.error_reports[0],
              MatchesRegex("[^\t]*\tLoop [^\r]*error_handling_test.cpp Line : [0-9]+\r\n\tHelper "
                           "[^\r]*error_handling_test.cpp Line : [0-9]+\r\n\tRaised in deep.cpp Line : 7\r\n"
                           "Error Number \r\n\t6\r\nDescription\r\n\tOverflow\r\n\tLayer 'roads', OID 3, 4, 5, 6, 7, "
                           "8, 9, 10, 11, 12 and 44 more of the same\r\n\r\n"));
  EXPECT_THAT(host.error_reports[1], HasSubstr("\tLayer 'roads', OID 99\r\n"));
}

TEST(LineNumberTest, ZeroIsLeftOut) {
  EXPECT_EQ(GetErrorLineNumberString(0), "");
  EXPECT_EQ(GetErrorLineNumberString(120), "Line : 120");
}

}  // namespace
}  // namespace tessarine::ErrorHandling
