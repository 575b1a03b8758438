#include "engine/filegdb_layout.h"

#include <cpl_string.h>

#include <array>

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
  // A length byte, then as many UTF-16 units.
  std::string Name() {
    std::string text;
    for (unsigned count = Byte(); count > 0; --count) AppendUnit(text, static_cast<unsigned>(Number(2)));
    return text;
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
  // Names outside the basic plane don't occur; a lone surrogate only makes the name differ.
  static void AppendUnit(std::string& text, unsigned unit) {
    if (unit < 0x80U) {
      text += static_cast<char>(unit);
    } else if (unit < 0x800U) {
      text += static_cast<char>(0xC0U | (unit >> 6U));
      text += static_cast<char>(0x80U | (unit & 0x3FU));
    } else {
      text += static_cast<char>(0xE0U | (unit >> 12U));
      text += static_cast<char>(0x80U | ((unit >> 6U) & 0x3FU));
      text += static_cast<char>(0x80U | (unit & 0x3FU));
    }
  }

  std::span<const char> bytes_;
};

constexpr unsigned kNullableFlag = 1;
constexpr unsigned kDefaultFlag = 4;
constexpr unsigned kHasM = 2;
constexpr unsigned kHasZ = 4;

unsigned ReadShapeColumn(Reader& reader, std::uint32_t layer_flags) {
  (void)reader.Byte();
  const unsigned flags = reader.Byte();
  (void)reader.Take(static_cast<std::size_t>(reader.Number(2)));  // the reference's text
  const unsigned dimensions = reader.Byte();
  std::size_t numbers = 3 + 1 + 4;  // origin and scale, tolerance, extent
  if ((dimensions & kHasM) != 0) numbers += 3;
  if ((dimensions & kHasZ) != 0) numbers += 3;
  // The extents of further dimensions follow the layer's own flags.
  if ((layer_flags & 0x80000000U) != 0) numbers += 2;
  if ((layer_flags & 0x40000000U) != 0) numbers += 2;
  (void)reader.Take(8 * numbers);
  (void)reader.Byte();
  (void)reader.Take(8 * static_cast<std::size_t>(reader.Number(4)));  // the cells of the spatial index
  return flags;
}

unsigned ReadColumnRest(Reader& reader, GdbColumn::Type type, std::uint32_t layer_flags) {
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
      return ReadShapeColumn(reader, layer_flags);
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

std::vector<GdbColumn> ReadColumns(Reader reader) {
  (void)reader.Number(4);  // the version
  const auto layer_flags = static_cast<std::uint32_t>(reader.Number(4));
  const std::uint64_t count = reader.Number(2);
  std::vector<GdbColumn> columns;
  int null_bit = 0;
  for (std::uint64_t index = 0; index < count; ++index) {
    GdbColumn column;
    column.name = reader.Name();
    (void)reader.Name();  // the alias
    const unsigned type = reader.Byte();
    if (type > GdbColumn::kXml || type == GdbColumn::kRaster) return {};
    column.type = static_cast<GdbColumn::Type>(type);
    column.nullable = (ReadColumnRest(reader, column.type, layer_flags) & kNullableFlag) != 0;
    if (column.type == GdbColumn::kOid) column.nullable = false;
    if (column.nullable) column.null_bit = null_bit++;
    columns.push_back(std::move(column));
  }
  return columns;
}

}  // namespace

std::vector<GdbColumn> ReadGdbColumns(const RawFile& table) {
  std::array<char, 40> header{};
  table.Read(0, header);
  const std::span<const char> bytes(header);
  if (LittleEndian(bytes.first(4)) != 3) return {};  // row numbers of 64 bits
  const auto place = static_cast<std::int64_t>(LittleEndian(bytes.subspan(32, 8)));
  std::array<char, 4> size{};
  table.Read(place, size);
  const auto length = static_cast<std::int64_t>(LittleEndian(size));
  if (length > kLongestHeader || place + 4 + length > table.Size()) return {};
  std::vector<char> described(static_cast<std::size_t>(length));
  table.Read(place + 4, described);
  try {
    return ReadColumns(Reader(described));
  } catch (const Fault&) {
    return {};
  }
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

std::string GdbLength(std::size_t length) {
  std::string bytes;
  for (; length >= 0x80U; length >>= 7U) bytes += static_cast<char>((length & 0x7FU) | 0x80U);
  return bytes + static_cast<char>(length);
}

}  // namespace tessarine::engine
