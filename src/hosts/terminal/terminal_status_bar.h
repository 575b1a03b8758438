// The host's status bar as one line on standard error; nothing at all where that is no terminal.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/application.h"

namespace tessarine {

class TerminalStatusBar final : public IStatusBar, public std::enable_shared_from_this<TerminalStatusBar> {
 public:
  explicit TerminalStatusBar(bool shown) : shown_(shown) {}

  void SetMessage(std::int32_t panel, const std::string& text) override;
  [[nodiscard]] std::shared_ptr<IAnimationProgressor> ProgressAnimation() override;
  [[nodiscard]] std::shared_ptr<IStepProgressor> ProgressBar() override;
  void ShowProgressBar(const std::string& text, std::int32_t minimum, std::int32_t maximum, std::int32_t step,
                       bool one_panel) override;
  void StepProgressBar() override;
  void HideProgressBar() override;

 private:
  class Progressor;
  void Draw();
  void Erase();

  bool shown_;
  bool visible_ = false;
  bool drawn_ = false;
  std::string text_;
  std::int32_t minimum_ = 0, maximum_ = 0, step_ = 1, position_ = 0;
  std::int32_t next_look_ = 0;
  std::chrono::steady_clock::time_point last_drawn_;
};

}  // namespace tessarine
