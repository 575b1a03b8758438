// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/run_host.h"

#include "hosts/qgis/qgis_host.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/fault.h"
#include "platform/stepping_status_bar.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

[[noreturn]] void RaiseNoWindows() { Raise(kInvalidCall, "A run from the toolbox opens no windows."); }

class LoggedErrors final : public IErrorDialog {
 public:
  explicit LoggedErrors(QgsProcessingFeedback& log) : log_(log) {}
  void AppendErrorText(const std::string& text) override { text_ += text; }
  void SetVisible(bool visible) override {
    if (visible) log_.reportError(Translated(LinesToQt(std::exchange(text_, {}))));
  }

 private:
  QgsProcessingFeedback& log_;
  std::string text_;
};

class StillPicture final : public IAnimationProgressor {
 public:
  explicit StillPicture(QgsProcessingFeedback& log) : log_(log) {}
  void Show() override {}
  void Hide() override {}
  void Play() override {}
  void Stop() override {}
  void SetMessage(const std::string& message) override { log_.setProgressText(Translated(ToQt(message))); }

 private:
  QgsProcessingFeedback& log_;
};

class RunStatusBar final : public SteppingStatusBar {
 public:
  explicit RunStatusBar(QgsProcessingFeedback& log) : log_(log) {}

  // The texts of each second would fill the log.
  void SetMessage(std::int32_t, const std::string&) override {}
  [[nodiscard]] std::shared_ptr<IAnimationProgressor> ProgressAnimation() override {
    return std::make_shared<StillPicture>(log_);
  }
  void HideProgressBar() override {}

 private:
  void BarShown(const std::string& text) override {
    told_ = -1;
    log_.setProgressText(Translated(ToQt(Trim(text))));
    BarMoved();
  }
  // Signals go to another thread: one for each per cent is enough. Runs put the bar back at their end.
  void BarMoved() override {
    const int percent = static_cast<int>(100.0 * Share());
    if (percent <= told_) return;
    told_ = percent;
    log_.setProgress(percent);
  }

  QgsProcessingFeedback& log_;
  int told_ = -1;
};

QString Titled(const std::string& text, const std::string& title) {
  const QString head = Translated(LinesToQt(Trim(title)));
  const QString told = Translated(LinesToQt(text));
  return head.isEmpty() ? told : head + QLatin1Char(' ') + told;
}

}  // namespace

std::string RunSystem::ProgramFolder() const { return PluginFolder(); }

RunHost::RunHost(QgsProcessingFeedback& feedback) : WindowlessHost(kHostVersion), log_(feedback) {}

std::shared_ptr<IErrorDialog> RunHost::CreateErrorDialog() { return std::make_shared<LoggedErrors>(log_); }

std::shared_ptr<IGxDialog> RunHost::CreateGxDialog() { RaiseNoWindows(); }

std::shared_ptr<ISpatialReferenceDialog2> RunHost::CreateSpatialReferenceDialog() { RaiseNoWindows(); }

bool RunHost::StopRequested() const {
  if (turns_ != nullptr) turns_->Give();
  return log_.isCanceled();
}

void RunHost::Announce(const std::string& text) { log_.pushWarning(Translated(LinesToQt(text))); }

void RunHost::Tell(const std::string& text, const std::string& title) { log_.pushWarning(Titled(text, title)); }

bool RunHost::Ask(RunQuestion, const std::string& text, const std::string& title) {
  log_.pushWarning(Titled(text, title) + QLatin1Char(' ') + Translated("Yes."));
  return true;
}

bool RunHost::TakeFault(const TrapSite& site, const Fault& fault) {
  std::string place = "Fault " + std::to_string(fault.Number());
  const std::string& file = fault.File().empty() ? site.source : fault.File();
  const std::int32_t line = fault.File().empty() ? site.line : fault.Line();
  if (!file.empty()) place += " in " + Trim(site.procedure) + ", " + file + ":" + std::to_string(line);
  log_.reportError(Translated(LinesToQt(fault.Description())) + QLatin1Char('\n') + ToQt(place));
  return true;
}

MessageAnswer RunHost::Show(const std::string& text, const std::string& title, MessageButtons buttons, MessageIcon) {
  Tell(text, title);
  switch (buttons) {
    case MessageButtons::Ok:
      return MessageAnswer::Ok;
    case MessageButtons::OkCancel:
      return MessageAnswer::Cancel;
    case MessageButtons::YesNo:
      return MessageAnswer::No;
  }
  return MessageAnswer::Cancel;
}

void RunHost::ShowModal(Form&) { RaiseNoWindows(); }

std::shared_ptr<IStatusBar> CreateRunStatusBar(QgsProcessingFeedback& feedback) {
  return std::make_shared<RunStatusBar>(feedback);
}

}  // namespace tessarine::qgis
