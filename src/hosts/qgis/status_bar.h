// SPDX-License-Identifier: GPL-2.0-or-later
// The program's status bar: the text, and a bar beside it while a run works.
#pragma once

#include <qgsstatusbar.h>

#include <QPointer>
#include <QProgressBar>
#include <chrono>
#include <memory>

#include "platform/stepping_status_bar.h"

namespace tessarine::qgis {

class ProgramStatusBar final : public SteppingStatusBar {
 public:
  explicit ProgramStatusBar(QgsStatusBar* bar) : bar_(bar) {}
  ~ProgramStatusBar() override { HideProgressBar(); }
  ProgramStatusBar(const ProgramStatusBar&) = delete;
  ProgramStatusBar& operator=(const ProgramStatusBar&) = delete;

  void SetMessage(std::int32_t panel, const std::string& text) override;
  [[nodiscard]] std::shared_ptr<IAnimationProgressor> ProgressAnimation() override;
  void HideProgressBar() override;

  /// Shows the bar, moving by itself where both limits are 0.
  void ShowBar(int minimum, int maximum);

 private:
  void BarShown(const std::string& text) override;
  void BarMoved() override;
  void ShowPosition();

  QPointer<QgsStatusBar> bar_;
  QPointer<QProgressBar> progress_;
  std::chrono::steady_clock::time_point shown_at_;
};

}  // namespace tessarine::qgis
