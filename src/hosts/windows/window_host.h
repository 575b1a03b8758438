// SPDX-License-Identifier: GPL-2.0-or-later
// What every host with windows shares: forms, message boxes, error reports, the browse and reference dialogs, the
// printer, the clipboard, the hourglass and the event pump. A host adds its layers and renderers.
#pragma once

#include <QObject>
#include <QPointer>
#include <memory>
#include <string>
#include <vector>

#include "engine/local_system.h"
#include "hosts/windows/error_window.h"
#include "hosts/windows/window_forms.h"
#include "platform/host.h"

namespace tessarine {

/// The host of the process while it lives. It must go before the `QApplication`.
class WindowHost : public IHost, public IMessageBox, public IClipboard, public IRegistry {
 public:
  /// Dialogs stand over the window, or on their own where there is none. The version is the one that the host answers
  /// for itself, as "10.0".
  WindowHost(QWidget* main_window, std::string host_version);
  ~WindowHost() override;
  WindowHost(const WindowHost&) = delete;
  WindowHost& operator=(const WindowHost&) = delete;

  /// Stands around the click of a command. While one lives, the event pump lets the user reach the suite's windows
  /// only, so that no second command and no closing of the program runs inside the first.
  class CommandScope {
   public:
    explicit CommandScope(WindowHost& host) : host_(host) { ++host_.runs_; }
    ~CommandScope() {
      if (--host_.runs_ == 0) host_.RestoreMousePointer();
    }
    CommandScope(const CommandScope&) = delete;
    CommandScope& operator=(const CommandScope&) = delete;

   private:
    WindowHost& host_;
  };
  /// True while a command runs; a host keeps its own commands disabled then.
  [[nodiscard]] bool Running() const { return runs_ > 0; }

  /// The folder in which the user's project lies, a native path; empty where there is none.
  [[nodiscard]] virtual std::string ProjectFolder() const { return ""; }

  [[nodiscard]] WindowForms& FormWindows() { return forms_; }

  // IHost
  IClock& Clock() override { return clock_; }
  IMessageBox& MessageBox() override { return *this; }
  IFormHost& Forms() override { return forms_; }
  IClipboard& Clipboard() override { return *this; }
  IRegistry& Registry() override { return *this; }
  IOperatingSystem& System() override { return system_; }
  void PumpEvents() override;
  /// Never true: dialogs have buttons for it. Work that asks gives windows their turn, ten times a second.
  [[nodiscard]] bool StopRequested() const override;
  void RestoreMousePointer() override;
  void ShowWaitPointer() override;
  void Beep() override;
  std::shared_ptr<IErrorDialog> CreateErrorDialog() override;
  std::shared_ptr<IModelessFrame> CreateModelessFrame() override { return forms_.CreateFrame(); }
  std::shared_ptr<IGxDialog> CreateGxDialog() override;
  std::shared_ptr<ISpatialReferenceDialog2> CreateSpatialReferenceDialog() override;
  std::shared_ptr<IPrinter> ChoosePrinter() override;
  RunJournal& Journal() override { return journal_; }
  [[nodiscard]] bool PlanOnly() const override { return false; }

  // IMessageBox
  MessageAnswer Show(const std::string& text, const std::string& title, MessageButtons buttons,
                     MessageIcon icon) override;
  // IClipboard
  void Clear() override;
  /// As RTF, HTML and plain text.
  void SetRichText(const std::string& rtf) override;
  // IRegistry
  [[nodiscard]] std::string QueryLocalMachine(const std::string& key, const std::string& value) const override;

 private:
  class ErrorDialog;
  class InputGate;

  void ReportError(const std::string& text);
  /// The window of faults that takes input; null when there is none.
  [[nodiscard]] ErrorWindow* ShownErrors() const;

  QPointer<QWidget> main_window_;
  std::string host_version_;
  SystemClock clock_;
  LocalOperatingSystem system_;
  WindowForms forms_;
  RunJournal journal_;
  std::unique_ptr<InputGate> gate_;
  std::shared_ptr<WindowHost*> self_;  // lets what outlives the host know that it is gone
  std::vector<QPointer<ErrorWindow>> errors_;
  int runs_ = 0;
  bool waiting_ = false;
  IHost* previous_;
};

}  // namespace tessarine
