// SPDX-License-Identifier: GPL-2.0-or-later
// What becomes of a value that a field can't hold as it is.
#pragma once

#include <cstdint>
#include <string_view>

namespace tessarine {

enum class ValueChange : std::uint8_t {
  None,         ///< the field holds the value
  OutOfRange,   ///< a number beyond the field's range or width; null
  NotFinite,    ///< no-number or infinity; null
  TextCut,      ///< a text longer than the field
  Rounded,      ///< digits after the point that the field has no room for
  TimeDropped,  ///< the time of day of a date
  DayAdded,     ///< a time of day without a day, stored with one
  ZoneDropped,  ///< a time zone
  ZoneToUtc,    ///< a time zone; the time is brought to UTC
  Unreadable,   ///< a value of another kind that can't be converted; null
  NullFilled,   ///< null, where the format knows none; 0 or an empty text
  MarkDropped,  ///< a mark of byte order in front of a text
  BadText,      ///< bytes that are no text in the encoding of the data, taken as Latin-1
  OtherText,    ///< a text that the format keeps with other characters
};

/// "out of range, null", "cut to the width of the field" and so on, as reports write it.
[[nodiscard]] std::string_view ValueChangeWords(ValueChange change);
/// "out_of_range", "text_cut" and so on, for machines.
[[nodiscard]] std::string_view ValueChangeKey(ValueChange change);

}  // namespace tessarine
