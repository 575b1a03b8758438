// SPDX-License-Identifier: GPL-2.0-or-later
// The host of one run from the toolbox: all that the run says goes to the run's log, and nothing opens a window.
#pragma once

#include <qgsprocessingfeedback.h>

#include <memory>
#include <string>

#include "hosts/document/promised_places.h"
#include "platform/application.h"
#include "platform/host.h"

namespace tessarine::qgis {

/// The operating system; the suite lies where the plug-in does.
class RunSystem final : public PromisingSystem {
 public:
  [[nodiscard]] std::string ProgramFolder() const override;
};

/// Works on whatever thread it was made on.
class RunHost final : public IHost, public IMessageBox, public IFormHost, public IClipboard, public IRegistry {
 public:
  explicit RunHost(QgsProcessingFeedback& feedback) : log_(feedback) {}

  [[nodiscard]] RunSystem& Places() { return system_; }

  // IHost
  IClock& Clock() override { return clock_; }
  IMessageBox& MessageBox() override { return *this; }
  IFormHost& Forms() override { return *this; }
  IClipboard& Clipboard() override { return *this; }
  IRegistry& Registry() override { return *this; }
  IOperatingSystem& System() override { return system_; }
  RunJournal& Journal() override { return journal_; }
  [[nodiscard]] bool PlanOnly() const override { return false; }
  std::shared_ptr<IErrorDialog> CreateErrorDialog() override;
  std::shared_ptr<IModelessFrame> CreateModelessFrame() override;
  std::shared_ptr<IGxDialog> CreateGxDialog() override;
  std::shared_ptr<ISpatialReferenceDialog2> CreateSpatialReferenceDialog() override;
  std::shared_ptr<IPrinter> ChoosePrinter() override { return nullptr; }
  std::shared_ptr<IFeatureLayer> CreateFeatureLayer() override;
  std::shared_ptr<ISimpleRenderer> CreateSimpleRenderer() override;

  // IRunFeedback
  void Announce(const std::string& text) override;
  void Tell(const std::string& text, const std::string& title) override;
  /// Yes: whoever named the output and the fields has chosen them. What is agreed to is told.
  [[nodiscard]] bool Ask(RunQuestion question, const std::string& text, const std::string& title) override;
  [[nodiscard]] bool StopRequested() const override { return log_.isCanceled(); }
  bool TakeFault(const TrapSite& site, const Fault& fault) override;

  // IMessageBox
  MessageAnswer Show(const std::string& text, const std::string& title, MessageButtons buttons,
                     MessageIcon icon) override;
  // IFormHost: a run shows no form but that of its progress, which nobody sees.
  void ShowModal(Form& form) override;
  void ShowModeless(Form&) override {}
  [[nodiscard]] double ScreenWidth() const override { return 640.0; }
  [[nodiscard]] double ScreenHeight() const override { return 400.0; }
  // IClipboard: that of the program is the user's.
  void Clear() override {}
  void SetRichText(const std::string&) override {}
  // IRegistry
  [[nodiscard]] std::string QueryLocalMachine(const std::string& key, const std::string& value) const override;

 private:
  QgsProcessingFeedback& log_;
  SystemClock clock_;
  RunSystem system_;
  RunJournal journal_;
};

/// Hands the bar's position on as the progress of the run.
[[nodiscard]] std::shared_ptr<IStatusBar> CreateRunStatusBar(QgsProcessingFeedback& feedback);

}  // namespace tessarine::qgis
