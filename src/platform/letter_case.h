// SPDX-License-Identifier: GPL-2.0-or-later
// Names of people's things, compared without regard to case, in whatever alphabet.
#pragma once

#include <string>
#include <string_view>

namespace tessarine {

/// The characters of UTF-8 text, each in the form that it shares with its capital and its small letter. A byte that is
/// no UTF-8 stands for itself.
[[nodiscard]] std::u32string FoldedCharacters(std::string_view text);

/// The same as UTF-8 text: texts that differ only in case fold to the same.
[[nodiscard]] std::string FoldedCase(std::string_view text);

}  // namespace tessarine
