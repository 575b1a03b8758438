// SPDX-License-Identifier: GPL-2.0-or-later
// Numbers in bytes, lowest byte first as the format has them. Reading beyond the end is an error, so that damaged files
// can't lead anyone out of a page.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "jet/error.h"

namespace tessarine::jet {

inline constexpr std::size_t kPageSize = 4096;
using Page = std::array<std::uint8_t, kPageSize>;
using Bytes = std::vector<std::uint8_t>;
using ByteSpan = std::span<const std::uint8_t>;

// Numbers are copied as the machine has them.
static_assert(std::endian::native == std::endian::little);

[[nodiscard]] inline ByteSpan Part(ByteSpan bytes, std::size_t offset, std::size_t length) {
  if (offset > bytes.size() || length > bytes.size() - offset) throw Error("a structure reaches beyond its end");
  return bytes.subspan(offset, length);
}

template <class Number>
[[nodiscard]] Number Get(ByteSpan bytes, std::size_t offset) {
  static_assert(std::is_arithmetic_v<Number>);
  Number number{};
  std::memcpy(&number, Part(bytes, offset, sizeof number).data(), sizeof number);
  return number;
}

[[nodiscard]] inline std::uint8_t Get8(ByteSpan bytes, std::size_t offset) { return Get<std::uint8_t>(bytes, offset); }
[[nodiscard]] inline std::uint16_t Get16(ByteSpan bytes, std::size_t offset) {
  return Get<std::uint16_t>(bytes, offset);
}
[[nodiscard]] inline std::uint32_t Get32(ByteSpan bytes, std::size_t offset) {
  return Get<std::uint32_t>(bytes, offset);
}

template <class Number>
void Put(std::span<std::uint8_t> bytes, std::size_t offset, Number number) {
  static_assert(std::is_arithmetic_v<Number>);
  if (offset > bytes.size() || sizeof number > bytes.size() - offset) throw Error("a structure outgrows its place");
  std::memcpy(bytes.data() + offset, &number, sizeof number);
}

inline void Put8(std::span<std::uint8_t> bytes, std::size_t offset, std::size_t number) {
  Put(bytes, offset, static_cast<std::uint8_t>(number));
}
inline void Put16(std::span<std::uint8_t> bytes, std::size_t offset, std::size_t number) {
  Put(bytes, offset, static_cast<std::uint16_t>(number));
}
inline void Put32(std::span<std::uint8_t> bytes, std::size_t offset, std::size_t number) {
  Put(bytes, offset, static_cast<std::uint32_t>(number));
}

template <class Number>
void Append(Bytes& bytes, Number number) {
  static_assert(std::is_arithmetic_v<Number>);
  const std::size_t end = bytes.size();
  bytes.resize(end + sizeof number);
  std::memcpy(bytes.data() + end, &number, sizeof number);
}
inline void Append16(Bytes& bytes, std::size_t number) { Append(bytes, static_cast<std::uint16_t>(number)); }
inline void Append32(Bytes& bytes, std::size_t number) { Append(bytes, static_cast<std::uint32_t>(number)); }
inline void AppendBytes(Bytes& bytes, ByteSpan more) { bytes.insert(bytes.end(), more.begin(), more.end()); }

/// A row is found by the number of its page and its slot there. Files keep both in four bytes, slot first.
struct RowId {
  std::uint32_t page = 0;
  std::uint8_t slot = 0;

  [[nodiscard]] static RowId FromPointer(std::uint32_t pointer) {
    return {pointer >> 8U, static_cast<std::uint8_t>(pointer & 0xFFU)};
  }
  [[nodiscard]] std::uint32_t Pointer() const { return page << 8U | slot; }
  friend auto operator<=>(const RowId&, const RowId&) = default;
};

}  // namespace tessarine::jet
