// SPDX-License-Identifier: GPL-2.0-or-later
// The small RTF subset of reports: reading it, and writing it out as plain text, terminal text and HTML.
//
// Understood: groups, \b \i \ul (with 0), \fsN, \qc \ql \qr, \pard, \par, \line, \tab, \'hh in code page 1252, \uN
// with its substitute, \~ and escaped braces and backslashes. Font and colour tables and \* groups are passed over;
// other control words are ignored.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessarine {

struct RichRun {
  std::string text;  ///< UTF-8, without line ends
  bool bold = false, italic = false, underline = false;
  std::int32_t half_points = 24;

  bool operator==(const RichRun&) const = default;
};

struct RichParagraph {
  enum class Alignment { Left, Center, Right };
  std::vector<RichRun> runs;
  Alignment alignment = Alignment::Left;

  bool operator==(const RichParagraph&) const = default;
};

using RichText = std::vector<RichParagraph>;

/// Reads RTF. Damaged text never fails: unbalanced groups end at the end, unknown words are passed over. Text that
/// doesn't begin with "{\rtf" is taken as plain text.
[[nodiscard]] RichText ReadRtf(std::string_view rtf);

/// One line per paragraph, joined by "\n".
[[nodiscard]] std::string ToPlainText(const RichText& text);
/// The same with bold, italic and underline as ANSI sequences.
[[nodiscard]] std::string ToTerminalText(const RichText& text);
/// A whole HTML page with the given title.
[[nodiscard]] std::string ToHtml(const RichText& text, std::string_view title);
/// Plain UTF-8 text as a whole RTF document.
[[nodiscard]] std::string PlainTextToRtf(std::string_view text);
/// Text for a place inside RTF: backslashes, braces and characters outside ASCII are escaped.
[[nodiscard]] std::string EscapeRtf(std::string_view text);
[[nodiscard]] std::string EscapeHtml(std::string_view text);

}  // namespace tessarine
