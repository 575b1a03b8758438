// SPDX-License-Identifier: GPL-2.0-or-later
// The terminal as host: messages go to standard error, questions are answered by options or by the user, and dialogs
// that the user would have to answer are given up.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/document/promised_places.h"
#include "hosts/document/windowless_host.h"
#include "platform/host.h"

namespace tessarine {

/// How questions are answered and what is printed.
struct TerminalManners {
  bool yes = false;        ///< every question is answered Yes
  bool overwrite = false;  ///< the question whether to overwrite is answered Yes
  bool interactive = false;
  bool plan_only = false;
  unsigned jobs = 1;
};

class TerminalHost final : public WindowlessHost {
 public:
  TerminalHost(TerminalManners manners, std::string host_version);
  ~TerminalHost() override;
  TerminalHost(const TerminalHost&) = delete;
  TerminalHost& operator=(const TerminalHost&) = delete;

  /// Clears the line that the next text on standard error would stand on.
  std::function<void()> before_printing = [] {};
  /// Reads a form that a command shows.
  std::function<void(Form& form)> read_form = [](Form&) {};

  void SetWishes(OutputWishes wishes) { wishes_ = std::move(wishes); }
  [[nodiscard]] PromisingSystem& LocalSystem() { return system_; }
  [[nodiscard]] const TerminalManners& Manners() const { return manners_; }

  /// The report that a run showed, as RTF; empty when none was shown.
  [[nodiscard]] const std::optional<std::string>& Report() const { return report_; }
  void SetReport(std::string rtf) { report_ = std::move(rtf); }
  [[nodiscard]] bool FaultReported() const { return fault_reported_; }
  void NoteFault() { fault_reported_ = true; }
  /// True when a message box has told this text.
  [[nodiscard]] bool WasShown(const std::string& text) const;

  // IHost
  IOperatingSystem& System() override { return system_; }
  /// A stop presses Stop on the open progress forms.
  void PumpEvents() override;
  [[nodiscard]] bool StopRequested() const override;
  void RestoreMousePointer() override {}
  std::shared_ptr<IErrorDialog> CreateErrorDialog() override;
  std::shared_ptr<IModelessFrame> CreateModelessFrame() override;
  std::shared_ptr<IGxDialog> CreateGxDialog() override;
  std::shared_ptr<ISpatialReferenceDialog2> CreateSpatialReferenceDialog() override;
  [[nodiscard]] OutputWishes Wishes() const override { return wishes_; }
  void Announce(const std::string& sentence) override;
  [[nodiscard]] bool Ask(RunQuestion question, const std::string& text, const std::string& title) override;
  [[nodiscard]] bool PlanOnly() const override { return manners_.plan_only; }
  [[nodiscard]] unsigned Jobs() const override { return manners_.jobs; }

  // IMessageBox
  MessageAnswer Show(const std::string& text, const std::string& title, MessageButtons buttons,
                     MessageIcon icon) override;
  // IFormHost
  void ShowModal(Form& form) override;

 private:
  [[nodiscard]] bool AskUser() const;

  TerminalManners manners_;
  PromisingSystem system_;
  OutputWishes wishes_;
  std::vector<std::weak_ptr<Form>> open_forms_;
  std::optional<std::string> report_;
  bool fault_reported_ = false;
  std::string last_message_;
  IHost* previous_;
};

}  // namespace tessarine
