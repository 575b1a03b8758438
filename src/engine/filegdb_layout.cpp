// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/filegdb_layout.h"

#include <cpl_string.h>

#include <array>
#include <bit>

#include "platform/fault.h"

namespace tessarine::engine {
namespace {

constexpr std::int64_t kLongestHeader = 10 << 20;

/// Walks over the description of the columns; a step beyond its end raises a fault.
class Reader {
 public:
  explicit Reader(std::span<const char> bytes) : bytes_(bytes) {}

  std::span<const char> Take(std::size_t size) {
    if (size > bytes_.size()) Raise(kInvalidCall, "The description of the columns ends too early.");
    const std::span<const char> taken = bytes_.first(size);
    bytes_ = bytes_.subspan(size);
    return taken;
  }
  std::uint64_t Number(std::size_t size) { return LittleEndian(Take(size)); }
  unsigned Byte() { return static_cast<unsigned>(Number(1)); }
  double Real() { return std::bit_cast<double>(Number(8)); }
  // A length byte, then as many UTF-16 units.
  std::string Name() {
    const std::size_t count = Byte();
    return TextOfUtf16(Take(2 * count));
  }
  std::uint64_t PackedNumber() {
    std::uint64_t value = 0;
    for (unsigned shift = 0; shift < 63; shift += 7) {
      const unsigned byte = Byte();
      value |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
      if ((byte & 0x80U) == 0) break;
    }
    return value;
  }

 private:
  std::span<const char> bytes_;
};

constexpr unsigned kNullableFlag = 1;
constexpr unsigned kDefaultFlag = 4;
constexpr unsigned kHasM = 2;
constexpr unsigned kHasZ = 4;
constexpr std::uint32_t kLayerHasUtf8 = 0x100U;
constexpr std::uint32_t kLayerHasM = 0x40000000U;
constexpr std::uint32_t kLayerHasZ = 0x80000000U;

unsigned ReadShapeColumn(Reader& reader, std::uint32_t layer_flags, GdbDescription& description) {
  (void)reader.Byte();
  const unsigned flags = reader.Byte();
  (void)reader.Take(static_cast<std::size_t>(reader.Number(2)));  // the reference's text
  const unsigned dimensions = reader.Byte();
  GdbGrid grid;
  grid.x_origin = reader.Real();
  grid.y_origin = reader.Real();
  grid.xy_scale = reader.Real();
  description.grid = grid;
  std::size_t numbers = 1 + 4;  // tolerance, extent
  if ((dimensions & kHasM) != 0) numbers += 3;
  if ((dimensions & kHasZ) != 0) numbers += 3;
  // The extents of further dimensions follow the layer's own flags.
  if ((layer_flags & kLayerHasZ) != 0) numbers += 2;
  if ((layer_flags & kLayerHasM) != 0) numbers += 2;
  (void)reader.Take(8 * numbers);
  (void)reader.Byte();
  (void)reader.Take(8 * static_cast<std::size_t>(reader.Number(4)));  // the cells of the spatial index
  return flags;
}

unsigned ReadColumnRest(Reader& reader, GdbColumn::Type type, std::uint32_t layer_flags, GdbDescription& description) {
  unsigned flags = 0;
  switch (type) {
    case GdbColumn::kText: {
      (void)reader.Number(4);
      flags = reader.Byte();
      const auto size = static_cast<std::size_t>(reader.PackedNumber());
      if ((flags & kDefaultFlag) != 0) (void)reader.Take(size);
      return flags;
    }
    case GdbColumn::kShape:
      return ReadShapeColumn(reader, layer_flags, description);
    case GdbColumn::kOid:
    case GdbColumn::kBlob:
    case GdbColumn::kGuid:
    case GdbColumn::kGlobalId:
    case GdbColumn::kXml:
      (void)reader.Byte();
      return reader.Byte();
    default: {
      (void)reader.Byte();
      flags = reader.Byte();
      const unsigned size = reader.Byte();
      if ((flags & kDefaultFlag) != 0) (void)reader.Take(size);
      return flags;
    }
  }
}

void ReadColumns(Reader reader, GdbDescription& description) {
  (void)reader.Number(4);  // the version
  const auto layer_flags = static_cast<std::uint32_t>(reader.Number(4));
  description.utf8 = (layer_flags & kLayerHasUtf8) != 0;
  const std::uint64_t count = reader.Number(2);
  std::vector<GdbColumn> columns;
  int null_bit = 0;
  for (std::uint64_t index = 0; index < count; ++index) {
    GdbColumn column;
    column.name = reader.Name();
    (void)reader.Name();  // the alias
    const unsigned type = reader.Byte();
    if (type > GdbColumn::kXml || type == GdbColumn::kRaster) return;
    column.type = static_cast<GdbColumn::Type>(type);
    column.nullable = (ReadColumnRest(reader, column.type, layer_flags, description) & kNullableFlag) != 0;
    if (column.type == GdbColumn::kOid) column.nullable = false;
    if (column.nullable) column.null_bit = null_bit++;
    columns.push_back(std::move(column));
  }
  description.null_bytes = static_cast<std::size_t>((null_bit + 7) / 8);
  description.columns = std::move(columns);
}

void AppendCodePoint(std::string& text, std::uint32_t code) {
  const auto put = [&](std::uint32_t bits) { text += static_cast<char>(bits); };
  if (code < 0x80U) {
    put(code);
  } else if (code < 0x800U) {
    put(0xC0U | (code >> 6U));
    put(0x80U | (code & 0x3FU));
  } else if (code < 0x10000U) {
    put(0xE0U | (code >> 12U));
    put(0x80U | ((code >> 6U) & 0x3FU));
    put(0x80U | (code & 0x3FU));
  } else {
    put(0xF0U | (code >> 18U));
    put(0x80U | ((code >> 12U) & 0x3FU));
    put(0x80U | ((code >> 6U) & 0x3FU));
    put(0x80U | (code & 0x3FU));
  }
}

void AppendUnit(std::string& bytes, std::uint32_t unit) {
  bytes += static_cast<char>(unit & 0xFFU);
  bytes += static_cast<char>(unit >> 8U);
}

bool HasLength(GdbColumn::Type type) {
  return type == GdbColumn::kText || type == GdbColumn::kShape || type == GdbColumn::kBlob || type == GdbColumn::kXml;
}

std::string_view WithoutLength(std::string_view stored) {
  std::size_t at = 0;
  while (at < stored.size() && (static_cast<unsigned char>(stored[at]) & 0x80U) != 0) ++at;
  return stored.substr(at + 1);
}

}  // namespace

GdbDescription ReadGdbDescription(const RawFile& table) {
  GdbDescription description;
  std::array<char, kGdbHeaderSize> header{};
  if (table.Size() < static_cast<std::int64_t>(header.size())) return description;
  table.Read(0, header);
  const std::span<const char> bytes(header);
  if (LittleEndian(bytes.first(4)) != 3) return description;  // row numbers of 64 bits
  const auto place = static_cast<std::int64_t>(LittleEndian(bytes, kGdbDescriptionPlace));
  if (place < static_cast<std::int64_t>(kGdbHeaderSize) || place + 4 > table.Size()) return description;
  std::array<char, 4> size{};
  table.Read(place, size);
  const auto length = static_cast<std::int64_t>(LittleEndian(size));
  if (length > kLongestHeader || place + 4 + length > table.Size()) return description;
  std::vector<char> described(static_cast<std::size_t>(length));
  table.Read(place + 4, described);
  description.place = place;
  description.size = 4 + length;
  try {
    ReadColumns(Reader(described), description);
  } catch (const Fault&) {
    description.columns.clear();
  }
  return description;
}

std::size_t GdbValueSize(GdbColumn::Type type, std::span<const char> bytes) {
  switch (type) {
    case GdbColumn::kShort:
      return 2;
    case GdbColumn::kLong:
    case GdbColumn::kSingle:
      return 4;
    case GdbColumn::kDouble:
    case GdbColumn::kDate:
      return 8;
    case GdbColumn::kGuid:
    case GdbColumn::kGlobalId:
      return 16;
    case GdbColumn::kOid:
    case GdbColumn::kRaster:
      return 0;
    default:
      break;
  }
  std::size_t length = 0;
  for (std::size_t at = 0; at < bytes.size() && at < 5; ++at) {
    const auto byte = static_cast<unsigned char>(bytes[at]);
    length |= static_cast<std::size_t>(byte & 0x7FU) << (7 * at);
    if ((byte & 0x80U) == 0) return length + at + 1;
  }
  return 0;
}

bool IsGdbNull(std::span<const char> row, const GdbColumn& column) {
  if (!column.nullable) return false;
  const auto byte = static_cast<unsigned char>(row[static_cast<std::size_t>(column.null_bit / 8)]);
  return (byte >> (column.null_bit % 8) & 1) != 0;
}

std::optional<GdbValues> SplitGdbRow(const GdbDescription& description, std::string_view row) {
  GdbValues values;
  return SplitGdbRow(description, row, values) ? std::optional(std::move(values)) : std::nullopt;
}

bool SplitGdbRow(const GdbDescription& description, std::string_view row, GdbValues& values) {
  if (row.size() < description.null_bytes) return false;
  values.assign(description.columns.size(), std::nullopt);
  std::size_t at = description.null_bytes;
  for (std::size_t index = 0; index < values.size(); ++index) {
    const GdbColumn& column = description.columns[index];
    if (column.type == GdbColumn::kOid || IsGdbNull(row, column)) continue;
    const std::size_t size = GdbValueSize(column.type, std::span(row).subspan(at));
    if (size == 0 || size > row.size() - at) return false;
    const std::string_view stored = row.substr(at, size);
    values[index] = HasLength(column.type) ? WithoutLength(stored) : stored;
    at += size;
  }
  return at == row.size();
}

std::string GdbText(const GdbDescription& description, std::string_view stored) {
  return description.utf8 ? std::string(stored) : TextOfUtf16(stored);
}

std::string TextOfUtf16(std::span<const char> bytes) {
  std::string text;
  const auto unit_at = [&](std::size_t at) { return static_cast<std::uint32_t>(LittleEndian(bytes.subspan(at, 2))); };
  for (std::size_t at = 0; at + 2 <= bytes.size(); at += 2) {
    std::uint32_t code = unit_at(at);
    const bool is_pair = code >= 0xD800U && code < 0xDC00U && at + 4 <= bytes.size() && unit_at(at + 2) >= 0xDC00U &&
                         unit_at(at + 2) < 0xE000U;
    if (is_pair) {
      code = 0x10000U + ((code - 0xD800U) << 10U) + (unit_at(at + 2) - 0xDC00U);
      at += 2;
    }
    AppendCodePoint(text, code);
  }
  return text;
}

std::string Utf16OfText(std::string_view text) {
  std::string bytes;
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    const int more = lead < 0xC0U ? 0 : lead < 0xE0U ? 1 : lead < 0xF0U ? 2 : 3;
    std::uint32_t code = more == 0 ? lead : lead & (0x3FU >> more);
    for (int index = 0; index < more && at < text.size(); ++index, ++at) {
      code = (code << 6U) | (static_cast<unsigned char>(text[at]) & 0x3FU);
    }
    if (code >= 0x10000U) {
      AppendUnit(bytes, 0xD800U + ((code - 0x10000U) >> 10U));
      AppendUnit(bytes, 0xDC00U + ((code - 0x10000U) & 0x3FFU));
    } else {
      AppendUnit(bytes, code);
    }
  }
  return bytes;
}

std::string GdbLength(std::size_t length) {
  std::string bytes;
  for (; length >= 0x80U; length >>= 7U) bytes += static_cast<char>((length & 0x7FU) | 0x80U);
  return bytes + static_cast<char>(length);
}

}  // namespace tessarine::engine
