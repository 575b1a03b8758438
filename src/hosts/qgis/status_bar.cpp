// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/status_bar.h"

#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"

namespace tessarine::qgis {
namespace {

constexpr int kBarWidth = 160;
// The program's bar measures its text at each change; a run steps for each record.
constexpr auto kShowInterval = std::chrono::milliseconds(100);

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
  if (bar_ && panel == 0) bar_->showMessage(Translated(ToQt(text)));
}

std::shared_ptr<IAnimationProgressor> ProgramStatusBar::ProgressAnimation() {
  return std::make_shared<AnimationProgressor>(std::static_pointer_cast<ProgramStatusBar>(shared_from_this()));
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
  SetRange(minimum, maximum);
  ShowPosition();
  progress_->show();
}

void ProgramStatusBar::BarShown(const std::string& text) {
  SetMessage(0, text);
  ShowBar(Minimum(), Maximum());
}

void ProgramStatusBar::BarMoved() {
  if (Position() >= Maximum() || std::chrono::steady_clock::now() - shown_at_ >= kShowInterval) ShowPosition();
}

void ProgramStatusBar::ShowPosition() {
  shown_at_ = std::chrono::steady_clock::now();
  if (progress_) progress_->setValue(Position());
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
