// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers of the host's own windows, in the way of the program's locale; the suite writes those of its forms and
// reports in one way for everybody.
#pragma once

#include <QString>
#include <cstdint>
#include <string_view>

namespace tessarine {

/// A number as the suite writes it, "1,234.5", with the locale's decimal sign and its sign between groups of digits;
/// without the latter where the user has switched it off.
[[nodiscard]] QString InLocale(std::string_view number);

/// The same without groups, as spreadsheets read it when it is pasted.
[[nodiscard]] QString ForTables(std::string_view number);

/// A count, with groups of digits.
[[nodiscard]] QString CountText(std::int64_t count);

}  // namespace tessarine
