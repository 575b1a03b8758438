#include "calculator/calculation_progress.h"

#include "platform/fault.h"
#include "platform/host.h"
#include "platform/text_formats.h"
#include "support/elapsed_time.h"
#include "support/progress_bail_out.h"
#include "support/progress_text.h"

namespace tessarine {
namespace {

std::string TimeAndDay(Date time) { return LongTime(time) + ",  " + ShortDate(time); }

// A line of the log with the moment it was written.
std::string StampedLine(const std::string& line) {
  return line + " --> \r\n          [time stamp " + TimeAndDay(Host().Clock().Now()) + "]\r\n";
}

}  // namespace

CalculationProgress::CalculationProgress(std::string singular, std::string plural, const std::string& layer_name,
                                         const std::shared_ptr<IApplication>& application, std::int32_t count,
                                         bool show_meter)
    : singular_(std::move(singular)),
      plural_(std::move(plural)),
      prefix_("Calculating Geometry on " + layer_name),
      application_(application),
      status_bar_(Require(application->StatusBar(), "StatusBar")),
      count_(count),
      begin_(Host().Clock().Now()),
      last_update_(begin_) {
  status_bar_->ShowProgressBar(prefix_, 1, count_, 1, true);
  status_bar_->ProgressBar()->SetPosition(1);
  if (show_meter) OpenMeter();
}

void CalculationProgress::OpenMeter() {
  const std::shared_ptr<clsExtension> extension = Require(FindExtension(application_), "clsExtension");
  meter_ = std::make_shared<frmOrlProgressMeter>();
  meter_->SetSetExpanded(extension->ProgressDialogSetExpanded);
  meter_->SetSetAutoClose(extension->ProgressDialogAutoClose);
  meter_->SetShouldContinue(true);
  meter_->SetProgBeginTime(begin_);
  meter_->SetProgRecCount(count_);
  meter_->Load();
  const std::string began = "Began Job: " + TimeAndDay(begin_);
  meter_->lblBeginTime.SetCaption(began);
  meter_->lblCurrentTime.SetCaption(LongTime(begin_));
  meter_->txtDetails.SetText("Calculating Geometry on " + plural_ + "...\r\n" + began +
                             "\r\n-------------------------------------------\r\n");
  const std::shared_ptr<IModelessFrame> frame = meter_->Frame();
  frame->SetCaption(" Current Status:");
  frame->SetVisible(true);
  meter_->ShowModeless();
}

bool CalculationProgress::Step(std::int32_t record) {
  if (record == count_ || SecondsBetween(last_update_, Host().Clock().Now()) >= 1) {
    status_bar_->SetMessage(0, MyGeneralOperations::CalcTimeLeft(prefix_, begin_, record, count_));
    last_update_ = Host().Clock().Now();
    if (meter_ && !UpdateMeter(record)) return false;
  }
  status_bar_->StepProgressBar();
  return true;
}

bool CalculationProgress::UpdateMeter(std::int32_t record) {
  Host().PumpEvents();
  meter_->AppendDetails(
      StampedLine("Working on Feature " + std::to_string(record) + " of " + std::to_string(count_) + "..."));
  meter_->Est_Time_Left(record, "Calculating " + singular_ + " Attributes...", "Performing Calculations...");
  meter_->lblCurrentTime.SetCaption(LongTime(Host().Clock().Now()));
  meter_->Refresh();
  Host().PumpEvents();
  return !MyGeneralOperations::BailOutOfProgress(meter_, application_);
}

void CalculationProgress::Finish() {
  status_bar_->ProgressBar()->SetPosition(0);
  status_bar_->HideProgressBar();
  if (!meter_) return;
  if (meter_->chkClose.Value() == CheckBox::kChecked) {
    meter_->Frame()->SetVisible(false);
    meter_->Unload();
    meter_ = nullptr;
    return;
  }
  meter_->AppendDetails(StampedLine("Calculations Complete...") +
                        MyGeneralOperations::ReturnTimeElapsed(begin_, Host().Clock().Now()));
  // From here on the button closes the window.
  meter_->cmdStop.SetCaption("Close");
}

}  // namespace tessarine
