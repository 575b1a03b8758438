// SPDX-License-Identifier: GPL-2.0-or-later
#include "jet/row.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <ranges>

namespace tessarine::jet {
namespace {

constexpr std::size_t kFixedAt = 2;

// Where the parts of a row are.
class RowParts {
 public:
  RowParts(const TableDefinition& table, ByteSpan row) : row_(row), columns_(Get16(row, 0)) {
    const std::size_t mask = (columns_ + 7) / 8;
    if (mask + kFixedAt > row.size()) throw Error("a row is shorter than its mask of nulls");
    mask_at_ = row.size() - mask;
    if (table.variable_columns == 0 || mask_at_ < kFixedAt + 2) return;
    variables_ = Get16(row, mask_at_ - 2);
    if (kFixedAt + 2 + (variables_ + 1) * 2 > mask_at_) throw Error("a row tells of more columns than it holds");
  }

  [[nodiscard]] bool IsSet(const Column& column) const {
    if (column.number >= columns_) return false;
    return (row_[mask_at_ + column.number / 8U] >> (column.number % 8U) & 1U) != 0;
  }
  [[nodiscard]] ByteSpan Fixed(const Column& column) const {
    return Part(row_.first(mask_at_), kFixedAt + column.fixed_offset, column.length);
  }
  [[nodiscard]] ByteSpan Variable(const Column& column) const {
    if (column.variable_number >= variables_) return {};
    const std::size_t place = mask_at_ - 4 - std::size_t{column.variable_number} * 2;
    const std::size_t begin = Get16(row_, place), end = Get16(row_, place - 2);
    if (begin > end) throw Error("a value of a row ends before it begins");
    return Part(row_, begin, end - begin);
  }

 private:
  ByteSpan row_;
  std::size_t columns_;
  std::size_t mask_at_ = 0;
  std::size_t variables_ = 0;
};

Value ValueOf(const Column& column, ByteSpan bytes) {
  switch (column.type) {
    case ColumnType::Flag:
      return true;
    case ColumnType::Byte:
      return std::int32_t{Get8(bytes, 0)};
    case ColumnType::Short:
      return std::int32_t{Get<std::int16_t>(bytes, 0)};
    case ColumnType::Long:
      return Get<std::int32_t>(bytes, 0);
    case ColumnType::Money:
      return Get<std::int64_t>(bytes, 0);
    case ColumnType::Single:
      return Get<float>(bytes, 0);
    case ColumnType::Double:
    case ColumnType::Date:
      return Get<double>(bytes, 0);
    case ColumnType::Text:
      return TextOf(bytes);
    case ColumnType::Ole:
    case ColumnType::Memo:
      return LongReference{{bytes.begin(), bytes.end()}};
    case ColumnType::Binary:
    case ColumnType::Guid:
    case ColumnType::Numeric:
      return Bytes(bytes.begin(), bytes.end());
  }
  throw Error("a column of an unknown type was read");
}

[[noreturn]] void ThrowUnfit(const Column& column, const char* why) {
  throw RowError("the value of column '" + column.name + "' " + why);
}

template <class Wanted>
const Wanted& As(const Column& column, const Value& value) {
  const Wanted* held = std::get_if<Wanted>(&value);
  if (held == nullptr) ThrowUnfit(column, "is of another type than the column");
  return *held;
}

template <class Number>
void AppendWhole(Bytes& bytes, const Column& column, const Value& value) {
  const std::int32_t number = As<std::int32_t>(column, value);
  if (number < std::numeric_limits<Number>::min() || number > std::numeric_limits<Number>::max()) {
    ThrowUnfit(column, "is too large for the column");
  }
  Append(bytes, static_cast<Number>(number));
}

Bytes PackValue(const Column& column, const Value& value) {
  Bytes bytes;
  switch (column.type) {
    case ColumnType::Flag:
      break;
    case ColumnType::Byte:
      AppendWhole<std::uint8_t>(bytes, column, value);
      break;
    case ColumnType::Short:
      AppendWhole<std::int16_t>(bytes, column, value);
      break;
    case ColumnType::Long:
      AppendWhole<std::int32_t>(bytes, column, value);
      break;
    case ColumnType::Money:
      Append(bytes, As<std::int64_t>(column, value));
      break;
    case ColumnType::Single:
      Append(bytes, As<float>(column, value));
      break;
    case ColumnType::Double:
    case ColumnType::Date:
      Append(bytes, As<double>(column, value));
      break;
    case ColumnType::Text:
      bytes = StoredTextValue(As<std::string>(column, value));
      if (bytes.size() > column.length) ThrowUnfit(column, "is too long for the column");
      break;
    case ColumnType::Ole:
    case ColumnType::Memo:
      bytes = As<LongReference>(column, value).bytes;
      break;
    case ColumnType::Binary:
      bytes = As<Bytes>(column, value);
      if (bytes.size() > column.length) ThrowUnfit(column, "is too long for the column");
      break;
    case ColumnType::Guid:
    case ColumnType::Numeric:
      bytes = As<Bytes>(column, value);
      if (bytes.size() != column.length) ThrowUnfit(column, "is of another length than the column");
      break;
  }
  return bytes;
}

void SetBit(Bytes& mask, const Column& column) {
  mask[column.number / 8U] = static_cast<std::uint8_t>(mask[column.number / 8U] | 1U << (column.number % 8U));
}

}  // namespace

Value UnpackValue(const TableDefinition& table, ByteSpan row, std::size_t index) {
  const Column& column = table.columns[index];
  const RowParts parts(table, row);
  const bool set = parts.IsSet(column);
  if (column.type == ColumnType::Flag) return set;
  if (!set) return {};
  return ValueOf(column, column.fixed ? parts.Fixed(column) : parts.Variable(column));
}

RowValues UnpackRow(const TableDefinition& table, ByteSpan row) {
  RowValues values(table.columns.size());
  const RowParts parts(table, row);
  for (std::size_t index = 0; index < values.size(); ++index) {
    const Column& column = table.columns[index];
    const bool set = parts.IsSet(column);
    if (column.type == ColumnType::Flag) {
      values[index] = set;
    } else if (set) {
      values[index] = ValueOf(column, column.fixed ? parts.Fixed(column) : parts.Variable(column));
    }
  }
  return values;
}

void CheckValue(const Column& column, const Value& value) {
  if (!IsNull(value) && column.type != ColumnType::Flag) (void)PackValue(column, value);
}

Bytes PackRow(const TableDefinition& table, const RowValues& values) {
  Bytes row(kFixedAt + table.FixedEnd());
  Put16(row, 0, table.columns_ever);
  Bytes mask((table.columns_ever + 7U) / 8);
  std::vector<Bytes> variables(table.variable_columns);
  for (std::size_t index = 0; index < table.columns.size(); ++index) {
    const Column& column = table.columns[index];
    const Value& value = values.at(index);
    const bool* flag = std::get_if<bool>(&value);
    if (IsNull(value) || (flag != nullptr && !*flag)) continue;
    SetBit(mask, column);
    Bytes bytes = PackValue(column, value);
    if (column.fixed) {
      if (bytes.size() > column.length) ThrowUnfit(column, "is too long for the column");
      std::ranges::copy(bytes, row.begin() + static_cast<std::ptrdiff_t>(kFixedAt + column.fixed_offset));
    } else {
      variables[column.variable_number] = std::move(bytes);
    }
  }
  if (table.variable_columns > 0) {
    std::vector<std::size_t> places;
    for (const Bytes& bytes : variables) {
      places.push_back(row.size());
      AppendBytes(row, bytes);
    }
    Append16(row, row.size());
    for (const std::size_t place : std::views::reverse(places)) Append16(row, place);
    Append16(row, places.size());
  }
  AppendBytes(row, mask);
  return row;
}

}  // namespace tessarine::jet
