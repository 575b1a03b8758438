// SPDX-License-Identifier: GPL-2.0-or-later
// The terminal as host: forms are answered by the command's script, messages go to standard error, questions are
// answered by options or by the user, the browse dialog gives the place that the command line named.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/document/promised_places.h"
#include "hosts/document/windowless_host.h"
#include "hosts/terminal/form_script.h"
#include "hosts/terminal/refusal.h"
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

/// What the browse dialog answers: once, the place of the command line; then it is cancelled.
struct BrowsePlace {
  std::shared_ptr<IGxObject> location;
  std::string name;
};

class TerminalHost final : public WindowlessHost {
 public:
  TerminalHost(TerminalManners manners, std::string host_version);
  ~TerminalHost() override;
  TerminalHost(const TerminalHost&) = delete;
  TerminalHost& operator=(const TerminalHost&) = delete;

  /// Clears the line that the next text on standard error would stand on.
  std::function<void()> BeforePrinting = [] {};

  void SetScript(FormScript* script) { script_ = script; }
  void SetBrowsePlace(BrowsePlace place) { browse_place_ = std::move(place); }
  /// What the dialog for references answers; nothing cancels it.
  void SetChosenReference(SpatialReferenceRef reference) { chosen_reference_ = std::move(reference); }
  void SetWishes(OutputWishes wishes) { wishes_ = std::move(wishes); }
  [[nodiscard]] PromisingSystem& LocalSystem() { return system_; }
  [[nodiscard]] const TerminalManners& Manners() const { return manners_; }

  /// The report that a run showed, as RTF; nothing when none was shown.
  [[nodiscard]] const std::optional<std::string>& Report() const { return report_; }
  void SetReport(std::string rtf) { report_ = std::move(rtf); }
  [[nodiscard]] bool FaultReported() const { return fault_reported_; }
  [[nodiscard]] bool FormRefused() const { return form_refused_; }
  /// What the options asked of a form and the form can't give.
  [[nodiscard]] const std::optional<Refusal>& AnswerRefused() const { return refusal_; }
  void NoteFormRefused() { form_refused_ = true; }
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
  FormScript* script_ = nullptr;
  std::optional<BrowsePlace> browse_place_;
  SpatialReferenceRef chosen_reference_;
  OutputWishes wishes_;
  std::vector<std::weak_ptr<Form>> open_forms_;
  std::optional<std::string> report_;
  bool fault_reported_ = false;
  std::string last_message_;
  bool form_refused_ = false;
  std::optional<Refusal> refusal_;
  IHost* previous_;
};

}  // namespace tessarine
