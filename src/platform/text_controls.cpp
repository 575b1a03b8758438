// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>

#include "platform/form.h"
#include "platform/rich_text.h"

namespace tessarine {
namespace {

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::int32_t CharacterCount(std::string_view text) {
  return static_cast<std::int32_t>(std::ranges::count_if(text, [](char c) { return !IsContinuation(c); }));
}

// The byte at which character number `index` begins.
std::size_t ByteOf(std::string_view text, std::int32_t index) {
  std::size_t at = 0;
  for (; at < text.size() && index > 0; --index) {
    ++at;
    while (at < text.size() && IsContinuation(text[at])) ++at;
  }
  return at;
}

}  // namespace

void TextBox::SetText(std::string text) {
  if (text == text_) return;
  text_ = std::move(text);
  sel_start_ = std::min(sel_start_, CharacterCount(text_));
  sel_length_ = 0;
  Changed();
  if (Change) Change();
}

void TextBox::Type(std::string_view keys) {
  constexpr std::int32_t kBackspace = 8;
  for (std::size_t at = 0; at < keys.size();) {
    std::size_t end = at + 1;
    while (end < keys.size() && IsContinuation(keys[end])) ++end;
    const std::string_view character = keys.substr(at, end - at);
    at = end;
    std::int32_t key = character.size() == 1 ? static_cast<unsigned char>(character[0]) : 0x10000;
    if (KeyPress) KeyPress(key);
    if (key == 0 || Locked) continue;

    std::int32_t start = sel_start_;
    std::int32_t length = sel_length_;
    const bool backspace = key == kBackspace;
    if (backspace && length == 0) {
      if (start == 0) continue;
      --start;
      length = 1;
    }
    const std::size_t first = ByteOf(text_, start);
    const std::size_t last = ByteOf(text_, start + length);
    const std::string_view inserted = backspace ? std::string_view() : character;
    std::string changed = text_.substr(0, first);
    changed += inserted;
    changed += text_.substr(last);
    // The caret moves first, so that the change event sees it in its new place.
    sel_start_ = start + (backspace ? 0 : 1);
    sel_length_ = 0;
    SetText(std::move(changed));
  }
}

void RichTextBox::SetTextRTF(std::string rtf) {
  rtf_ = std::move(rtf);
  text_ = ToPlainText(ReadRtf(rtf_));
  Changed();
}

void RichTextBox::SetText(std::string text) {
  text_ = std::move(text);
  rtf_ = PlainTextToRtf(text_);
  Changed();
}

}  // namespace tessarine
