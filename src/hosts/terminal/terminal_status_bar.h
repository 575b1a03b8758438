// SPDX-License-Identifier: GPL-2.0-or-later
// The host's status bar on standard error: one line that is drawn again and again, or lines of JSON for a program.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>

#include "platform/stepping_status_bar.h"

namespace tessarine {

enum class ProgressDisplay : std::uint8_t { Bar, Json, None };

/// The line of a bar that is done to `share` (0 to 1), at most `width` characters wide: the bar narrows and the begin
/// of the text gives way before its end does, where the record and the time left stand.
[[nodiscard]] std::string ProgressLine(double share, const std::string& text, int width);

class TerminalStatusBar final : public SteppingStatusBar {
 public:
  explicit TerminalStatusBar(ProgressDisplay display) : display_(display) {}

  void SetMessage(std::int32_t panel, const std::string& text) override;
  [[nodiscard]] std::shared_ptr<IAnimationProgressor> ProgressAnimation() override;
  void HideProgressBar() override;
  /// Takes the bar from its line until it is drawn again.
  void Erase();

 private:
  void BarShown(const std::string& text) override;
  void BarMoved() override;
  void Draw();
  void DrawBar();
  void PrintJson() const;

  ProgressDisplay display_;
  bool visible_ = false;
  bool drawn_ = false;
  std::string text_;
  std::int32_t next_look_ = 0;
  std::chrono::steady_clock::time_point last_drawn_;
};

}  // namespace tessarine
