// SPDX-License-Identifier: GPL-2.0-or-later
// Columns of a dBASE table, changed in place.
#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <vector>

#include "engine/attribute_update.h"
#include "engine/dbase_layout.h"
#include "engine/engine_fault.h"
#include "engine/raw_file.h"
#include "platform/value_fit.h"

namespace tessarine::engine {
namespace {

using Column = DbaseColumn;

std::int64_t BlockRecords(const DbaseLayout& layout, std::int64_t block_bytes) {
  return std::max<std::int64_t>(1, block_bytes / layout.record_size);
}

bool IsNumeric(const Column& column) { return column.type == 'N' || column.type == 'F'; }

bool IsPlainText(std::string_view text, std::size_t width) {
  return text.size() <= width && std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

class DbaseUpdate final : public AttributeUpdate {
 public:
  DbaseUpdate(std::unique_ptr<RawFile> file, DbaseLayout layout, std::int64_t block_bytes)
      : file_(std::move(file)),
        layout_(std::move(layout)),
        block_bytes_(block_bytes),
        block_records_(BlockRecords(layout_, block_bytes)) {}

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
    if (stale_ && !ReadLayoutAnew()) return false;
    const bool fits = std::ranges::all_of(attributes, [&](int index) { return CanWrite(feature, index); });
    if (!fits || feature.GetFID() < 0 || feature.GetFID() >= layout_.record_count) return false;
    for (const int index : attributes) WriteColumn(feature, index);
    return true;
  }

  void Finish() override {
    // Others may write before the next row, and widen a column.
    stale_ = true;
    if (!changed_) return;
    FlushBlock();
    StampDate();
    changed_ = false;
  }

 private:
  // False when the table isn't any more as it was opened.
  bool ReadLayoutAnew() {
    const std::size_t column_count = layout_.columns.size();
    layout_ = ReadDbaseLayout(*file_);
    block_count_ = 0;
    stale_ = layout_.columns.size() != column_count;
    if (stale_) return false;
    block_records_ = BlockRecords(layout_, block_bytes_);
    return true;
  }

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
      const double value = feature.GetFieldAsDouble(index);
      text = NumberInColumn(value, column.width, column.decimals, room);
      if (text.empty()) text = ExponentInColumn(value, column.width, room);
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

  void StampDate() {
    const auto today = DbaseDate();
    file_->Write(kDbaseDateAt, today);
  }

  std::unique_ptr<RawFile> file_;
  DbaseLayout layout_;
  std::int64_t block_bytes_, block_records_;
  std::vector<char> block_;
  std::int64_t block_first_ = 0, block_count_ = 0;
  bool block_changed_ = false, changed_ = false;
  bool stale_ = false;  // the layout may have changed since it was read
};

}  // namespace

std::unique_ptr<AttributeUpdate> OpenDbaseUpdate(const OgrSource& source, OGRLayer& layer, std::int64_t block_bytes) {
  const std::string path = FindDbaseTable(source);
  if (path.empty()) return nullptr;
  auto file = std::make_unique<RawFile>(path);
  if (!file->IsOpen()) return nullptr;
  DbaseLayout layout = ReadDbaseLayout(*file);
  if (layout.columns.size() != static_cast<std::size_t>(layer.GetLayerDefn()->GetFieldCount())) return nullptr;
  return std::make_unique<DbaseUpdate>(std::move(file), std::move(layout), block_bytes);
}

}  // namespace tessarine::engine
