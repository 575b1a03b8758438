// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/run_host.h"

#include <algorithm>

#include "hosts/document/document_layer.h"
#include "hosts/qgis/qgis_host.h"
#include "hosts/windows/qt_text.h"
#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine::qgis {
namespace {

[[noreturn]] void RaiseNoWindows() { Raise(kInvalidCall, "A run from the toolbox opens no windows."); }

class LoggedErrors final : public IErrorDialog {
 public:
  explicit LoggedErrors(QgsProcessingFeedback& log) : log_(log) {}
  void AppendErrorText(const std::string& text) override { text_ += text; }
  void SetVisible(bool visible) override {
    if (visible) log_.reportError(LinesToQt(std::exchange(text_, {})));
  }

 private:
  QgsProcessingFeedback& log_;
  std::string text_;
};

/// Nothing is drawn.
class UnseenFrame final : public IModelessFrame {
 public:
  void Create(const std::shared_ptr<Form>&) override {}
  [[nodiscard]] std::string Caption() const override { return caption_; }
  void SetCaption(const std::string& caption) override { caption_ = caption; }
  [[nodiscard]] bool Visible() const override { return visible_; }
  void SetVisible(bool visible) override { visible_ = visible; }

 private:
  std::string caption_;
  bool visible_ = false;
};

class StillPicture final : public IAnimationProgressor {
 public:
  explicit StillPicture(QgsProcessingFeedback& log) : log_(log) {}
  void Show() override {}
  void Hide() override {}
  void Play() override {}
  void Stop() override {}
  void SetMessage(const std::string& message) override { log_.setProgressText(ToQt(message)); }

 private:
  QgsProcessingFeedback& log_;
};

class RunStatusBar final : public IStatusBar, public std::enable_shared_from_this<RunStatusBar> {
 public:
  explicit RunStatusBar(QgsProcessingFeedback& log) : log_(log) {}

  // The texts of each second would fill the log.
  void SetMessage(std::int32_t, const std::string&) override {}
  [[nodiscard]] std::shared_ptr<IAnimationProgressor> ProgressAnimation() override {
    return std::make_shared<StillPicture>(log_);
  }
  [[nodiscard]] std::shared_ptr<IStepProgressor> ProgressBar() override;
  void ShowProgressBar(const std::string& text, std::int32_t minimum, std::int32_t maximum, std::int32_t step,
                       bool) override {
    minimum_ = position_ = minimum;
    maximum_ = maximum;
    step_ = step;
    told_ = -1;
    log_.setProgressText(ToQt(Trim(text)));
    Draw();
  }
  void StepProgressBar() override { MoveTo(position_ + step_); }
  void HideProgressBar() override {}

 private:
  class Progressor;

  // Runs put the bar back at their end.
  void MoveTo(std::int32_t position) {
    position_ = std::clamp(position, position_, std::max(position_, maximum_));
    Draw();
  }
  // Signals go to another thread: one for each per cent is enough.
  void Draw() {
    const int percent = static_cast<int>(100.0 * (position_ - minimum_) / std::max(1, maximum_ - minimum_));
    if (percent == told_) return;
    told_ = percent;
    log_.setProgress(percent);
  }

  QgsProcessingFeedback& log_;
  std::int32_t minimum_ = 0, maximum_ = 0, step_ = 1, position_ = 0;
  int told_ = -1;
};

class RunStatusBar::Progressor final : public IStepProgressor {
 public:
  explicit Progressor(std::shared_ptr<RunStatusBar> bar) : bar_(std::move(bar)) {}
  [[nodiscard]] std::int32_t Position() const override { return bar_->position_; }
  void SetPosition(std::int32_t position) override { bar_->MoveTo(position); }

 private:
  std::shared_ptr<RunStatusBar> bar_;
};

std::shared_ptr<IStepProgressor> RunStatusBar::ProgressBar() {
  return std::make_shared<Progressor>(shared_from_this());
}

QString Titled(const std::string& text, const std::string& title) {
  const std::string head = Trim(title);
  return LinesToQt(head.empty() ? text : head + " " + text);
}

}  // namespace

std::string RunSystem::ProgramFolder() const { return PluginFolder(); }

std::shared_ptr<IErrorDialog> RunHost::CreateErrorDialog() { return std::make_shared<LoggedErrors>(log_); }

std::shared_ptr<IModelessFrame> RunHost::CreateModelessFrame() { return std::make_shared<UnseenFrame>(); }

std::shared_ptr<IGxDialog> RunHost::CreateGxDialog() { RaiseNoWindows(); }

std::shared_ptr<ISpatialReferenceDialog2> RunHost::CreateSpatialReferenceDialog() { RaiseNoWindows(); }

// The layers that a run makes are the program's own business.
std::shared_ptr<IFeatureLayer> RunHost::CreateFeatureLayer() { return std::make_shared<DocumentFeatureLayer>(); }

std::shared_ptr<ISimpleRenderer> RunHost::CreateSimpleRenderer() { return std::make_shared<DocumentRenderer>(); }

void RunHost::Announce(const std::string& text) { log_.pushWarning(LinesToQt(text)); }

void RunHost::Tell(const std::string& text, const std::string& title) { log_.pushWarning(Titled(text, title)); }

bool RunHost::Ask(RunQuestion, const std::string& text, const std::string& title) {
  log_.pushWarning(Titled(text, title) + QStringLiteral(" Yes."));
  return true;
}

bool RunHost::TakeFault(const TrapSite& site, const Fault& fault) {
  std::string text = fault.Description() + "\nFault " + std::to_string(fault.Number());
  const std::string& file = fault.File().empty() ? site.source : fault.File();
  const std::int32_t line = fault.File().empty() ? site.line : fault.Line();
  if (!file.empty()) text += " in " + Trim(site.procedure) + ", " + file + ":" + std::to_string(line);
  log_.reportError(LinesToQt(text));
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

std::string RunHost::QueryLocalMachine(const std::string& key, const std::string& value) const {
  // The terminating null belongs to what a registry answers.
  return key == "Software\\ESRI\\ArcGIS" && value == "RealVersion" ? kHostVersion + std::string(1, '\0') : "";
}

std::shared_ptr<IStatusBar> CreateRunStatusBar(QgsProcessingFeedback& feedback) {
  return std::make_shared<RunStatusBar>(feedback);
}

}  // namespace tessarine::qgis
