#include "hosts/qgis/status_bar.h"

#include "hosts/windows/qt_text.h"

namespace tessarine::qgis {
namespace {

constexpr int kBarWidth = 160;

class StepProgressor final : public IStepProgressor {
 public:
  explicit StepProgressor(std::weak_ptr<ProgramStatusBar> owner) : owner_(std::move(owner)) {}
  [[nodiscard]] std::int32_t Position() const override {
    const auto owner = owner_.lock();
    return owner && owner->Bar() != nullptr ? owner->Bar()->value() : 0;
  }
  void SetPosition(std::int32_t position) override {
    const auto owner = owner_.lock();
    if (owner && owner->Bar() != nullptr) owner->Bar()->setValue(position);
  }

 private:
  std::weak_ptr<ProgramStatusBar> owner_;
};

/// A bar that moves by itself stands for the moving picture.
class AnimationProgressor final : public IAnimationProgressor {
 public:
  explicit AnimationProgressor(std::weak_ptr<ProgramStatusBar> owner) : owner_(std::move(owner)) {}
  void Show() override {
    if (const auto owner = owner_.lock()) owner->ShowBar(0, 0);
  }
  void Hide() override {
    if (const auto owner = owner_.lock()) owner->HideProgressBar();
  }
  void Play() override {}
  void Stop() override {}
  void SetMessage(const std::string& message) override {
    if (const auto owner = owner_.lock()) owner->SetMessage(0, message);
  }

 private:
  std::weak_ptr<ProgramStatusBar> owner_;
};

}  // namespace

void ProgramStatusBar::SetMessage(std::int32_t panel, const std::string& text) {
  if (bar_ && panel == 0) bar_->showMessage(ToQt(text));
}

std::shared_ptr<IAnimationProgressor> ProgramStatusBar::ProgressAnimation() {
  return std::make_shared<AnimationProgressor>(weak_from_this());
}

std::shared_ptr<IStepProgressor> ProgramStatusBar::ProgressBar() {
  return std::make_shared<StepProgressor>(weak_from_this());
}

void ProgramStatusBar::ShowBar(int minimum, int maximum) {
  if (!bar_) return;
  if (!progress_) {
    progress_ = new QProgressBar;  // the status bar takes it over
    progress_->setObjectName(QStringLiteral("TessarineProgress"));
    progress_->setMaximumWidth(kBarWidth);
    bar_->addPermanentWidget(progress_);
  }
  progress_->setRange(minimum, maximum);
  progress_->setValue(minimum);
  progress_->show();
}

void ProgramStatusBar::ShowProgressBar(const std::string& text, std::int32_t minimum, std::int32_t maximum,
                                       std::int32_t step, bool) {
  SetMessage(0, text);
  step_ = step;
  ShowBar(minimum, maximum);
}

void ProgramStatusBar::StepProgressBar() {
  if (progress_) progress_->setValue(progress_->value() + step_);
}

void ProgramStatusBar::HideProgressBar() {
  if (!progress_) return;
  if (bar_) {
    bar_->removeWidget(progress_);
    bar_->clearMessage();
  }
  delete progress_.data();
}

}  // namespace tessarine::qgis
