// SPDX-License-Identifier: GPL-2.0-or-later
// What a person sees of a run while it works: the host's status bar for every run, and the progress dialog for large
// ones.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/date.h"
#include "platform/run_context.h"
#include "support/progress_form.h"

namespace tessarine {

class clsExtension;

struct RunProgressWords {
  std::string status_text;      ///< the status bar's text
  std::string action_text;      ///< what the log says ahead of the time of the begin
  std::string repeated_action;  ///< what the dialog shows while it works
  std::string log_lead = "Began Job: \r\n";
};

/// Whether the dialog opens with its log.
enum class LogView { Shown, AsLastTime };

class RunProgress {
 public:
  /// Shows the status bar and, with `show_dialog`, the progress dialog. What the dialog was last time is taken from the
  /// application's extension where there is one.
  RunProgress(RunContext& context, RunProgressWords words, const std::shared_ptr<IApplication>& application,
              std::int32_t count, bool show_dialog);
  /// The same with a progress dialog of the run's own kind; nothing shows none.
  RunProgress(RunContext& context, RunProgressWords words, const std::shared_ptr<IApplication>& application,
              std::int32_t count, std::shared_ptr<ProgressForm> dialog, LogView log_view = LogView::Shown);
  /// Whatever ended the run, a dialog that is still open closes by its button from now on, and goes when the next run
  /// opens one.
  ~RunProgress();
  RunProgress(const RunProgress&) = delete;
  RunProgress& operator=(const RunProgress&) = delete;

  /// One record further. Everything but the bar is brought up to date once a second and at the last record; that is
  /// also when the dialog's Stop is seen. False when the user stopped the run.
  [[nodiscard]] bool Step(std::int32_t record);
  /// For long work on one record, as often as it likes: the same look at the clock, without a step. False when the user
  /// stopped the run.
  [[nodiscard]] bool GoesOn();
  /// The run went to its end.
  void Finish();
  /// The user stopped the run: the bar goes.
  void Stop();
  /// The run never began: bar and dialog go.
  void Abandon();

 private:
  void OpenDialog(LogView log_view);
  [[nodiscard]] double ElapsedSeconds() const;
  [[nodiscard]] double SecondsSinceUpdate() const;
  [[nodiscard]] bool Update(std::int32_t record);
  [[nodiscard]] bool UpdateDialog(std::int32_t record);
  void HideBar();
  void HideDialog();

  RunContext& context_;
  RunProgressWords words_;
  std::shared_ptr<IApplication> application_;
  std::shared_ptr<clsExtension> extension_;  // null where the application has none
  std::shared_ptr<IStatusBar> status_bar_;
  std::shared_ptr<ProgressForm> dialog_;
  std::int32_t count_;
  std::int32_t record_ = 0;
  Date begin_;
  double begin_seconds_;  // of the steady clock
  double last_update_;
};

}  // namespace tessarine
