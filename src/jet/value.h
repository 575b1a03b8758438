// SPDX-License-Identifier: GPL-2.0-or-later
// Values of columns.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <variant>

#include "jet/bytes.h"

namespace tessarine::jet {

/// The numbers that files keep for the types of columns.
enum class ColumnType : std::uint8_t {
  Flag = 1,
  Byte = 2,
  Short = 3,
  Long = 4,
  Money = 5,  ///< a 64-bit whole number of ten-thousandths
  Single = 6,
  Double = 7,
  Date = 8,      ///< days since 30 December 1899 as a double; the part of a day counts away from zero
  Binary = 9,    ///< up to 510 bytes
  Text = 10,     ///< up to 255 UTF-16 units
  Ole = 11,      ///< bytes outside of the row
  Memo = 12,     ///< a text outside of the row
  Guid = 15,     ///< 16 bytes, the first three groups lowest byte first
  Numeric = 16,  ///< a decimal number of 17 bytes
};

/// The twelve bytes of a row that tell of a long value, and the value itself where it lies in the row.
struct LongReference {
  Bytes bytes;
  friend bool operator==(const LongReference&, const LongReference&) = default;
};

/// Null, flag, whole numbers (byte, short, long: std::int32_t; money: std::int64_t), single, double (dates too), text
/// in UTF-8, bytes (binary, GUID, numeric, and OLE when it is written), and a long value that wasn't fetched.
using Value =
    std::variant<std::monostate, bool, std::int32_t, std::int64_t, float, double, std::string, Bytes, LongReference>;

[[nodiscard]] inline bool IsNull(const Value& value) { return std::holds_alternative<std::monostate>(value); }

/// UTF-8 of the format's text: UTF-16, or, after FF FE, a byte for each character, where zeros switch between both.
/// Halves of pairs that stand alone come out as U+FFFD.
[[nodiscard]] std::string TextOf(ByteSpan stored);
/// UTF-16, lowest byte first. What is no UTF-8 comes out as U+FFFD.
[[nodiscard]] Bytes StoredText(const std::string& text);
/// The same for a value: an error for a text that begins with U+FEFF, which would be read as packed.
[[nodiscard]] Bytes StoredTextValue(const std::string& text);

/// Where the bytes of a GUID's text stand among the stored ones.
inline constexpr std::array<std::size_t, 16> kGuidOrder = {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};

/// "{F3783E6F-65CA-4514-8315-CE3985DAD3B1}", and back; an error for a text that is none.
[[nodiscard]] std::string GuidText(ByteSpan guid);
[[nodiscard]] Bytes GuidOf(const std::string& text);

/// The number of a Numeric's 17 bytes with this many decimals.
[[nodiscard]] double NumericValue(ByteSpan numeric, int scale);

}  // namespace tessarine::jet
