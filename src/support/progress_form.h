// SPDX-License-Identifier: GPL-2.0-or-later
// The status window of a long run: bar, counter, estimate of the time left, a log and a Stop button. The two forms of
// it show the same and keep the same protocol.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "platform/date.h"
#include "platform/form.h"
#include "platform/host.h"
#include "support/AnchorObjectList.h"

namespace tessarine {

class ProgressForm : public Form, public std::enable_shared_from_this<ProgressForm> {
 public:
  Label lblBeginTime{*this, "lblBeginTime"};
  Label lblCurrentTime{*this, "lblCurrentTime"};
  Label lblIndex{*this, "lblIndex"};
  Label lblRecordNumber{*this, "lblRecordNumber"};
  ::tessarine::Frame pct_barBorder{*this, "pct_barBorder"};
  Image icnProgressLine{*this, "icnProgressLine"};
  Label lblPercentDone{*this, "lblPercentDone"};
  Label lblTimeLeft{*this, "lblTimeLeft"};
  Label lblEstCompletionTime{*this, "lblEstCompletionTime"};
  RichTextBox txtDetails{*this, "txtDetails"};
  CheckBox chkClose{*this, "chkClose"};
  CommandButton cmdDetails{*this, "cmdDetails"};
  CommandButton cmdStop{*this, "cmdStop"};
  Timer Timer1{*this, "Timer1"};

  /// The host's window around the form, made on first use with the caption " Current Status:".
  [[nodiscard]] std::shared_ptr<IModelessFrame> Frame();

  /// One step of the display: record `record` is in hand. It moves at most once per tenth of a percent.
  void Est_Time_Left(std::int32_t& record, const std::string& index_text, const std::string& prefix_text);

  /// False once the user pressed Stop.
  [[nodiscard]] bool ShouldContinue() const { return should_continue_; }
  void SetShouldContinue(bool value) { should_continue_ = value; }
  [[nodiscard]] Date ProgBeginTime() const { return begin_time_; }
  void SetProgBeginTime(Date time);
  /// Seconds since the begin of the run.
  [[nodiscard]] double ElapsedSeconds() const;
  void SetProgRecCount(std::int32_t count);
  [[nodiscard]] bool SetExpanded() const { return expanded_; }
  void SetSetExpanded(bool value) { expanded_ = value; }
  [[nodiscard]] bool SetAutoClose() const { return auto_close_; }
  void SetSetAutoClose(bool value) { auto_close_ = value; }
  /// Shows or hides the log as `SetExpanded` tells.
  void ExpandProgress();

  /// The run that the form shows is over: its button reads "Close", and button, Escape and title bar close it.
  void EndRun();

  /// Puts text after the log and scrolls to it.
  void AppendDetails(const std::string& text);

 protected:
  explicit ProgressForm(const std::string& name);

  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;
  /// Closing the window of a run ends the run.
  void Form_QueryUnload() override { Stop(); }
  /// What a click on Stop does in this form.
  virtual void cmdStop_Click();
  /// Ends the run; where it is over already, closes the form.
  void Stop();

 private:
  void LayOut();
  void HoldAnchors();
  void ShowFraction();
  void cmdDetails_Click();
  void Timer1_Timer();
  void ShowTimes(std::int32_t record);

  std::shared_ptr<IModelessFrame> frame_;
  bool should_continue_ = false, run_over_ = false;
  Date begin_time_;
  std::int32_t record_count_ = 0;
  std::string count_text_;
  float fraction_ = 0.0F;
  double begin_seconds_ = 0.0;  // of the steady clock
  std::optional<double> last_refresh_;
  float next_step_ = 0.0F;
  bool expanded_ = false;
  bool auto_close_ = false;
  double expanded_height_;
  AnchorObjectList anchors_;
};

}  // namespace tessarine
