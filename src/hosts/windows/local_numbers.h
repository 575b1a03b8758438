// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers, dates and times in the way of the program's locale. The suite writes them in one way for everybody, and
// reports stay so.
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

/// A text that is a number of the suite and nothing else, "12,345" or "-0.5", as `InLocale` has it. Empty where it is
/// none; one with an exponent stays a text.
[[nodiscard]] QString NumberInLocale(const QString& text);

/// The same of a share between brackets, "(35.12%)".
[[nodiscard]] QString PercentInLocale(const QString& text);

/// A text of dates and times of the suite and nothing else, "9:05:07 PM,  3/14/2026" or "Saturday, March 14, 2026 at
/// 9:05:07 PM", each in the locale's form: years with four digits, times with seconds, without "at". Empty where it is
/// none.
[[nodiscard]] QString MomentInLocale(const QString& text);

}  // namespace tessarine
