// SPDX-License-Identifier: GPL-2.0-or-later
// What a column can hold, and what becomes of a value on its way into it.
//
// A value is carried exactly or becomes the nearest honest thing: null for a number that the column has no room for,
// the cut text, the number rounded after its point. Digits in front of a point are never lost by rounding.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include "platform/value_change.h"
#include "platform/variant.h"

namespace tessarine {

struct ColumnLimits {
  enum class Kind { Whole, Single, Double, Text, Day, Time, DayAndTime, Unwritable };

  Kind kind = Kind::Text;
  // Whole numbers.
  std::int64_t least = std::numeric_limits<std::int64_t>::min();
  std::int64_t most = std::numeric_limits<std::int64_t>::max();
  // Numbers that are kept as decimal text of at most `width` places, sign and point among them; 0 for all others.
  int width = 0;
  int decimals = 0;
  bool takes_exponent = false;  ///< where plain digits have no room
  double safe_below = 0.0;      ///< smaller numbers have room with all decimals
  double farthest = 0.0;        ///< numbers farther from 0 have no room; 0 without a limit
  // Texts; 0 without a limit.
  std::size_t most_bytes = 0;
  std::size_t most_characters = 0;
  std::size_t most_units = 0;  ///< of UTF-16
  bool keeps_mark = true;      ///< of byte order, in front of a text
  // Times.
  bool keeps_zone = true;
  bool keeps_fraction = true;

  /// Whole numbers that have room in a column of this many places.
  void LimitPlaces(int places);
  /// Numbers as decimal text.
  void LimitDecimals(int most_places, int places_behind_point);
};

struct FittedValue {
  Variant value;  ///< null, or: LongLong, Double, String, Date, as the kind of the column is
  ValueChange change = ValueChange::None;
};

/// Empty counts as null. Fault 5 for `Unwritable`, which no value can be written to.
[[nodiscard]] FittedValue FitValue(const Variant& value, const ColumnLimits& column);

/// The number as a column of this width keeps it: right rounded, with as many of the decimals as there is room for.
/// Empty when it doesn't fit.
[[nodiscard]] std::string_view NumberInColumn(double value, std::size_t width, int decimals, std::span<char> room);
/// Whether it fits, with or without decimals.
[[nodiscard]] bool HasRoomInColumn(double value, std::size_t width);
/// The number with an exponent, with as many digits as there is room for. Empty where that would change its first 15
/// digits.
[[nodiscard]] std::string_view ExponentInColumn(double value, std::size_t width, std::span<char> room);

}  // namespace tessarine
