// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/text_encoding.h"

#include <algorithm>

namespace tessarine {
namespace {

bool IsContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

// The bytes of the character at the front; 0 where there is none.
std::size_t LengthOfFirst(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  if (!std::ranges::all_of(text.substr(1, length - 1), IsContinuation)) return 0;
  // A second byte that makes the form overlong, a surrogate, or more than there are characters.
  const auto second = static_cast<unsigned char>(text[1]);
  const bool wrong = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                     (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
  return wrong ? 0 : length;
}

}  // namespace

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const std::size_t length = LengthOfFirst(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

std::string Utf8FromLatin1(std::string_view bytes) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      text += c;
    } else {
      text += static_cast<char>(0xC0 | byte >> 6);
      text += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return text;
}

std::string ReadableText(std::string_view bytes) { return IsUtf8(bytes) ? std::string(bytes) : Utf8FromLatin1(bytes); }

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, [](char c) { return !IsContinuation(c); }));
}

std::string_view FirstBytes(std::string_view text, std::size_t most_bytes) {
  if (text.size() <= most_bytes) return text;
  while (most_bytes > 0 && IsContinuation(text[most_bytes])) --most_bytes;
  return text.substr(0, most_bytes);
}

std::string_view FirstCharacters(std::string_view text, std::size_t most_characters) {
  std::size_t end = 0;
  for (; end < text.size() && most_characters > 0; --most_characters) {
    ++end;
    while (end < text.size() && IsContinuation(text[end])) ++end;
  }
  return text.substr(0, end);
}

std::string_view FirstUnits(std::string_view text, std::size_t most_units) {
  std::size_t end = 0;
  while (end < text.size()) {
    const std::size_t units = static_cast<unsigned char>(text[end]) >= 0xF0 ? 2 : 1;
    if (units > most_units) break;
    most_units -= units;
    ++end;
    while (end < text.size() && IsContinuation(text[end])) ++end;
  }
  return text.substr(0, end);
}

}  // namespace tessarine
