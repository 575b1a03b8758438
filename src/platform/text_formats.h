// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers and dates as text, always in US English forms, whatever the machine's locale is. All text is UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/date.h"

namespace tessarine {

/// A number as it appears in running text: up to 15 significant digits, no trailing zeros, an exponent ("1E+20",
/// "3.3333333333E-07") where the plain form would need more than 15 places.
[[nodiscard]] std::string NumberText(double value);
/// The shortest text that reads back as the same double, for machine-readable output.
[[nodiscard]] std::string ExactNumberText(double value);
/// Fixed decimals, rounded half away from zero; with `thousands`, "," between groups of three.
[[nodiscard]] std::string FixedText(double value, int decimals, bool thousands = false);
/// A whole number of at least two digits, the format "00".
[[nodiscard]] std::string TwoDigits(std::int64_t value);

/// True for what counts as a number in a text box: blanks around, one sign, digits with "," between, one ".", an
/// exponent. "" and "." are none.
[[nodiscard]] bool IsNumericText(std::string_view text);
/// The number that `IsNumericText` accepted; fault 13 otherwise, fault 6 when it is too large for a double.
[[nodiscard]] double ToNumber(std::string_view text);

/// "ddddd": 11/21/2026.
[[nodiscard]] std::string ShortDate(Date date);
/// "ttttt" and "long time": 9:05:07 PM.
[[nodiscard]] std::string LongTime(Date date);
/// "long date": Saturday, November 21, 2026.
[[nodiscard]] std::string LongDate(Date date);

// Letters A to Z only; all other bytes stay.
[[nodiscard]] std::string LowerCase(std::string_view text);
[[nodiscard]] bool EqualsIgnoringCase(std::string_view first, std::string_view second);
[[nodiscard]] bool EndsWithIgnoringCase(std::string_view text, std::string_view ending);
/// All occurrences, from left to right, replacements not searched again.
[[nodiscard]] std::string Replace(std::string_view text, std::string_view find, std::string_view replacement);
[[nodiscard]] std::string Trim(std::string_view text);

}  // namespace tessarine
