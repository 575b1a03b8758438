// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/index_key.h"

#include <algorithm>
#include <bit>

namespace tessarine::jet {
namespace {

constexpr std::uint8_t kNull = 0x00;
constexpr std::uint8_t kValue = 0x7F;
constexpr std::size_t kCharactersInKey = 255;

constexpr std::array<std::uint8_t, 26> kLetters = {0x4A, 0x4C, 0x4D, 0x4F, 0x51, 0x53, 0x55, 0x57, 0x59,
                                                   0x5B, 0x5C, 0x5E, 0x60, 0x62, 0x64, 0x66, 0x68, 0x69,
                                                   0x6B, 0x6D, 0x6F, 0x71, 0x73, 0x75, 0x76, 0x78};
constexpr std::array<std::uint8_t, 10> kDigits = {0x36, 0x38, 0x3A, 0x3C, 0x3E, 0x40, 0x42, 0x44, 0x46, 0x48};

template <class Unsigned>
void AppendHighFirst(Key& key, Unsigned number) {
  for (std::size_t byte = sizeof number; byte-- > 0;) key.push_back(static_cast<char>(number >> (byte * 8)));
}

template <class Unsigned>
void AppendReal(Key& key, Unsigned bits) {
  constexpr auto kSign = static_cast<Unsigned>(Unsigned{1} << (sizeof(Unsigned) * 8 - 1));
  AppendHighFirst(key, static_cast<Unsigned>((bits & kSign) != 0 ? ~bits : bits | kSign));
}

void AppendBytes(Key& key, std::initializer_list<std::uint8_t> bytes) {
  for (const std::uint8_t byte : bytes) key.push_back(static_cast<char>(byte));
}

void AppendText(Key& key, const std::string& column, const std::string& text) {
  std::size_t characters = 0;
  for (const char c : text) {
    if (++characters > kCharactersInKey) break;
    if (c >= 'a' && c <= 'z') {
      AppendBytes(key, {kLetters[static_cast<std::size_t>(c - 'a')]});
    } else if (c >= 'A' && c <= 'Z') {
      AppendBytes(key, {kLetters[static_cast<std::size_t>(c - 'A')]});
    } else if (c >= '0' && c <= '9') {
      AppendBytes(key, {kDigits[static_cast<std::size_t>(c - '0')]});
    } else if (c == '_') {
      AppendBytes(key, {0x2B, 0x03});
    } else if (c == ' ') {
      key.push_back(0x07);
    } else {
      throw UnknownOrder("the index on '" + column + "' can't take '" + text +
                         "': its order of characters other than A to Z, digits, blank and underline isn't known");
    }
  }
  AppendBytes(key, {0x01, 0x00});
}

void AppendGuid(Key& key, ByteSpan guid) {
  for (std::size_t index = 0; index < kGuidOrder.size(); ++index) {
    AppendBytes(key, {Get8(guid, kGuidOrder[index])});
    if (index == 7) key.push_back(0x09);
  }
  key.push_back(0x08);
}

Key ValueKey(const Column& column, const Value& value) {
  Key key;
  switch (column.type) {
    case ColumnType::Byte:
      key.push_back(static_cast<char>(std::get<std::int32_t>(value)));
      break;
    case ColumnType::Short:
      AppendHighFirst(key,
                      static_cast<std::uint16_t>(static_cast<std::uint32_t>(std::get<std::int32_t>(value)) ^ 0x8000U));
      break;
    case ColumnType::Long:
      AppendHighFirst(key, static_cast<std::uint32_t>(std::get<std::int32_t>(value)) ^ 0x80000000U);
      break;
    case ColumnType::Money:
      AppendHighFirst(key, static_cast<std::uint64_t>(std::get<std::int64_t>(value)) ^ (std::uint64_t{1} << 63U));
      break;
    case ColumnType::Single:
      AppendReal(key, std::bit_cast<std::uint32_t>(std::get<float>(value)));
      break;
    case ColumnType::Double:
    case ColumnType::Date:
      AppendReal(key, std::bit_cast<std::uint64_t>(std::get<double>(value)));
      break;
    case ColumnType::Text:
      AppendText(key, column.name, std::get<std::string>(value));
      break;
    case ColumnType::Guid:
      AppendGuid(key, std::get<Bytes>(value));
      break;
    default:
      throw UnknownOrder("the index on '" + column.name + "' is on a type of column whose order isn't known");
  }
  return key;
}

}  // namespace

Key IndexKey(const TableDefinition& table, const Index& index, const RowValues& values) {
  Key key;
  for (const IndexColumn& part : index.columns) {
    const std::size_t place = table.PlaceOf(part.column);
    const std::size_t begin = key.size();
    if (IsNull(values[place])) {
      AppendBytes(key, {kNull});
    } else {
      AppendBytes(key, {kValue});
      key += ValueKey(table.columns[place], values[place]);
    }
    if (!part.descending) continue;
    for (std::size_t at = begin; at < key.size(); ++at) key[at] = static_cast<char>(~key[at]);
  }
  return key;
}

bool AllNull(const TableDefinition& table, const Index& index, const RowValues& values) {
  return std::ranges::all_of(index.columns,
                             [&](const IndexColumn& part) { return IsNull(values[table.PlaceOf(part.column)]); });
}

}  // namespace tessarine::jet
