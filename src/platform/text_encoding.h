// SPDX-License-Identifier: GPL-2.0-or-later
// Texts as bytes: UTF-8, and what to do with bytes that are none.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessarine {

/// True for well-formed UTF-8: no stray, missing or overlong bytes, no surrogates.
[[nodiscard]] bool IsUtf8(std::string_view text);
/// Every byte taken as one character of ISO 8859-1, which every run of bytes is a text of.
[[nodiscard]] std::string Utf8FromLatin1(std::string_view bytes);
/// The text itself where it is UTF-8, else taken as ISO 8859-1.
[[nodiscard]] std::string ReadableText(std::string_view bytes);

/// The characters of a UTF-8 text.
[[nodiscard]] std::size_t CharacterCount(std::string_view text);
/// As many whole characters from the front as fit.
[[nodiscard]] std::string_view FirstBytes(std::string_view text, std::size_t most_bytes);
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t most_characters);
/// `most_units` in the 16-bit units of UTF-16, of which characters beyond U+FFFF take two.
[[nodiscard]] std::string_view FirstUnits(std::string_view text, std::size_t most_units);

}  // namespace tessarine
