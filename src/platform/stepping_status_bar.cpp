// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/stepping_status_bar.h"

namespace tessarine {
namespace {

class Progressor final : public IStepProgressor {
 public:
  explicit Progressor(std::weak_ptr<SteppingStatusBar> bar) : bar_(std::move(bar)) {}
  [[nodiscard]] std::int32_t Position() const override {
    const auto bar = bar_.lock();
    return bar ? bar->Position() : 0;
  }
  void SetPosition(std::int32_t position) override {
    if (const auto bar = bar_.lock()) bar->SetPosition(position);
  }

 private:
  std::weak_ptr<SteppingStatusBar> bar_;
};

}  // namespace

std::shared_ptr<IStepProgressor> SteppingStatusBar::ProgressBar() {
  return std::make_shared<Progressor>(weak_from_this());
}

void SteppingStatusBar::ShowProgressBar(const std::string& text, std::int32_t minimum, std::int32_t maximum,
                                        std::int32_t step, bool) {
  step_ = step;
  SetRange(minimum, maximum);
  BarShown(text);
}

void SteppingStatusBar::SetRange(std::int32_t minimum, std::int32_t maximum) {
  minimum_ = position_ = minimum;
  maximum_ = maximum;
}

void SteppingStatusBar::SetPosition(std::int32_t position) {
  position_ = position;
  BarMoved();
}

double SteppingStatusBar::Share() const {
  const double range = std::max(1, maximum_ - minimum_);
  return std::clamp((position_ - minimum_) / range, 0.0, 1.0);
}

}  // namespace tessarine
