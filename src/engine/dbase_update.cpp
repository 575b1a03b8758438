// Columns of a dBASE table, changed in place. Layout: a header of 32 bytes, 32 bytes for each column, then records of
// one length, each with a deletion mark in front.
#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "engine/attribute_update.h"
#include "engine/engine_fault.h"
#include "engine/ogr_fields.h"
#include "engine/raw_file.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kHeaderSize = 32;
constexpr std::size_t kColumnSize = 32;
constexpr std::int64_t kBlockBytes = 1 << 20;

struct Column {
  char type = 'C';
  std::size_t offset = 0;  // in the record
  std::size_t width = 0;
  int decimals = 0;
};

struct TableLayout {
  std::int64_t first_record = 0;
  std::int64_t record_size = 0;
  std::int64_t record_count = 0;
  std::vector<Column> columns;
};

TableLayout ReadLayout(const RawFile& file) {
  std::array<char, kHeaderSize> header{};
  file.Read(0, header);
  const std::span<const char> bytes(header);
  TableLayout layout;
  layout.record_count = static_cast<std::int64_t>(LittleEndian(bytes.subspan(4, 4)));
  layout.first_record = static_cast<std::int64_t>(LittleEndian(bytes.subspan(8, 2)));
  layout.record_size = static_cast<std::int64_t>(LittleEndian(bytes.subspan(10, 2)));
  if (layout.first_record <= static_cast<std::int64_t>(kHeaderSize)) return layout;
  std::vector<char> described(static_cast<std::size_t>(layout.first_record) - kHeaderSize);
  file.Read(kHeaderSize, described);
  std::size_t offset = 1;
  for (std::size_t at = 0; at + kColumnSize <= described.size() && described[at] != '\r'; at += kColumnSize) {
    Column column{described[at + 11], offset, static_cast<unsigned char>(described[at + 16]), 0};
    if (column.type == 'N' || column.type == 'F') {
      column.decimals = static_cast<unsigned char>(described[at + 17]);
    } else {
      // Texts longer than 255 bytes have the rest of their width in the next byte.
      column.width += 256U * static_cast<unsigned char>(described[at + 17]);
    }
    offset += column.width;
    layout.columns.push_back(column);
  }
  if (static_cast<std::int64_t>(offset) != layout.record_size) layout.columns.clear();
  return layout;
}

bool IsNumeric(const Column& column) { return column.type == 'N' || column.type == 'F'; }

bool IsPlainText(std::string_view text, std::size_t width) {
  return text.size() <= width && std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

class DbaseUpdate final : public AttributeUpdate {
 public:
  DbaseUpdate(std::unique_ptr<RawFile> file, TableLayout layout)
      : file_(std::move(file)),
        layout_(std::move(layout)),
        block_records_(std::max<std::int64_t>(1, kBlockBytes / layout_.record_size)) {}

  ~DbaseUpdate() override {
    try {
      DbaseUpdate::Finish();
    } catch (const Fault&) {
      // Whoever wanted to know has called Finish.
    }
  }
  DbaseUpdate(const DbaseUpdate&) = delete;
  DbaseUpdate& operator=(const DbaseUpdate&) = delete;

  bool Write(const OGRFeature& feature, std::span<const int> attributes) override {
    const bool fits = std::ranges::all_of(attributes, [&](int index) { return CanWrite(feature, index); });
    if (!fits || feature.GetFID() < 0 || feature.GetFID() >= layout_.record_count) return false;
    for (const int index : attributes) WriteColumn(feature, index);
    return true;
  }

  void Finish() override {
    if (!changed_) return;
    FlushBlock();
    StampDate();
    changed_ = false;
    block_count_ = 0;  // others may write before the next row
  }

 private:
  [[nodiscard]] bool CanWrite(const OGRFeature& feature, int index) const {
    const Column& column = layout_.columns[static_cast<std::size_t>(index)];
    if (IsNumeric(column)) return true;
    if (column.type != 'C') return false;
    return feature.IsFieldSetAndNotNull(index) == 0 || IsPlainText(feature.GetFieldAsString(index), column.width);
  }

  void WriteColumn(const OGRFeature& feature, int index) {
    const Column& column = layout_.columns[static_cast<std::size_t>(index)];
    const std::span<char> place = Record(feature.GetFID()).subspan(column.offset, column.width);
    if (feature.IsFieldSetAndNotNull(index) == 0) {
      std::ranges::fill(place, IsNumeric(column) ? '*' : ' ');
    } else if (IsNumeric(column)) {
      WriteNumber(feature, index, place);
    } else {
      const std::string_view text = feature.GetFieldAsString(index);
      std::ranges::fill(place, ' ');
      std::ranges::copy(text, place.begin());
    }
    changed_ = true;
    block_changed_ = true;
  }

  void WriteNumber(const OGRFeature& feature, int index, std::span<char> place) const {
    const Column& column = layout_.columns[static_cast<std::size_t>(index)];
    std::array<char, 400> room;
    std::string_view text;
    if (feature.GetFieldDefnRef(index)->GetType() == OFTReal) {
      text = NumberInColumn(feature.GetFieldAsDouble(index), column.width, column.decimals, room);
    } else {
      const auto end = std::to_chars(room.data(), room.data() + room.size(), feature.GetFieldAsInteger64(index));
      text = {room.data(), static_cast<std::size_t>(end.ptr - room.data())};
    }
    if (text.empty() || text.size() > column.width) {
      Raise(kOverflow, std::string("Field '") + feature.GetFieldDefnRef(index)->GetNameRef() + "': the value " +
                           feature.GetFieldAsString(index) + " doesn't fit its width of " +
                           std::to_string(column.width) + ".");
    }
    std::ranges::fill(place, ' ');
    std::ranges::copy(text, place.end() - static_cast<std::ptrdiff_t>(text.size()));
  }

  std::span<char> Record(std::int64_t fid) {
    if (fid < block_first_ || fid >= block_first_ + block_count_) {
      FlushBlock();
      block_count_ = std::min(block_records_, layout_.record_count - fid);
      block_.resize(static_cast<std::size_t>(block_count_ * layout_.record_size));
      block_first_ = fid;
      file_->Read(layout_.first_record + fid * layout_.record_size, block_);
    }
    return std::span(block_).subspan(static_cast<std::size_t>((fid - block_first_) * layout_.record_size),
                                     static_cast<std::size_t>(layout_.record_size));
  }

  void FlushBlock() {
    if (!block_changed_) return;
    file_->Write(layout_.first_record + block_first_ * layout_.record_size, block_);
    block_changed_ = false;
  }

  // The header tells the day of the last change: years since 1900, month, day.
  void StampDate() {
    const std::time_t now = std::time(nullptr);
    std::tm day{};
    localtime_r(&now, &day);
    std::array<char, 3> stamp = {static_cast<char>(day.tm_year), static_cast<char>(day.tm_mon + 1),
                                 static_cast<char>(day.tm_mday)};
    file_->Write(1, stamp);
  }

  std::unique_ptr<RawFile> file_;
  TableLayout layout_;
  std::int64_t block_records_;
  std::vector<char> block_;
  std::int64_t block_first_ = 0, block_count_ = 0;
  bool block_changed_ = false, changed_ = false;
};

// The table of a layer: beside its .shp, or in the folder that was opened.
std::string FindTable(const OgrSource& source) {
  std::error_code error;
  fs::path base = source.Path();
  if (fs::is_directory(base, error)) base /= source.LayerName() + ".shp";
  for (const char* ending : {".dbf", ".DBF", ".Dbf"}) {
    const fs::path table = fs::path(base).replace_extension(ending);
    if (fs::is_regular_file(table, error)) return table.string();
  }
  return "";
}

}  // namespace

std::unique_ptr<AttributeUpdate> OpenDbaseUpdate(const OgrSource& source, OGRLayer& layer) {
  const std::string path = FindTable(source);
  if (path.empty()) return nullptr;
  auto file = std::make_unique<RawFile>(path);
  if (!file->IsOpen()) return nullptr;
  TableLayout layout = ReadLayout(*file);
  if (layout.columns.size() != static_cast<std::size_t>(layer.GetLayerDefn()->GetFieldCount())) return nullptr;
  return std::make_unique<DbaseUpdate>(std::move(file), std::move(layout));
}

}  // namespace tessarine::engine
