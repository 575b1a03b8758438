// SPDX-License-Identifier: GPL-2.0-or-later
// How reports begin, as RTF: their font, and a bold title in the middle, whose text follows.
#pragma once

#include <string_view>

namespace tessarine {

/// Of conversions and calculations.
inline constexpr std::string_view kReportHead =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}}\r\n"
    "{\\*\\generator Msftedit 5.41.15.1507;}\\viewkind4\\uc1\\pard\\qc\\b\\f0\\fs16 ";
/// Of planetary runs and of graphics, in letters half a point larger.
inline constexpr std::string_view kLargeReportHead =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fprq2\\fcharset0 Arial;}}\r\n"
    "{\\*\\generator Msftedit 5.41.15.1507;}\\viewkind4\\uc1\\pard\\qc\\b\\f0\\fs17 ";

}  // namespace tessarine
