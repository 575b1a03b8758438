// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/terminal_status_bar.h"

#include <fmt/core.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr auto kDrawInterval = std::chrono::milliseconds(100);
constexpr auto kJsonInterval = std::chrono::seconds(1);
constexpr std::size_t kWidestBar = 30, kNarrowestBar = 10;
// How many steps pass between two looks at the clock.
constexpr std::int32_t kStepsPerLook = 64;
// What a narrow line does without, in this order.
constexpr std::string_view kLeadEnd = ".....[";
constexpr std::string_view kDots = ".....";
constexpr std::size_t kLeastLead = 12;  // characters; less of it says nothing

int TerminalWidth() {
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
  return 80;
}

bool ContinuesCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

std::size_t CharacterCount(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, [](char byte) { return !ContinuesCharacter(byte); }));
}

// The first characters of a UTF-8 text.
std::string Cut(const std::string& text, std::size_t characters) {
  std::size_t end = 0;
  for (std::size_t count = 0; end < text.size() && count < characters; ++count) {
    ++end;
    while (end < text.size() && ContinuesCharacter(text[end])) ++end;
  }
  return text.substr(0, end);
}

// The text without what the bar says already, and with as much of its begin as there is room for.
std::string Fitted(std::string text, std::size_t room) {
  if (CharacterCount(text) <= room) return text;
  const std::size_t lead = text.find(kLeadEnd);
  if (lead == std::string::npos) return Cut(text, room);
  std::string end = text.substr(lead + kDots.size());
  if (const std::size_t share = end.find("  --- "); share != std::string::npos) {
    end.erase(share, std::min(end.find(']'), end.size()) - share);
  }
  for (std::size_t dots = end.find(kDots); dots != std::string::npos; dots = end.find(kDots)) {
    end.replace(dots, kDots.size(), " ");
  }
  while (end.ends_with('.')) end.pop_back();
  const std::size_t taken = CharacterCount(end) + 1;
  if (taken + 1 >= room) return Cut(end, room);
  const std::size_t left = room - taken;
  const std::string begin = text.substr(0, lead);
  if (CharacterCount(begin) <= left) return begin + " " + end;
  return left < kLeastLead ? end : Trim(Cut(begin, left - 3)) + "... " + end;
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

std::shared_ptr<IAnimationProgressor> TerminalStatusBar::ProgressAnimation() {
  return std::make_shared<QuietAnimation>(*this);
}

void TerminalStatusBar::SetMessage(std::int32_t, const std::string& text) {
  text_ = text;
  if (visible_) Draw();
}

void TerminalStatusBar::BarShown(const std::string& text) {
  text_ = text;
  next_look_ = 0;
  visible_ = true;
  Draw();
}

void TerminalStatusBar::BarMoved() {
  if (display_ == ProgressDisplay::None || --next_look_ > 0) return;
  next_look_ = kStepsPerLook;
  const auto since = std::chrono::steady_clock::now() - last_drawn_;
  if (display_ == ProgressDisplay::Json ? since >= kJsonInterval : since >= kDrawInterval) Draw();
}

void TerminalStatusBar::HideProgressBar() {
  visible_ = false;
  Erase();
}

void TerminalStatusBar::Draw() {
  if (display_ == ProgressDisplay::None || !visible_) return;
  last_drawn_ = std::chrono::steady_clock::now();
  display_ == ProgressDisplay::Json ? PrintJson() : DrawBar();
  std::fflush(stderr);
}

void TerminalStatusBar::DrawBar() {
  fmt::print(stderr, "\r\033[K{}", ProgressLine(Share(), text_, TerminalWidth() - 1));
  drawn_ = true;
}

void TerminalStatusBar::PrintJson() const {
  const nlohmann::json line = {{"progress", Share()}, {"record", Position()}, {"of", Maximum()}, {"text", text_}};
  fmt::print(stderr, "{}\n", line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
}

void TerminalStatusBar::Erase() {
  if (!drawn_) return;
  fmt::print(stderr, "\r\033[K");
  std::fflush(stderr);
  drawn_ = false;
}

std::string ProgressLine(double share, const std::string& text, int width) {
  const std::size_t room = static_cast<std::size_t>(std::max(1, width));
  const std::string percent = fmt::format(" {:3.0f}% ", share * 100.0);
  const std::size_t beside = percent.size() + 2;
  const std::size_t wanted = beside + CharacterCount(text);
  const std::size_t bar = std::clamp(room > wanted ? room - wanted : kNarrowestBar, kNarrowestBar, kWidestBar);
  const auto filled = static_cast<std::size_t>(share * static_cast<double>(bar));
  const std::string drawn = "[" + std::string(filled, '#') + std::string(bar - filled, '.') + "]" + percent;
  return Cut(drawn + Fitted(text, room > bar + beside ? room - bar - beside : 0), room);
}

}  // namespace tessarine
