// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/run_progress.h"

#include "platform/fault.h"
#include "platform/text_formats.h"
#include "session/clsExtension.h"
#include "support/elapsed_time.h"
#include "support/frmOrlProgressPercent.h"
#include "support/progress_bail_out.h"
#include "support/progress_text.h"

namespace tessarine {
namespace {

std::string TimeAndDay(Date time) { return LongTime(time) + ",  " + ShortDate(time); }

// A line of the log with the moment it was written.
std::string StampedLine(const std::string& line, Date now) {
  return line + " --> \r\n          [time stamp " + TimeAndDay(now) + "]\r\n";
}

}  // namespace

RunProgress::RunProgress(RunContext& context, RunProgressWords words, const std::shared_ptr<IApplication>& application,
                         std::int32_t count, bool show_dialog)
    : RunProgress(context, std::move(words), application, count,
                  show_dialog ? std::make_shared<frmOrlProgressPercent>() : nullptr) {}

RunProgress::RunProgress(RunContext& context, RunProgressWords words, const std::shared_ptr<IApplication>& application,
                         std::int32_t count, std::shared_ptr<ProgressForm> dialog, LogView log_view)
    : context_(context),
      words_(std::move(words)),
      application_(application),
      extension_(FindExtension(application)),
      status_bar_(Require(application->StatusBar(), "StatusBar")),
      dialog_(std::move(dialog)),
      count_(count),
      begin_(context.clock.Now()),
      begin_seconds_(context.clock.SteadySeconds()),
      last_update_(begin_seconds_) {
  status_bar_->ShowProgressBar(words_.status_text, 1, count_, 1, true);
  status_bar_->ProgressBar()->SetPosition(1);
  if (dialog_) OpenDialog(log_view);
}

RunProgress::~RunProgress() {
  if (!dialog_) return;
  dialog_->EndRun();
  if (extension_) extension_->progress_left_open = dialog_;
}

double RunProgress::ElapsedSeconds() const { return context_.clock.SteadySeconds() - begin_seconds_; }

void RunProgress::OpenDialog(LogView log_view) {
  if (const auto before = extension_ ? extension_->progress_left_open.lock() : nullptr) before->Unload();
  const bool auto_close = extension_ && extension_->ProgressDialogAutoClose;
  dialog_->SetSetExpanded(log_view == LogView::Shown || (extension_ && extension_->ProgressDialogSetExpanded));
  dialog_->SetSetAutoClose(auto_close);
  dialog_->SetShouldContinue(true);
  dialog_->SetProgBeginTime(begin_);
  dialog_->SetProgRecCount(count_);
  dialog_->Load();
  dialog_->lblCurrentTime.SetCaption(LongTime(begin_));
  const std::string began = "Began Job: " + TimeAndDay(begin_);
  dialog_->lblBeginTime.SetCaption(began);
  dialog_->txtDetails.SetText(words_.log_lead + words_.action_text + TimeAndDay(begin_) +
                              "\r\n-------------------------------------------\r\n");
  dialog_->chkClose.SetValue(auto_close ? CheckBox::kChecked : CheckBox::kUnchecked);
  const std::shared_ptr<IModelessFrame> frame = dialog_->Frame();
  frame->SetCaption(" Current Status:");
  frame->SetVisible(true);
  dialog_->ShowModeless();
}

bool RunProgress::Step(std::int32_t record) {
  record_ = record;
  if ((record == count_ || SecondsSinceUpdate() >= 1.0) && !Update(record)) return false;
  if (context_.feedback.StopRequested()) return false;
  status_bar_->StepProgressBar();
  return true;
}

bool RunProgress::GoesOn() {
  return (SecondsSinceUpdate() < 1.0 || Update(record_)) && !context_.feedback.StopRequested();
}

double RunProgress::SecondsSinceUpdate() const { return context_.clock.SteadySeconds() - last_update_; }

bool RunProgress::Update(std::int32_t record) {
  last_update_ = context_.clock.SteadySeconds();
  status_bar_->SetMessage(0, MyGeneralOperations::CalcTimeLeft(words_.status_text, ElapsedSeconds(), record, count_));
  return !dialog_ || UpdateDialog(record);
}

bool RunProgress::UpdateDialog(std::int32_t record) {
  context_.feedback.PumpEvents();
  dialog_->AppendDetails(StampedLine(
      "Working on Feature " + std::to_string(record) + " of " + std::to_string(count_) + "...", context_.clock.Now()));
  dialog_->Est_Time_Left(record, words_.repeated_action, "Performing Calculations...");
  dialog_->lblCurrentTime.SetCaption(LongTime(context_.clock.Now()));
  dialog_->Refresh();
  context_.feedback.PumpEvents();
  return !MyGeneralOperations::StopPressed(*dialog_, application_, context_.feedback, context_.clock);
}

void RunProgress::HideBar() {
  status_bar_->ProgressBar()->SetPosition(1);
  status_bar_->HideProgressBar();
}

void RunProgress::HideDialog() {
  dialog_->Frame()->SetVisible(false);
  dialog_->Unload();
  dialog_ = nullptr;
}

void RunProgress::Finish() {
  HideBar();
  if (!dialog_) return;
  if (dialog_->chkClose.Value() == CheckBox::kChecked) {
    HideDialog();
    return;
  }
  dialog_->AppendDetails(StampedLine("Calculations Complete...", context_.clock.Now()) +
                         MyGeneralOperations::ReturnTimeElapsed(begin_, context_.clock.Now(), ElapsedSeconds()));
}

void RunProgress::Stop() { HideBar(); }

void RunProgress::Abandon() {
  HideBar();
  if (dialog_) HideDialog();
}

}  // namespace tessarine
