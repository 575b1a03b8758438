// SPDX-License-Identifier: GPL-2.0-or-later
// The host of one run from the toolbox: all that the run says goes to the run's log, and nothing opens a window.
#pragma once

#include <qgsprocessingfeedback.h>

#include <memory>
#include <string>

#include "hosts/document/promised_places.h"
#include "hosts/document/windowless_host.h"
#include "hosts/qgis/processing/window_turns.h"
#include "platform/application.h"
#include "platform/host.h"

namespace tessarine::qgis {

/// The operating system; the suite lies where the plug-in does.
class RunSystem final : public PromisingSystem {
 public:
  [[nodiscard]] std::string ProgramFolder() const override;
};

/// Works on whatever thread it was made on.
class RunHost final : public WindowlessHost {
 public:
  explicit RunHost(QgsProcessingFeedback& feedback);

  [[nodiscard]] RunSystem& Places() { return system_; }
  /// Whenever the run asks whether to stop, windows have their turn.
  void SetTurns(WindowTurns& turns) { turns_ = &turns; }

  // IHost
  IOperatingSystem& System() override { return system_; }
  [[nodiscard]] bool PlanOnly() const override { return false; }
  std::shared_ptr<IErrorDialog> CreateErrorDialog() override;
  std::shared_ptr<IGxDialog> CreateGxDialog() override;
  std::shared_ptr<ISpatialReferenceDialog2> CreateSpatialReferenceDialog() override;

  // IRunFeedback
  void Announce(const std::string& text) override;
  void Tell(const std::string& text, const std::string& title) override;
  /// Yes: whoever named the output and the fields has chosen them. What is agreed to is told.
  [[nodiscard]] bool Ask(RunQuestion question, const std::string& text, const std::string& title) override;
  [[nodiscard]] bool StopRequested() const override;
  bool TakeFault(const TrapSite& site, const Fault& fault) override;

  // IMessageBox
  MessageAnswer Show(const std::string& text, const std::string& title, MessageButtons buttons,
                     MessageIcon icon) override;
  // IFormHost: a run shows no form but that of its progress, which nobody sees.
  void ShowModal(Form& form) override;

 private:
  QgsProcessingFeedback& log_;
  RunSystem system_;
  WindowTurns* turns_ = nullptr;  // of a run on the thread of the windows
};

/// Hands the bar's position on as the progress of the run.
[[nodiscard]] std::shared_ptr<IStatusBar> CreateRunStatusBar(QgsProcessingFeedback& feedback);

}  // namespace tessarine::qgis
