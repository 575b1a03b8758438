// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/passwords.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr std::string_view kKey = "password", kHidden = "***", kScheme = "://";

bool EndsValue(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0 || c == '\'' || c == '"' || c == ','; }

// Where the value that begins here ends: with its closing mark, which a backslash hides, or before the next blank.
std::size_t EndOfValue(const std::string& text, std::size_t at) {
  if (at < text.size() && text[at] == '\'') {
    for (std::size_t end = at + 1; end < text.size(); ++end) {
      if (text[end] == '\\') {
        ++end;
      } else if (text[end] == '\'') {
        return end + 1;
      }
    }
    return text.size();
  }
  while (at < text.size() && !EndsValue(text[at])) ++at;
  return at;
}

void HideValues(std::string& text) {
  for (std::size_t at = 0;;) {
    at = LowerCase(text).find(kKey, at);
    if (at == std::string::npos) return;
    at += kKey.size();
    std::size_t begin = at;
    while (begin < text.size() && text[begin] == ' ') ++begin;
    if (begin == text.size() || text[begin] != '=') continue;
    ++begin;
    while (begin < text.size() && text[begin] == ' ') ++begin;
    text.replace(begin, EndOfValue(text, begin) - begin, kHidden);
  }
}

void HideInAddresses(std::string& text) {
  for (std::size_t at = text.find(kScheme); at != std::string::npos; at = text.find(kScheme, at)) {
    at += kScheme.size();
    const std::size_t end = std::min(text.find_first_of("/ \t\r\n'\"", at), text.size());
    const std::size_t host = text.rfind('@', end);
    const std::size_t colon = text.find(':', at);
    if (host == std::string::npos || host < at || colon >= host) continue;
    text.replace(colon + 1, host - colon - 1, kHidden);
  }
}

}  // namespace

std::string WithoutPasswords(const std::string& text) {
  std::string hidden = text;
  HideValues(hidden);
  HideInAddresses(hidden);
  return hidden;
}

}  // namespace tessarine
