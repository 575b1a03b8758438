// SPDX-License-Identifier: GPL-2.0-or-later
// The program's status bar: the text, and a bar beside it while a run works.
#pragma once

#include <qgsstatusbar.h>

#include <QPointer>
#include <QProgressBar>
#include <chrono>
#include <memory>

#include "platform/application.h"

namespace tessarine::qgis {

class ProgramStatusBar final : public IStatusBar, public std::enable_shared_from_this<ProgramStatusBar> {
 public:
  explicit ProgramStatusBar(QgsStatusBar* bar) : bar_(bar) {}
  ~ProgramStatusBar() override { HideProgressBar(); }
  ProgramStatusBar(const ProgramStatusBar&) = delete;
  ProgramStatusBar& operator=(const ProgramStatusBar&) = delete;

  void SetMessage(std::int32_t panel, const std::string& text) override;
  [[nodiscard]] std::shared_ptr<IAnimationProgressor> ProgressAnimation() override;
  [[nodiscard]] std::shared_ptr<IStepProgressor> ProgressBar() override;
  void ShowProgressBar(const std::string& text, std::int32_t minimum, std::int32_t maximum, std::int32_t step,
                       bool one_panel) override;
  void StepProgressBar() override;
  void HideProgressBar() override;

  /// Shows the bar, moving by itself where both limits are 0.
  void ShowBar(int minimum, int maximum);
  [[nodiscard]] std::int32_t Position() const { return position_; }
  void SetPosition(std::int32_t position);

 private:
  void ShowPosition();

  QPointer<QgsStatusBar> bar_;
  QPointer<QProgressBar> progress_;
  std::int32_t maximum_ = 0, step_ = 1, position_ = 0;
  std::chrono::steady_clock::time_point shown_at_;
};

}  // namespace tessarine::qgis
