// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/progress_form.h"

#include <cmath>

#include "platform/at_hand.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/aml_func_mod.h"
#include "support/progress_text.h"

namespace tessarine {
namespace {

constexpr double kBarMargin = 4.0;
constexpr double kWidth = 280.0;
constexpr double kSmallHeight = 108.0;
constexpr double kExpandedHeight = 208.0;
constexpr double kLeastExpandedHeight = 146.0;
constexpr double kStep = 0.1;
constexpr std::int64_t kSecondsPerDay = 86400;

}  // namespace

ProgressForm::ProgressForm(const std::string& name) : Form(name), expanded_height_(kExpandedHeight) {
  SetCaption(" Current Status:");
  LayOut();
  lblCurrentTime.RightAligned = true;
  lblPercentDone.RightAligned = true;
  chkClose.SetCaption("Close When Finished...");
  cmdDetails.SetCaption("Show Details");
  cmdStop.SetCaption("Stop");
  cmdStop.Cancel = true;
  txtDetails.SetBackColor(kWindowBackground);
  txtDetails.SetVisible(false);
  Timer1.Interval = 500;
  chkClose.SetTabIndex(0);
  cmdDetails.SetTabIndex(1);
  cmdStop.SetTabIndex(2);
  txtDetails.SetTabIndex(3);

  cmdDetails.Click = [this] { cmdDetails_Click(); };
  cmdStop.Click = [this] { cmdStop_Click(); };
  Timer1.Tick = [this] { Timer1_Timer(); };
}

// Places are told for the expanded form; the small one hides what is beneath the buttons.
void ProgressForm::LayOut() {
  SetSize(kWidth, kExpandedHeight);
  SetMinimumSize(kWidth, kSmallHeight);
  lblBeginTime.Move(7, 6, 190, 9);
  lblCurrentTime.Move(213, 6, 60, 9);
  lblIndex.Move(7, 19, 266, 9);
  lblRecordNumber.Move(7, 31, 206, 9);
  lblPercentDone.Move(233, 31, 40, 9);
  pct_barBorder.Move(7, 43, 266, 12);
  icnProgressLine.SetContainer(pct_barBorder);
  icnProgressLine.Move(kBarMargin / 2, 2, 0, 8);
  lblTimeLeft.Move(7, 59, 266, 9);
  lblEstCompletionTime.Move(7, 71, 266, 9);
  chkClose.Move(7, 88, 110, 11);
  cmdDetails.Move(151, 87, 62, 14);
  cmdStop.Move(219, 87, 54, 14);
  txtDetails.Move(7, 108, 266, 93);
  HoldAnchors();
  SetSize(kWidth, kSmallHeight);
}

void ProgressForm::HoldAnchors() {
  anchors_.Hold({
      {lblBeginTime, enumStartSize, enumStartSize},
      {lblCurrentTime, enumSizeEnd, enumStartSize},
      {lblIndex, enumStartEnd, enumStartSize},
      {lblRecordNumber, enumStartEnd, enumStartSize},
      {lblPercentDone, enumSizeEnd, enumStartSize},
      {pct_barBorder, enumStartEnd, enumStartSize},
      {lblTimeLeft, enumStartEnd, enumStartSize},
      {lblEstCompletionTime, enumStartEnd, enumStartSize},
      {chkClose, enumStartSize, enumStartSize},
      {cmdDetails, enumSizeEnd, enumStartSize},
      {cmdStop, enumSizeEnd, enumStartSize},
      {txtDetails, enumStartEnd, enumStartEnd},
  });
  anchors_.SetForm(*this);
}

std::shared_ptr<IModelessFrame> ProgressForm::Frame() {
  return Trap("Frame", [this] {
    if (!frame_) {
      frame_ = Host().CreateModelessFrame();
      frame_->Create(shared_from_this());
      frame_->SetCaption(" Current Status:");
    }
    return frame_;
  });
}

void ProgressForm::SetProgBeginTime(Date time) {
  begin_time_ = time;
  const IClock& clock = ClockAtHand();
  begin_seconds_ = clock.SteadySeconds() - static_cast<double>(SecondsBetween(time, clock.Now()));
}

double ProgressForm::ElapsedSeconds() const { return ClockAtHand().SteadySeconds() - begin_seconds_; }

void ProgressForm::SetProgRecCount(std::int32_t count) {
  record_count_ = count;
  count_text_ = aml_func_mod::InsertCommas(count);
}

void ProgressForm::Form_Load() {
  Trap("Form_Load", [this] {
    MoveTo(Host().Forms().ScreenWidth() / 2 - Width() / 2, Host().Forms().ScreenHeight() / 2 - Height() / 2);
    chkClose.SetValue(auto_close_ ? CheckBox::kChecked : CheckBox::kUnchecked);
    (void)Frame();
    ExpandProgress();
    lblBeginTime.SetCaption("Began Job: " + ShortDate(begin_time_) + " " + LongTime(begin_time_));
    lblTimeLeft.SetCaption("Estimated time remaining: ---:---:---");
    lblEstCompletionTime.SetCaption("Estimated completion time: -----------");
    lblPercentDone.SetCaption("(00.0%)");
    lblRecordNumber.SetCaption("-----");
    lblIndex.SetCaption("-----");
    fraction_ = 0.0F;
    ShowFraction();
  });
}

void ProgressForm::Form_Resize() {
  Trap("Form_Resize", [this] {
    anchors_.DoAnchors();
    ShowFraction();
    if (expanded_) expanded_height_ = Height();
  });
}

void ProgressForm::Form_Unload() { count_text_.clear(); }

void ProgressForm::Est_Time_Left(std::int32_t& record, const std::string& index_text, const std::string& prefix_text) {
  Trap("Est_Time_Left", [&] {
    const double percent = MyGeneralOperations::PercentDone(record, record_count_);
    const double next_step = static_cast<double>(next_step_) + kStep;
    if (next_step > percent) return;
    FeedbackAtHand().PumpEvents();
    next_step_ = static_cast<float>(next_step);
    lblIndex.SetCaption(index_text);
    lblRecordNumber.SetCaption(record_count_ != 0
                                   ? prefix_text + aml_func_mod::InsertCommas(record) + " of " + count_text_ + "..."
                                   : prefix_text);
    fraction_ = record_count_ > 0 ? static_cast<float>(record) / static_cast<float>(record_count_) : 0.0F;
    ShowFraction();
    icnProgressLine.Refresh();
    lblPercentDone.SetCaption("(" + NumberText(percent) + "%)");
    ShowTimes(record);
  });
}

void ProgressForm::ShowFraction() {
  icnProgressLine.Move(icnProgressLine.Left(), icnProgressLine.Top(),
                       static_cast<double>(fraction_) * (pct_barBorder.Control::Width() - kBarMargin),
                       icnProgressLine.Height());
}

void ProgressForm::ShowTimes(std::int32_t record) {
  const double seconds = ElapsedSeconds();
  const auto elapsed = static_cast<std::int64_t>(std::floor(seconds));
  const auto total =
      static_cast<std::int64_t>(std::floor(static_cast<double>(record_count_) * static_cast<double>(elapsed) / record));
  const std::int64_t left = total - elapsed;
  if (last_refresh_ && seconds - *last_refresh_ < 1.0) return;
  last_refresh_ = seconds;
  const Date completion = AddSeconds(begin_time_, static_cast<double>(total));
  lblEstCompletionTime.SetCaption("Estimated completion time: " + LongTime(completion) +
                                  (total <= kSecondsPerDay ? "" : ", " + ShortDate(completion)));
  lblTimeLeft.SetCaption("Estimated time remaining:  " + std::to_string(left / 3600) + ":" +
                         TwoDigits(left % 3600 / 60) + ":" + TwoDigits(left % 60));
}

void ProgressForm::ExpandProgress() {
  Trap("ExpandProgress", [this] {
    txtDetails.SetVisible(expanded_);
    cmdDetails.SetCaption(expanded_ ? "Minimize" : "Show Details");
    SetMinimumSize(kWidth, expanded_ ? kLeastExpandedHeight : kSmallHeight);
    Resize(Width(), expanded_ ? expanded_height_ : kSmallHeight);
  });
}

void ProgressForm::AppendDetails(const std::string& text) {
  txtDetails.SetText(txtDetails.Text() + text);
  txtDetails.SetSelStart(static_cast<std::int32_t>(txtDetails.Text().size()));
}

void ProgressForm::EndRun() {
  run_over_ = true;
  cmdStop.SetCaption("Close");
}

void ProgressForm::Stop() {
  should_continue_ = false;
  if (run_over_) Unload();
}

void ProgressForm::cmdDetails_Click() {
  Trap("cmdDetails_Click", [this] {
    expanded_ = !expanded_;
    ExpandProgress();
  });
}

void ProgressForm::cmdStop_Click() {
  Trap("cmdStop_Click", [this] { Stop(); });
}

void ProgressForm::Timer1_Timer() {
  Trap("Timer1_Timer", [this] {
    const std::string time = LongTime(ClockAtHand().Now());
    if (lblCurrentTime.Caption() == time) return;
    lblCurrentTime.SetCaption(time);
    FeedbackAtHand().PumpEvents();
  });
}

}  // namespace tessarine
