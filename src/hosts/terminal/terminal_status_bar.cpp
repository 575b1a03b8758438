#include "hosts/terminal/terminal_status_bar.h"

#include <fmt/core.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace tessarine {
namespace {

constexpr auto kDrawInterval = std::chrono::milliseconds(100);
constexpr int kBarWidth = 30;
// How many steps pass between two looks at the clock.
constexpr std::int32_t kStepsPerLook = 64;

int TerminalWidth() {
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  return 80;
}

// The first characters of a UTF-8 text.
std::string Cut(const std::string& text, int characters) {
  std::size_t end = 0;
  for (int count = 0; end < text.size() && count < characters; ++count) {
    ++end;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) ++end;
  }
  return text.substr(0, end);
}

class QuietAnimation final : public IAnimationProgressor {
 public:
  explicit QuietAnimation(TerminalStatusBar& bar) : bar_(bar) {}
  void Show() override {}
  void Hide() override {}
  void Play() override {}
  void Stop() override {}
  void SetMessage(const std::string& message) override { bar_.SetMessage(0, message); }

 private:
  TerminalStatusBar& bar_;
};

}  // namespace

class TerminalStatusBar::Progressor final : public IStepProgressor {
 public:
  explicit Progressor(std::shared_ptr<TerminalStatusBar> bar) : bar_(std::move(bar)) {}
  [[nodiscard]] std::int32_t Position() const override { return bar_->position_; }
  void SetPosition(std::int32_t position) override { bar_->position_ = position; }

 private:
  std::shared_ptr<TerminalStatusBar> bar_;
};

std::shared_ptr<IStepProgressor> TerminalStatusBar::ProgressBar() {
  return std::make_shared<Progressor>(shared_from_this());
}

std::shared_ptr<IAnimationProgressor> TerminalStatusBar::ProgressAnimation() {
  return std::make_shared<QuietAnimation>(*this);
}

void TerminalStatusBar::SetMessage(std::int32_t, const std::string& text) {
  text_ = text;
  if (visible_) Draw();
}

void TerminalStatusBar::ShowProgressBar(const std::string& text, std::int32_t minimum, std::int32_t maximum,
                                        std::int32_t step, bool) {
  text_ = text;
  minimum_ = position_ = minimum;
  maximum_ = maximum;
  step_ = step;
  next_look_ = 0;
  visible_ = true;
  Draw();
}

void TerminalStatusBar::StepProgressBar() {
  position_ = std::min(maximum_, position_ + step_);
  if (!shown_ || --next_look_ > 0) return;
  next_look_ = kStepsPerLook;
  if (std::chrono::steady_clock::now() - last_drawn_ >= kDrawInterval) Draw();
}

void TerminalStatusBar::HideProgressBar() {
  visible_ = false;
  Erase();
}

void TerminalStatusBar::Draw() {
  if (!shown_ || !visible_) return;
  last_drawn_ = std::chrono::steady_clock::now();
  const double range = std::max(1, maximum_ - minimum_);
  const double share = std::clamp((position_ - minimum_) / range, 0.0, 1.0);
  const int filled = static_cast<int>(share * kBarWidth);
  const std::string bar = std::string(static_cast<std::size_t>(filled), '#') +
                          std::string(static_cast<std::size_t>(kBarWidth - filled), '.');
  const std::string line = fmt::format("[{}] {:3.0f}% {}", bar, share * 100.0, text_);
  fmt::print(stderr, "\r\033[K{}", Cut(line, TerminalWidth() - 1));
  std::fflush(stderr);
  drawn_ = true;
}

void TerminalStatusBar::Erase() {
  if (!drawn_) return;
  fmt::print(stderr, "\r\033[K");
  std::fflush(stderr);
  drawn_ = false;
}

}  // namespace tessarine
