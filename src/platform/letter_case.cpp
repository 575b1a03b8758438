// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/letter_case.h"

#include <clocale>
#include <cwctype>

namespace tessarine {
namespace {

// The characters of UTF-8 text; a byte that begins none stands for itself.
std::u32string Characters(std::string_view text) {
  std::u32string characters;
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    const std::size_t more = lead >= 0xF0U ? 3 : lead >= 0xE0U ? 2 : lead >= 0xC0U ? 1 : 0;
    char32_t character = more == 0 ? lead : lead & (0x3FU >> more);
    for (std::size_t left = more; left > 0 && at < text.size(); --left) {
      character = (character << 6U) | (static_cast<unsigned char>(text[at++]) & 0x3FU);
    }
    characters += character;
  }
  return characters;
}

// The C library knows the letters of all alphabets in a UTF-8 locale; this one every system has, and what the user set
// doesn't matter to it.
locale_t Letters() {
  static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  return letters;
}

// By way of the capital, so that the two small letters sigma are one.
char32_t Folded(char32_t character) {
  // The dotted capital and the dotless small I belong to no pair.
  if (character == 0x130 || character == 0x131) return character;
  if (Letters() == nullptr) return character >= U'A' && character <= U'Z' ? character + 32 : character;
  return static_cast<char32_t>(towlower_l(towupper_l(static_cast<wint_t>(character), Letters()), Letters()));
}

void AppendCharacter(char32_t character, std::string& text) {
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0U | (character >> 6U));
    text += static_cast<char>(0x80U | (character & 0x3FU));
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0U | (character >> 12U));
    text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
    text += static_cast<char>(0x80U | (character & 0x3FU));
  } else {
    text += static_cast<char>(0xF0U | (character >> 18U));
    text += static_cast<char>(0x80U | ((character >> 12U) & 0x3FU));
    text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
    text += static_cast<char>(0x80U | (character & 0x3FU));
  }
}

}  // namespace

std::u32string FoldedCharacters(std::string_view text) {
  std::u32string characters = Characters(text);
  for (char32_t& character : characters) character = Folded(character);
  return characters;
}

std::string FoldedCase(std::string_view text) {
  std::string folded;
  for (const char32_t character : FoldedCharacters(text)) AppendCharacter(character, folded);
  return folded;
}

}  // namespace tessarine
