// SPDX-License-Identifier: GPL-2.0-or-later
// A status bar with a bar that moves in steps: what every host's has in common. The host draws it.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/application.h"

namespace tessarine {

class SteppingStatusBar : public IStatusBar, public std::enable_shared_from_this<SteppingStatusBar> {
 public:
  /// It may outlive the bar, and then does nothing.
  [[nodiscard]] std::shared_ptr<IStepProgressor> ProgressBar() override;
  void ShowProgressBar(const std::string& text, std::int32_t minimum, std::int32_t maximum, std::int32_t step,
                       bool one_panel) override;
  /// One step on, at most to the maximum.
  void StepProgressBar() override { SetPosition(std::min(maximum_, position_ + step_)); }

  [[nodiscard]] std::int32_t Position() const { return position_; }
  void SetPosition(std::int32_t position);

 protected:
  /// What stands between the limits, whose begin the position takes.
  void SetRange(std::int32_t minimum, std::int32_t maximum);
  [[nodiscard]] std::int32_t Minimum() const { return minimum_; }
  [[nodiscard]] std::int32_t Maximum() const { return maximum_; }
  /// 0 to 1; an empty range counts as one of 1.
  [[nodiscard]] double Share() const;

  /// The bar appears, with the position at its begin.
  virtual void BarShown(const std::string& text) = 0;
  /// Called at each step: often.
  virtual void BarMoved() = 0;

 private:
  std::int32_t minimum_ = 0, maximum_ = 0, step_ = 1, position_ = 0;
};

}  // namespace tessarine
