// SPDX-License-Identifier: GPL-2.0-or-later
// How reports and the texts of dialogs begin, as RTF.
#pragma once

#include <string>
#include <string_view>

namespace tessarine {

inline constexpr std::string_view kArial = "{\\f0\\fswiss\\fcharset0 Arial;}";
inline constexpr std::string_view kRtfGenerator = "{\\*\\generator Msftedit 5.41.15.1507;}";

/// The first line, with these fonts.
[[nodiscard]] inline std::string RtfHead(std::string_view fonts = kArial) {
  return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl" + std::string(fonts) + "}\r\n";
}

/// Of conversions and calculations: a bold title in the middle, whose text follows.
[[nodiscard]] inline std::string ReportHead() {
  return RtfHead() + std::string(kRtfGenerator) + "\\viewkind4\\uc1\\pard\\qc\\b\\f0\\fs16 ";
}

/// The same of planetary runs and of graphics, in letters half a point larger.
[[nodiscard]] inline std::string LargeReportHead() {
  return RtfHead("{\\f0\\fswiss\\fprq2\\fcharset0 Arial;}") + std::string(kRtfGenerator) +
         "\\viewkind4\\uc1\\pard\\qc\\b\\f0\\fs17 ";
}

}  // namespace tessarine
