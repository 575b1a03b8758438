#include "frame/ErrorHandling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "helpers/reported_faults.h"
#include "helpers/test_host.h"

namespace tessarine::ErrorHandling {
namespace {

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
              MatchesRegex("[^\t]*\tOuter [^\r]*error_handling_test.cpp \r\n\tInner [^\r]*error_handling_test.cpp "
                           "Line : [0-9]+\r\nError Number \r\n\t11\r\nDescription\r\n\tDivision by zero.\r\n\r\n"));

  Trap("Plain", [] { throw std::out_of_range("beyond the end"); });
  ASSERT_EQ(host.error_reports.size(), 2U);
  EXPECT_THAT(host.error_reports[1], ::testing::HasSubstr("Error Number \r\n\t5\r\nDescription\r\n\tbeyond the end"));
}

TEST(LineNumberTest, ZeroIsLeftOut) {
  EXPECT_EQ(GetErrorLineNumberString(0), "");
  EXPECT_EQ(GetErrorLineNumberString(120), "Line : 120");
}

}  // namespace
}  // namespace tessarine::ErrorHandling
