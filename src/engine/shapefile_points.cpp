// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/shapefile_points.h"

#include <fcntl.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <limits>
#include <string_view>

namespace tessarine::engine {
namespace {

// A .shp and a .shx begin with the same 100 bytes: their own length at 24, in words of two bytes, the highest byte
// first, and the bounds of all shapes at 36, four doubles with the lowest byte first.
constexpr std::int64_t kHeaderSize = 100, kLengthAt = 24, kBoundsAt = 36;
constexpr std::int64_t kWord = 2;
// A record: its number and its length in words, the highest byte first; the kind of the shape, and two doubles.
constexpr std::size_t kPrefixSize = 8, kPointSize = 20, kIndexSize = 8;
constexpr std::uint32_t kPointKind = 1;

// What tools read that take offsets for numbers with a sign.
constexpr std::int64_t kMostBytes = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kHeldBytes = 1 << 18;
constexpr std::int64_t kCountAt = 4;
constexpr char kEndOfTable = 0x1A;

void PutBigEndian(std::uint64_t value, std::span<char> bytes) {
  PutLittleEndian(value, bytes);
  std::ranges::reverse(bytes);
}

void PutDouble(double value, std::span<char> bytes) { PutLittleEndian(std::bit_cast<std::uint64_t>(value), bytes); }

bool PutAtEnd(std::string_view text, std::span<char> place) {
  if (text.size() > place.size()) return false;
  std::ranges::copy(text, place.end() - static_cast<std::ptrdiff_t>(text.size()));
  return true;
}

bool PutWhole(std::int64_t value, std::span<char> place) {
  std::array<char, 24> room;
  const auto end = std::to_chars(room.data(), room.data() + room.size(), value);
  return PutAtEnd({room.data(), static_cast<std::size_t>(end.ptr - room.data())}, place);
}

// All decimals, cut off at the width.
bool PutReal(double value, int decimals, std::span<char> place) {
  if (!std::isfinite(value)) return false;
  std::array<char, 400> room;
  const auto end = std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed, decimals);
  const std::string_view text(room.data(), static_cast<std::size_t>(end.ptr - room.data()));
  return PutAtEnd(text.substr(0, place.size()), place);
}

bool PutText(std::string_view text, std::span<char> place) {
  const bool is_plain = std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  if (!is_plain || text.size() > place.size()) return false;
  std::ranges::copy(text, place.begin());
  return true;
}

bool IsNumeric(const DbaseColumn& column) { return column.type == 'N' || column.type == 'F'; }

// Whether the values of the field go into the column as they do here.
bool Suits(const OGRFieldDefn& field, const DbaseColumn& column) {
  switch (field.GetType()) {
    case OFTInteger:
    case OFTInteger64:
      return IsNumeric(column) && column.decimals == 0 && field.GetSubType() != OFSTBoolean;
    case OFTReal:
      return IsNumeric(column);
    case OFTString:
      return column.type == 'C';
    default:
      return column.type == 'D';
  }
}

// The place that the user named tells more than the one where the files are made.
RawFile OpenAs(const std::string& name, const std::string& path) {
  return {name, open(path.c_str(), O_RDWR | O_CLOEXEC)};
}

}  // namespace

ShapefilePoints::Growing::Growing(const std::string& name, const std::string& path, std::int64_t size)
    : file_(OpenAs(name, path)), written_(size) {}

std::span<char> ShapefilePoints::Growing::Add(std::size_t size) {
  if (held_.size() >= kHeldBytes) Flush();
  held_.resize(held_.size() + size, ' ');
  return std::span(held_).last(size);
}

void ShapefilePoints::Growing::Flush() {
  file_.Write(written_, held_);
  written_ += static_cast<std::int64_t>(held_.size());
  held_.clear();
}

ShapefilePoints::ShapefilePoints(const OgrSource& source, const std::string& shapes, const std::string& index,
                                 const std::string& table, DbaseLayout layout, std::vector<OGRFieldType> types)
    : shapes_(source.Path(), shapes, kHeaderSize),
      index_(source.Path(), index, kHeaderSize),
      table_(source.Path(), table, layout.first_record),
      layout_(std::move(layout)),
      types_(std::move(types)),
      record_(static_cast<std::size_t>(layout_.record_size)) {}

std::unique_ptr<ShapefilePoints> ShapefilePoints::Open(const OgrSource& source, OGRLayer& layer) {
  namespace fs = std::filesystem;
  const bool is_new = source.DataPath() != source.Path() && layer.GetFeatureCount(0) == 0;
  if (!is_new || layer.GetGeomType() != wkbPoint) return nullptr;
  const std::string table = FindDbaseTable(source);
  if (table.empty()) return nullptr;
  const std::string shapes = fs::path(table).replace_extension(".shp"),
                    index = fs::path(table).replace_extension(".shx");
  std::error_code error;
  if (fs::file_size(shapes, error) != kHeaderSize || fs::file_size(index, error) != kHeaderSize) return nullptr;
  DbaseLayout layout;
  {
    const RawFile file(table, FileAccess::Read);
    if (!file.IsOpen()) return nullptr;
    layout = ReadDbaseLayout(file);
  }
  const OGRFeatureDefn& definition = *layer.GetLayerDefn();
  // GDAL gives a table without columns one of its own with the first row.
  if (layout.record_count != 0 || layout.columns.empty() ||
      layout.columns.size() != static_cast<std::size_t>(definition.GetFieldCount())) {
    return nullptr;
  }
  std::vector<OGRFieldType> types;
  for (int field = 0; field < definition.GetFieldCount(); ++field) {
    if (!Suits(*definition.GetFieldDefn(field), layout.columns[static_cast<std::size_t>(field)])) return nullptr;
    types.push_back(definition.GetFieldDefn(field)->GetType());
  }
  std::unique_ptr<ShapefilePoints> points(
      new ShapefilePoints(source, shapes, index, table, std::move(layout), std::move(types)));
  const bool is_open = points->shapes_.IsOpen() && points->index_.IsOpen() && points->table_.IsOpen();
  return is_open ? std::move(points) : nullptr;
}

bool ShapefilePoints::Append(OGRFeature& feature) {
  const OGRGeometry* shape = feature.GetGeometryRef();
  if (shape == nullptr || shape->getGeometryType() != wkbPoint || shape->IsEmpty() != 0) return false;
  const auto added = static_cast<std::int64_t>(std::max(record_.size(), kPrefixSize + kPointSize));
  if (shapes_.Size() + added > kMostBytes || table_.Size() + added > kMostBytes || !PutRecord(feature)) return false;
  std::ranges::copy(record_, table_.Add(record_.size()).begin());
  AddPoint({shape->toPoint()->getX(), shape->toPoint()->getY()});
  feature.SetFID(count_++);
  return true;
}

// False where a value can't be put.
bool ShapefilePoints::PutRecord(const OGRFeature& feature) {
  std::ranges::fill(record_, ' ');
  for (std::size_t index = 0; index < types_.size(); ++index) {
    const DbaseColumn& column = layout_.columns[index];
    if (!PutValue(feature, static_cast<int>(index), std::span(record_).subspan(column.offset, column.width))) {
      return false;
    }
  }
  return true;
}

bool ShapefilePoints::PutValue(const OGRFeature& feature, int index, std::span<char> place) const {
  const DbaseColumn& column = layout_.columns[static_cast<std::size_t>(index)];
  if (feature.IsFieldSetAndNotNull(index) == 0) {
    const char mark = column.type == 'D' ? '0' : IsNumeric(column) ? '*' : ' ';
    std::ranges::fill(place, mark);
    return true;
  }
  const OGRField& value = *feature.GetRawFieldRef(index);
  switch (types_[static_cast<std::size_t>(index)]) {
    case OFTInteger:
      return PutWhole(value.Integer, place);
    case OFTInteger64:
      return PutWhole(value.Integer64, place);
    case OFTReal:
      return PutReal(value.Real, column.decimals, place);
    case OFTString:
      return PutText(value.String, place);
    default:
      return false;
  }
}

void ShapefilePoints::AddPoint(XY place) {
  constexpr std::uint64_t kWords = kPointSize / kWord;
  const std::span<char> entry = index_.Add(kIndexSize);
  PutBigEndian(static_cast<std::uint64_t>(shapes_.Size() / kWord), entry.first(4));
  PutBigEndian(kWords, entry.last(4));
  const std::span<char> record = shapes_.Add(kPrefixSize + kPointSize);
  PutBigEndian(static_cast<std::uint64_t>(count_ + 1), record.first(4));
  PutBigEndian(kWords, record.subspan(4, 4));
  PutLittleEndian(kPointKind, record.subspan(8, 4));
  PutDouble(place.x, record.subspan(12, 8));
  PutDouble(place.y, record.last(8));
  bounds_.Add(Box::Of(place));
}

void ShapefilePoints::PutHeader(const Growing& file) const {
  std::array<char, 4> length;
  PutBigEndian(static_cast<std::uint64_t>(file.Size() / kWord), length);
  file.File().Write(kLengthAt, length);
  std::array<char, 32> bounds;
  const std::span<char> bytes(bounds);
  const double values[] = {bounds_.xmin, bounds_.ymin, bounds_.xmax, bounds_.ymax};
  for (std::size_t at = 0; at < std::size(values); ++at) PutDouble(values[at], bytes.subspan(8 * at, 8));
  file.File().Write(kBoundsAt, bounds);
}

void ShapefilePoints::Finish() {
  if (count_ == 0) return;
  shapes_.Flush();
  index_.Flush();
  PutHeader(shapes_);
  PutHeader(index_);
  table_.Add(1).front() = kEndOfTable;
  table_.Flush();
  std::array<char, 4> count;
  PutLittleEndian(static_cast<std::uint64_t>(count_), count);
  table_.File().Write(kCountAt, count);
  const auto today = DbaseDate();
  table_.File().Write(kDbaseDateAt, today);
}

}  // namespace tessarine::engine
