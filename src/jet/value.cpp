// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/value.h"

#include <cmath>
#include <cstdio>

namespace tessarine::jet {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& text, char32_t code) {
  const auto push = [&](unsigned byte) { text.push_back(static_cast<char>(byte)); };
  if (code < 0x80) {
    push(code);
  } else if (code < 0x800) {
    push(0xC0U | code >> 6U);
    push(0x80U | (code & 0x3FU));
  } else if (code < 0x10000) {
    push(0xE0U | code >> 12U);
    push(0x80U | (code >> 6U & 0x3FU));
    push(0x80U | (code & 0x3FU));
  } else {
    push(0xF0U | code >> 18U);
    push(0x80U | (code >> 12U & 0x3FU));
    push(0x80U | (code >> 6U & 0x3FU));
    push(0x80U | (code & 0x3FU));
  }
}

// The units of a text, unpacked.
std::u16string Units(ByteSpan stored) {
  std::u16string units;
  const bool packed = stored.size() >= 2 && stored[0] == 0xFF && stored[1] == 0xFE;
  if (!packed) {
    for (std::size_t at = 0; at + 1 < stored.size(); at += 2) units.push_back(Get16(stored, at));
    return units;
  }
  bool single = true;
  for (std::size_t at = 2; at < stored.size();) {
    if (stored[at] == 0 && single) {
      single = false;
      ++at;
    } else if (single) {
      units.push_back(stored[at++]);
    } else if (at + 1 < stored.size() && stored[at] != 0) {
      units.push_back(Get16(stored, at));
      at += 2;
    } else {
      single = true;
      ++at;
    }
  }
  return units;
}

// The code at this place of a UTF-8 text, and the place moved after it.
char32_t NextCode(const std::string& text, std::size_t& at) {
  const auto byte = [&](std::size_t place) { return static_cast<unsigned char>(text[place]); };
  const unsigned first = byte(at++);
  if (first < 0x80) return first;
  const int more = first >= 0xF0 && first < 0xF5   ? 3
                   : first >= 0xE0 && first < 0xF0 ? 2
                   : first >= 0xC2 && first < 0xE0 ? 1
                                                   : 0;
  if (more == 0 || at + static_cast<std::size_t>(more) > text.size()) return kReplacement;
  char32_t code = first & (0x3FU >> static_cast<unsigned>(more));
  for (int index = 0; index < more; ++index) {
    const unsigned next = byte(at + static_cast<std::size_t>(index));
    if ((next & 0xC0U) != 0x80U) return kReplacement;
    code = code << 6U | (next & 0x3FU);
  }
  constexpr std::array<char32_t, 4> kSmallest = {0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  if (surrogate || code > 0x10FFFF || code < kSmallest[static_cast<std::size_t>(more)]) return kReplacement;
  at += static_cast<std::size_t>(more);
  return code;
}

}  // namespace

std::string TextOf(ByteSpan stored) {
  const std::u16string units = Units(stored);
  std::string text;
  for (std::size_t index = 0; index < units.size(); ++index) {
    char32_t code = units[index];
    if (code >= 0xD800 && code < 0xDC00 && index + 1 < units.size() && (units[index + 1] & 0xFC00U) == 0xDC00) {
      code = 0x10000 + ((code & 0x3FFU) << 10U) + (units[++index] & 0x3FFU);
    } else if (code >= 0xD800 && code < 0xE000) {
      code = kReplacement;
    }
    AppendUtf8(text, code);
  }
  return text;
}

Bytes StoredText(const std::string& text) {
  Bytes stored;
  stored.reserve(text.size() * 2);
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code = NextCode(text, at);
    if (code < 0x10000) {
      Append16(stored, code);
    } else {
      Append16(stored, 0xD800 + ((code - 0x10000) >> 10U));
      Append16(stored, 0xDC00 + ((code - 0x10000) & 0x3FFU));
    }
  }
  return stored;
}

Bytes StoredTextValue(const std::string& text) {
  Bytes stored = StoredText(text);
  if (stored.size() >= 2 && stored[0] == 0xFF && stored[1] == 0xFE) throw RowError("a text begins with U+FEFF");
  return stored;
}

std::string GuidText(ByteSpan guid) {
  std::string text = "{";
  for (std::size_t index = 0; index < kGuidOrder.size(); ++index) {
    if (index == 4 || index == 6 || index == 8 || index == 10) text += '-';
    std::array<char, 3> digits{};
    std::snprintf(digits.data(), digits.size(), "%02X", static_cast<unsigned>(Get8(guid, kGuidOrder[index])));
    text += digits.data();
  }
  return text + "}";
}

Bytes GuidOf(const std::string& text) {
  std::string digits;
  for (const char c : text) {
    if (std::isxdigit(static_cast<unsigned char>(c)) != 0) digits += c;
  }
  const bool braces = text.size() == 38 && text.front() == '{' && text.back() == '}';
  if (digits.size() != 32 || (!braces && text.size() != 36)) throw RowError("'" + text + "' is no identifier (GUID)");
  Bytes guid(16);
  for (std::size_t index = 0; index < kGuidOrder.size(); ++index) {
    guid[kGuidOrder[index]] = static_cast<std::uint8_t>(std::stoul(digits.substr(index * 2, 2), nullptr, 16));
  }
  return guid;
}

// A sign, and sixteen bytes in four words, the highest first, each lowest byte first.
double NumericValue(ByteSpan numeric, int scale) {
  double number = 0;
  for (std::size_t word = 0; word < 4; ++word) number = number * 4294967296.0 + Get32(numeric, 1 + word * 4);
  number /= std::pow(10.0, scale);
  return Get8(numeric, 0) == 0 ? number : -number;
}

}  // namespace tessarine::jet
