// SPDX-License-Identifier: GPL-2.0-or-later
#include <gtest/gtest.h>

#include "helpers/fake_application.h"
#include "helpers/form_layout.h"
#include "helpers/reported_faults.h"
#include "helpers/test_host.h"
#include "session/clsExtension.h"
#include "support/frmOrlProgressMeter.h"
#include "support/frmOrlProgressPercent.h"
#include "support/progress_bail_out.h"
#include "support/progress_text.h"
#include "support/run_progress.h"

namespace tessarine {
namespace {

using MyGeneralOperations::BailOutOfProgress;
using MyGeneralOperations::CalcTimeLeft;
using testing::FakeApplication;
using testing::TestHost;

class ProgressTest : public ::testing::Test {
 protected:
  TestHost host;
  testing::ReportedFaults reported;
  const Date begin = host.clock.now;  // 9:26:53 AM
  std::shared_ptr<clsExtension> extension = std::make_shared<clsExtension>();
  std::shared_ptr<FakeApplication> application = std::make_shared<FakeApplication>();

  void SetUp() override { application->extension = extension; }

  std::shared_ptr<frmOrlProgressPercent> Started(std::int32_t count) {
    auto form = std::make_shared<frmOrlProgressPercent>();
    form->SetProgBeginTime(begin);
    form->SetProgRecCount(count);
    form->SetShouldContinue(true);
    form->Load();
    return form;
  }
  void At(double seconds) { host.clock.now = AddSeconds(begin, seconds); }
  static void Step(ProgressForm& form, std::int32_t record) { form.Est_Time_Left(record, "Title", "Calculating..."); }
};

TEST_F(ProgressTest, OneStepOfTheDisplay) {
  At(3);  // the window opens a moment after the run began
  const auto form = Started(1000);
  EXPECT_EQ(form->lblBeginTime.Caption(), "Began Job: 3/14/2026 9:26:53 AM");
  EXPECT_EQ(form->lblPercentDone.Caption(), "(00.0%)");
  At(100);
  Step(*form, 250);
  EXPECT_EQ(form->lblIndex.Caption(), "Title");
  EXPECT_EQ(form->lblRecordNumber.Caption(), "Calculating...250 of 1,000...");
  EXPECT_EQ(form->lblPercentDone.Caption(), "(25%)");
  EXPECT_EQ(form->lblTimeLeft.Caption(), "Estimated time remaining:  0:05:00");
  EXPECT_EQ(form->lblEstCompletionTime.Caption(), "Estimated completion time: 9:33:33 AM");
  const double quarter = form->icnProgressLine.Width();
  Step(*form, 1000);
  EXPECT_NEAR(form->icnProgressLine.Width(), 4 * quarter, 1e-4);
  EXPECT_LE(form->icnProgressLine.Left() + form->icnProgressLine.Width(), form->pct_barBorder.Control::Width());
  // No whole second passed: the bar moved and the times stand.
  EXPECT_EQ(form->lblPercentDone.Caption(), "(100%)");
  EXPECT_EQ(form->lblTimeLeft.Caption(), "Estimated time remaining:  0:05:00");
  At(101);
  Step(*form, 1000);
  EXPECT_EQ(form->lblTimeLeft.Caption(), "Estimated time remaining:  0:00:00");
}

TEST_F(ProgressTest, TheDisplayMovesOnceForATenthOfAPercent) {
  const auto form = Started(10000);
  for (std::int32_t record = 1; record <= 10000; ++record) Step(*form, record);
  EXPECT_LE(host.pumps, 1000);
  EXPECT_GE(host.pumps, 990);

  const auto thousand = Started(1000);
  Step(*thousand, 1);
  EXPECT_EQ(thousand->lblPercentDone.Caption(), "(0.1%)");
}

TEST_F(ProgressTest, NoRecordsAndRecordZeroLeaveTheInitialTexts) {
  for (const std::int32_t count : {0, 100}) {
    const auto form = Started(count);
    Step(*form, 0);
    EXPECT_EQ(form->lblRecordNumber.Caption(), "-----");
    EXPECT_EQ(form->lblTimeLeft.Caption(), "Estimated time remaining: ---:---:---");
    EXPECT_EQ(form->lblEstCompletionTime.Caption(), "Estimated completion time: -----------");
  }
  EXPECT_TRUE(host.error_reports.empty());
}

TEST_F(ProgressTest, AJobOfOverADayShowsTheDay) {
  const auto form = Started(100000);
  At(200);
  Step(*form, 200);  // a second for each record: 27:46:40 in all
  EXPECT_EQ(form->lblEstCompletionTime.Caption(), "Estimated completion time: 1:13:33 PM, 3/15/2026");
  EXPECT_EQ(form->lblTimeLeft.Caption(), "Estimated time remaining:  27:43:20");
}

TEST_F(ProgressTest, DetailsClockPlaceAndLayout) {
  const auto form = Started(10);
  EXPECT_NEAR(form->Left() + form->Width() / 2, 500, 1e-9);
  EXPECT_NEAR(form->Top() + form->Height() / 2, 300, 1e-9);
  EXPECT_FALSE(form->txtDetails.Visible());
  EXPECT_EQ(testing::LayoutProblems(*form), std::vector<std::string>{});
  const double height = form->Height(), left = form->Left();
  form->cmdDetails.Press();
  EXPECT_TRUE(form->SetExpanded());
  EXPECT_TRUE(form->txtDetails.Visible());
  EXPECT_EQ(form->cmdDetails.Caption(), "Minimize");
  EXPECT_GT(form->Height(), height);
  EXPECT_EQ(form->Left(), left);
  EXPECT_EQ(testing::LayoutProblems(*form), std::vector<std::string>{});
  form->cmdDetails.Press();
  EXPECT_EQ(form->cmdDetails.Caption(), "Show Details");
  EXPECT_EQ(form->Height(), height);

  form->Timer1.Tick();
  EXPECT_EQ(form->lblCurrentTime.Caption(), "9:26:53 AM");
  form->Timer1.Tick();
  EXPECT_EQ(host.pumps, 1) << "the same second again changes nothing";
}

TEST_F(ProgressTest, TheUsersSizeGoesToTheLogAndTheBar) {
  const auto form = Started(1000);
  form->cmdDetails.Press();
  At(100);
  Step(*form, 500);
  const double log = form->txtDetails.Height(), expanded = form->Height();
  form->Resize(form->Width() + 80, expanded + 60);
  EXPECT_NEAR(form->txtDetails.Height(), log + 60, 1e-4);
  EXPECT_NEAR(form->txtDetails.Width() + form->txtDetails.Left(), form->Width() - form->txtDetails.Left(), 1e-4);
  const double room = form->pct_barBorder.Control::Width() - 2 * form->icnProgressLine.Left();
  EXPECT_NEAR(form->icnProgressLine.Width(), room / 2, 1e-4) << "half of the run";
  EXPECT_EQ(testing::LayoutProblems(*form), std::vector<std::string>{});
  form->Resize(form->MinimumWidth(), form->MinimumHeight());
  EXPECT_EQ(testing::LayoutProblems(*form), std::vector<std::string>{});
  EXPECT_GT(form->txtDetails.Height(), 20);

  // The small form and back keeps what the user made of the large one.
  form->Resize(form->Width(), expanded + 60);
  form->cmdDetails.Press();
  EXPECT_LT(form->Height(), expanded);
  form->cmdDetails.Press();
  EXPECT_EQ(form->Height(), expanded + 60);
  EXPECT_NEAR(form->txtDetails.Height(), log + 60, 1e-4);
}

TEST_F(ProgressTest, ClosingTheWindowOfARunStopsIt) {
  const auto form = Started(10);
  form->ShowModeless();
  EXPECT_FALSE(BailOutOfProgress(form, application));
  form->CloseByUser();
  EXPECT_FALSE(form->Visible());
  EXPECT_TRUE(BailOutOfProgress(form, application));
}

TEST_F(ProgressTest, StopOfTheTwoForms) {
  const auto percent = Started(10);
  percent->cmdStop.SetCaption("Finished");
  percent->cmdStop.Press();
  EXPECT_FALSE(percent->ShouldContinue());
  EXPECT_TRUE(percent->Loaded());

  const auto meter = std::make_shared<frmOrlProgressMeter>();
  meter->SetShouldContinue(true);
  meter->Load();
  meter->cmdStop.Press();
  EXPECT_FALSE(meter->ShouldContinue());
  EXPECT_TRUE(meter->Loaded());
  meter->SetShouldContinue(true);
  meter->cmdStop.SetCaption("Close");
  meter->cmdStop.Press();
  EXPECT_TRUE(meter->ShouldContinue());
  EXPECT_FALSE(meter->Loaded());
}

TEST_F(ProgressTest, ThePollKeepsTheSettingsAndSeesAStop) {
  const auto form = Started(10);
  form->Frame()->SetVisible(true);
  form->chkClose.SetValue(CheckBox::kChecked);
  form->cmdDetails.Press();
  EXPECT_FALSE(BailOutOfProgress(form, application));
  EXPECT_TRUE(extension->ProgressDialogAutoClose);
  EXPECT_TRUE(extension->ProgressDialogSetExpanded);
  EXPECT_EQ(form->txtDetails.Text(), "");

  form->chkClose.SetValue(CheckBox::kUnchecked);
  form->cmdStop.Press();
  form->AppendDetails("Began");
  At(61);
  EXPECT_TRUE(BailOutOfProgress(form, application));
  EXPECT_FALSE(extension->ProgressDialogAutoClose);
  EXPECT_EQ(host.pointer_restored, 1);
  EXPECT_TRUE(form->Frame()->Visible());
  EXPECT_TRUE(form->txtDetails.Text().starts_with(
      "Began\r\nOperation cancelled prematurely at Saturday, March 14, 2026;  9:27:54 AM\r\n-----"));
  EXPECT_TRUE(form->txtDetails.Text().ends_with("Time Elapsed: 1 minute, 1 second..."));

  form->chkClose.SetValue(CheckBox::kChecked);
  EXPECT_TRUE(BailOutOfProgress(form, application));
  EXPECT_FALSE(form->Frame()->Visible());

  EXPECT_FALSE(BailOutOfProgress(std::make_shared<Form>("other"), application));
}

TEST_F(ProgressTest, StatusText) {
  struct Row {
    double seconds;
    std::int32_t done, total;
    const char* text;
  };
  const Row rows[] = {
      {100, 250, 1000, "X.....[record #250 of 1000  ---  25%].....Est. Time Left = 0:05:00..."},
      {100, 10, 1000, "X.....[record #10 of 1000  ---  1%].....Est. Time Left = 2:45:00..."},
      {0, 1, 3, "X.....[record #1 of 3  ---  33.33%].....Est. Time Left = 0:00:00..."},
      {1, 3, 10, "X.....[record #3 of 10  ---  30%].....Est. Time Left = 0:00:02..."},
      {5, 7, 0, "X.....[record #7 of 0  ---  0%].....Est. Time Left = 0:00:-05..."},
  };
  for (const Row& row : rows) {
    At(row.seconds);
    EXPECT_EQ(CalcTimeLeft("X", begin, row.done, row.total), row.text);
  }
  // A million records in their thirty-seventh minute: 2220 seconds for a tenth of them.
  At(2220);
  EXPECT_EQ(CalcTimeLeft("X", begin, 100000, 1000000),
            "X.....[record #100000 of 1000000  ---  10%].....Est. Time Left = 5:33:00...");
  EXPECT_EQ(CalcTimeLeft("X", 1e9, 1, 2147483647).find("X.....[record #1 of 2147483647  ---  0%]"), 0U);
  EXPECT_EQ(CalcTimeLeft("X", 10.0, 0, 5), "X.....[record #0 of 5  ---  0%].....Est. Time Left = 0:00:00...");
  EXPECT_TRUE(host.error_reports.empty());
}

TEST_F(ProgressTest, AClockSetBackChangesNoSpan) {
  std::shared_ptr<ProgressForm> form;
  host.forms.modeless = [&](Form& shown) { form = dynamic_cast<ProgressForm&>(shown).shared_from_this(); };
  RunContext context = HostContext();
  RunProgress progress(context, {"Reading roads", "Reading...", "Reading..."}, application, 1200, true);
  At(60);
  host.clock.SetBack(3600);
  EXPECT_TRUE(progress.Step(100));
  EXPECT_EQ(application->status_bar->messages.back(),
            "Reading roads.....[record #100 of 1200  ---  8.33%].....Est. Time Left = 0:11:00...");
  EXPECT_EQ(form->lblTimeLeft.Caption(), "Estimated time remaining:  0:11:00");
  host.clock.now = AddSeconds(host.clock.now, 1);
  form->cmdStop.Press();
  EXPECT_FALSE(progress.Step(101)) << "a stop is seen within a second";
  EXPECT_TRUE(form->txtDetails.Text().ends_with("Time Elapsed: 1 minute, 1 second..."));
  progress.Stop();
  EXPECT_EQ(application->status_bar->position, 1);
}

TEST_F(ProgressTest, AStopIsSeenWithoutADialogAtTheNextUpdate) {
  RunContext context = HostContext();
  RunProgress progress(context, {"Reading roads", "Reading...", "Reading..."}, application, 3, false);
  EXPECT_TRUE(progress.Step(1));
  host.stop_requested = true;
  EXPECT_FALSE(progress.Step(3));
}

TEST_F(ProgressTest, ARunShowsItsDialogAndClosesItAtTheEnd) {
  for (const bool auto_close : {false, true}) {
    extension->ProgressDialogAutoClose = auto_close;
    std::shared_ptr<ProgressForm> form;
    host.forms.modeless = [&](Form& shown) { form = dynamic_cast<ProgressForm&>(shown).shared_from_this(); };
    RunContext context = HostContext();
    RunProgress progress(context, {"Reading roads", "Reading...", "Reading..."}, application, 1200, true);
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->SetExpanded());
    EXPECT_EQ(form->chkClose.Value() == CheckBox::kChecked, auto_close);
    EXPECT_EQ(form->lblBeginTime.Caption(), "Began Job: 9:26:53 AM,  3/14/2026");
    EXPECT_EQ(application->status_bar->progress_text, "Reading roads");
    EXPECT_EQ(application->status_bar->maximum, 1200);
    application->status_bar->messages.clear();
    EXPECT_TRUE(progress.Step(1));
    EXPECT_TRUE(application->status_bar->messages.empty()) << "no second has passed";
    EXPECT_TRUE(progress.Step(1200));
    EXPECT_EQ(application->status_bar->messages.size(), 1U) << "the last record always shows";
    EXPECT_NE(form->txtDetails.Text().find("Working on Feature 1200 of 1200... --> \r\n          [time stamp 9:26:53 "
                                           "AM,  3/14/2026]\r\n"),
              std::string::npos);
    progress.Finish();
    EXPECT_FALSE(application->status_bar->bar_visible);
    EXPECT_EQ(form->Frame()->Visible(), !auto_close);
    EXPECT_EQ(form->txtDetails.Text().find("Calculations Complete...") != std::string::npos, !auto_close);
  }
}

TEST_F(ProgressTest, AWindowThatARunLeavesClosesByItsButtonAndGoesWhenTheNextOpens) {
  enum class End { Finished, Stopped, Fault };
  std::shared_ptr<ProgressForm> form;
  host.forms.modeless = [&](Form& shown) { form = dynamic_cast<ProgressForm&>(shown).shared_from_this(); };
  RunContext context = HostContext();
  const auto run = [&](End end, std::shared_ptr<ProgressForm> dialog) {
    RunProgress progress(context, {"Reading roads", "Reading...", "Reading..."}, application, 1200, std::move(dialog));
    EXPECT_TRUE(progress.Step(1));
    EXPECT_EQ(form->cmdStop.Caption(), "Stop");
    if (end == End::Finished) progress.Finish();
    if (end == End::Stopped) progress.Stop();
  };
  for (const End end : {End::Finished, End::Stopped, End::Fault}) {
    SCOPED_TRACE(static_cast<int>(end));
    run(end, std::make_shared<frmOrlProgressMeter>());
    const std::shared_ptr<ProgressForm> meter = form;
    EXPECT_EQ(meter->cmdStop.Caption(), "Close");
    EXPECT_TRUE(meter->Visible()) << "left to the user";
    run(end, std::make_shared<frmOrlProgressPercent>());
    EXPECT_FALSE(meter->Visible()) << "beneath the next run's window";
    EXPECT_EQ(form->cmdStop.Caption(), "Close");
    form->cmdStop.Press();
    EXPECT_FALSE(form->Visible());
    EXPECT_FALSE(form->Loaded());
  }
}

}  // namespace
}  // namespace tessarine
