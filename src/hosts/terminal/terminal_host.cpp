// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/terminal_host.h"

#include <fmt/core.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "hosts/terminal/interrupt.h"
#include "hosts/terminal/passwords.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr const char* kReportForm = "frmReport_modal";
constexpr int kLookInterval = 200;  // milliseconds between two looks for a signal while a question is open

// What a message says, with the line ends of a terminal.
std::string NativeLines(const std::string& text) { return Replace(text, "\r\n", "\n"); }

// A line of standard input, without its end; empty when the user asks the run to stop instead of answering.
std::string ReadAnswer() {
  std::string line;
  pollfd input{STDIN_FILENO, POLLIN, 0};
  char next = 0;
  while (!WasInterrupted()) {
    if (poll(&input, 1, kLookInterval) <= 0) continue;
    if (read(STDIN_FILENO, &next, 1) != 1 || next == '\n') return line;
    line += next;
  }
  return "";
}

class TerminalErrorDialog final : public IErrorDialog {
 public:
  explicit TerminalErrorDialog(TerminalHost& host) : host_(host) {}
  void AppendErrorText(const std::string& text) override { text_ += text; }
  void SetVisible(bool visible) override {
    if (!visible) return;
    host_.before_printing();
    fmt::print(stderr, "{}\n", WithoutPasswords(Trim(NativeLines(text_))));
    text_.clear();
    host_.NoteFault();
  }

 private:
  TerminalHost& host_;
  std::string text_;
};

/// Nothing is drawn; the frame only knows which form is open, so that an interrupt finds it.
class TerminalFrame final : public UnseenFrame {
 public:
  explicit TerminalFrame(std::vector<std::weak_ptr<Form>>& open_forms) : open_forms_(open_forms) {}
  void Create(const std::shared_ptr<Form>& form) override { open_forms_.push_back(form); }

 private:
  std::vector<std::weak_ptr<Form>>& open_forms_;
};

/// Nobody is there to choose a place.
class TerminalGxDialog final : public IGxDialog {
 public:
  void AddFilter(GxFilter, bool) override {}
  void SetAllowMultiSelect(bool) override {}
  void SetTitle(const std::string&) override {}
  void SetButtonCaption(const std::string&) override {}
  void SetStartingLocation(const std::string&) override {}
  [[nodiscard]] std::string Name() const override { return ""; }
  void SetName(const std::string&) override {}
  [[nodiscard]] std::shared_ptr<IGxObject> FinalLocation() const override { return nullptr; }
  bool DoModalSave(std::int32_t) override { return false; }
  bool DoModalOpen(std::int32_t, std::vector<std::shared_ptr<IGxObject>>&) override { return false; }
};

class TerminalReferenceDialog final : public ISpatialReferenceDialog2 {
 public:
  [[nodiscard]] SpatialReferenceRef DoModalCreate(std::int32_t) override { return nullptr; }
};

}  // namespace

TerminalHost::TerminalHost(TerminalManners manners, std::string host_version)
    : WindowlessHost(std::move(host_version)), manners_(manners), previous_(SetHost(this)) {}

TerminalHost::~TerminalHost() { SetHost(previous_); }

bool TerminalHost::StopRequested() const { return WasInterrupted(); }

void TerminalHost::Announce(const std::string& sentence) {
  before_printing();
  fmt::print(stderr, "tessarine: {}\n", WithoutPasswords(sentence));
}

void TerminalHost::PumpEvents() {
  if (!StopRequested()) return;
  std::erase_if(open_forms_, [](const auto& form) { return form.expired(); });
  for (const auto& entry : open_forms_) {
    const std::shared_ptr<Form> form = entry.lock();
    auto* stop = form->FindAs<CommandButton>("cmdStop");
    // After the end of the work the same button closes the form.
    if (stop != nullptr && stop->Caption() == "Stop") stop->Press();
  }
}

std::shared_ptr<IErrorDialog> TerminalHost::CreateErrorDialog() { return std::make_shared<TerminalErrorDialog>(*this); }

std::shared_ptr<IModelessFrame> TerminalHost::CreateModelessFrame() {
  return std::make_shared<TerminalFrame>(open_forms_);
}

std::shared_ptr<IGxDialog> TerminalHost::CreateGxDialog() { return std::make_shared<TerminalGxDialog>(); }

std::shared_ptr<ISpatialReferenceDialog2> TerminalHost::CreateSpatialReferenceDialog() {
  return std::make_shared<TerminalReferenceDialog>();
}

bool TerminalHost::Ask(RunQuestion question, const std::string& text, const std::string& title) {
  if (question == RunQuestion::ReplaceOutput && manners_.overwrite) return true;
  return Show(text, title, MessageButtons::YesNo, MessageIcon::None) == MessageAnswer::Yes;
}

bool TerminalHost::AskUser() const {
  if (!manners_.interactive) return false;
  fmt::print(stderr, "[y/N] ");
  std::fflush(stderr);
  const std::string answer = ReadAnswer();
  return EqualsIgnoringCase(Trim(answer), "y") || EqualsIgnoringCase(Trim(answer), "yes");
}

MessageAnswer TerminalHost::Show(const std::string& text, const std::string& title, MessageButtons buttons,
                                 MessageIcon) {
  if (buttons == MessageButtons::YesNo && manners_.yes) return MessageAnswer::Yes;
  before_printing();
  fmt::print(stderr, "{}{}{}\n", Trim(title), title.empty() ? "" : "\n", WithoutPasswords(NativeLines(text)));
  last_message_ = text;
  switch (buttons) {
    case MessageButtons::Ok:
      return MessageAnswer::Ok;
    case MessageButtons::OkCancel:
      // "Ok" would show the same dialog again, which has no other answer here.
      return MessageAnswer::Cancel;
    case MessageButtons::YesNo:
      return AskUser() ? MessageAnswer::Yes : MessageAnswer::No;
  }
  return MessageAnswer::Cancel;
}

bool TerminalHost::WasShown(const std::string& text) const { return last_message_.find(text) != std::string::npos; }

void TerminalHost::ShowModal(Form& form) {
  if (form.Name() == kReportForm) {
    if (const auto* text = form.FindAs<RichTextBox>("txtReport")) report_ = text->TextRTF();
    if (auto* exit = form.FindAs<CommandButton>("cmdOK")) exit->Press();
    return;
  }
  read_form(form);
  if (form.Visible()) form.CloseByUser();
}

}  // namespace tessarine
