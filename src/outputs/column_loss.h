// SPDX-License-Identifier: GPL-2.0-or-later
// What a column of an output can't hold of its field, told before a value is read.
#pragma once

#include <cstdint>
#include <string>

#include "platform/field.h"

namespace tessarine {

/// The longest text of a dBASE table, in bytes.
inline constexpr std::int32_t kLongestDbaseText = 254;

/// What a format made of a field.
enum class MadeColumn : std::uint8_t {
  AsAsked,
  Text,       ///< of a date or time
  Day,        ///< of a date with its time
  Double,     ///< of a 64-bit whole number
  DbaseText,  ///< at most `kLongestDbaseText` bytes wide
};

/// The loss as a clause with its full stop, "dates become texts."; empty where every value fits.
[[nodiscard]] std::string ForetoldLoss(const Field& field, MadeColumn made);

}  // namespace tessarine
