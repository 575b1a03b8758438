// SPDX-License-Identifier: GPL-2.0-or-later
// Columns of a table of a file geodatabase. A row that keeps its size is written in its place; one that grows goes to
// the end of the file, and its old place is marked as free. Shapes are carried over as the bytes they are.
#include <algorithm>
#include <array>
#include <bit>
#include <map>
#include <optional>
#include <set>

#include "engine/attribute_update.h"
#include "engine/engine_fault.h"
#include "engine/filegdb_edit.h"
#include "engine/filegdb_table.h"

namespace tessarine::engine {
namespace {

/// A column's new value as it stands in a row; empty for null.
using NewValue = std::optional<std::string>;

template <class Number>
std::string BytesOf(Number number) {
  static_assert(std::endian::native == std::endian::little);
  std::string bytes(sizeof(Number), '\0');
  std::memcpy(bytes.data(), &number, sizeof(Number));
  return bytes;
}

NewValue Encode(const OGRFeature& feature, int index, GdbColumn::Type type, const GdbDescription& table) {
  if (feature.IsFieldSetAndNotNull(index) == 0) return std::nullopt;
  switch (type) {
    case GdbColumn::kShort: {
      const int value = feature.GetFieldAsInteger(index);
      if (value != static_cast<std::int16_t>(value)) {
        Raise(kOverflow, std::string("Field '") + feature.GetFieldDefnRef(index)->GetNameRef() + "': the value " +
                             std::to_string(value) + " doesn't fit 16 bits.");
      }
      return BytesOf(static_cast<std::int16_t>(value));
    }
    case GdbColumn::kLong:
      return BytesOf(static_cast<std::int32_t>(feature.GetFieldAsInteger(index)));
    case GdbColumn::kSingle:
      return BytesOf(static_cast<float>(feature.GetFieldAsDouble(index)));
    case GdbColumn::kDouble:
      return BytesOf(feature.GetFieldAsDouble(index));
    default: {
      std::string text = feature.GetFieldAsString(index);
      if (!table.utf8) text = Utf16OfText(text);
      return GdbLength(text.size()) + text;
    }
  }
}

bool IsWritable(GdbColumn::Type type) { return type <= GdbColumn::kText; }

class FileGdbUpdate final : public AttributeUpdate {
 public:
  FileGdbUpdate(std::shared_ptr<FileGdbEdit> edit, const std::string& base, OGRLayer& layer, std::size_t held_bytes)
      : edit_(std::move(edit)), base_(base), table_(base, FileAccess::Change), held_bytes_(held_bytes) {
    if (!table_.IsUsable()) return;
    MatchFields(*layer.GetLayerDefn());
    table_.File().Read(0, header_);
    longest_ = static_cast<std::size_t>(LittleEndian(header_, kGdbLongestRow));
    end_ = table_.File().Size();
  }

  ~FileGdbUpdate() override {
    try {
      FileGdbUpdate::Finish();
    } catch (const Fault&) {
      // Whoever wanted to know has called Finish.
    }
  }
  FileGdbUpdate(const FileGdbUpdate&) = delete;
  FileGdbUpdate& operator=(const FileGdbUpdate&) = delete;

  [[nodiscard]] bool IsUsable() const { return usable_; }

  bool Write(const OGRFeature& feature, std::span<const int> attributes) override {
    if (attributes.empty()) return true;
    std::map<std::size_t, NewValue> values;
    for (const int index : attributes) {
      const std::size_t column = column_of_[static_cast<std::size_t>(index)];
      const GdbColumn::Type type = Columns()[column].type;
      if (!IsWritable(type)) return false;
      values[column] = Encode(feature, index, type, table_.Description());
    }
    for (const auto& [column, value] : values) {
      if (written_.insert(column).second) edit_->ColumnChanges(base_, Columns()[column].name);
    }
    const std::int64_t oid = feature.GetFID();
    // A row that is still held back hasn't its new place yet.
    if (!moved_.empty() && oid <= moved_.back().oid) Finish();
    const std::int64_t offset = table_.Places().Find(oid);
    if (offset == 0) RaiseDamaged(oid);
    const std::string before = ReadRow(oid, offset);
    const std::string after = Rebuild(oid, before, values);
    if (after.size() == before.size()) {
      table_.File().Write(offset + 4, after);
    } else {
      Append(oid, offset, before.size(), after);
    }
    return true;
  }

  void Finish() override {
    if (moved_.empty()) return;
    // In this order, so that a run that is killed leaves no row number pointing to bytes that aren't written yet.
    // Against a loss of power this does nothing: the edit syncs the files before it puts them in place.
    table_.File().Write(held_from_, held_);
    PutLittleEndian(longest_, header_, kGdbLongestRow);
    PutLittleEndian(static_cast<std::uint64_t>(end_), header_, kGdbFileSize);
    table_.File().Write(0, header_);
    for (const Moved& row : moved_) table_.Places().Set(row.oid, row.to);
    for (const Moved& row : moved_) {
      std::array<char, 4> freed{};
      PutLittleEndian(static_cast<std::uint64_t>(-static_cast<std::int64_t>(row.old_size)), freed);
      table_.File().Write(row.from, freed);
    }
    moved_.clear();
    held_.clear();
    held_from_ = end_;
  }

 private:
  struct Moved {
    std::int64_t oid, from, to;
    std::size_t old_size;
  };

  [[nodiscard]] const std::vector<GdbColumn>& Columns() const { return table_.Description().columns; }

  void MatchFields(const OGRFeatureDefn& definition) {
    for (int index = 0; index < definition.GetFieldCount(); ++index) {
      const int found = table_.FindColumn(definition.GetFieldDefn(index)->GetNameRef());
      if (found < 0) return;
      column_of_.push_back(static_cast<std::size_t>(found));
    }
    usable_ = true;
  }

  [[noreturn]] void RaiseDamaged(std::int64_t oid) const {
    RaiseEngineFault("Row " + std::to_string(oid) + " of '" + base_ +
                     ".gdbtable' isn't stored as its table says. Copy the layer, and calculate on the copy.");
  }

  [[nodiscard]] std::string ReadRow(std::int64_t oid, std::int64_t offset) const {
    const std::optional<std::string> row = table_.Row(offset);
    if (!row || row->size() < table_.Description().null_bytes) RaiseDamaged(oid);
    return *row;
  }

  // The row with its new values; all other bytes are taken over.
  [[nodiscard]] std::string Rebuild(std::int64_t oid, const std::string& before,
                                    const std::map<std::size_t, NewValue>& values) const {
    std::size_t at = table_.Description().null_bytes;
    std::string after = before.substr(0, at);
    for (std::size_t index = 0; index < Columns().size(); ++index) {
      const GdbColumn& column = Columns()[index];
      if (column.type == GdbColumn::kOid) continue;
      const bool is_null = IsGdbNull(before, column);
      std::size_t size = 0;
      if (!is_null) {
        size = GdbValueSize(column.type, std::span(before).subspan(at));
        if (size == 0 || at + size > before.size()) RaiseDamaged(oid);
      }
      const auto changed = values.find(index);
      if (changed == values.end()) {
        after.append(before, at, size);
      } else {
        if (!changed->second && !column.nullable) {
          RaiseEngineFault("The field '" + column.name + "' can't be null.");
        }
        if (column.nullable) SetNullBit(after, column.null_bit, !changed->second);
        if (changed->second) after += *changed->second;
      }
      at += size;
    }
    if (at != before.size()) RaiseDamaged(oid);
    return after;
  }

  static void SetNullBit(std::string& row, int bit, bool is_null) {
    char& byte = row[static_cast<std::size_t>(bit / 8)];
    const auto mask = static_cast<unsigned char>(1U << (bit % 8));
    byte = static_cast<char>(is_null ? static_cast<unsigned char>(byte) | mask
                                     : static_cast<unsigned char>(byte) & static_cast<unsigned char>(~mask));
  }

  void Append(std::int64_t oid, std::int64_t from, std::size_t old_size, const std::string& row) {
    if (moved_.empty()) held_from_ = end_;
    if (end_ + static_cast<std::int64_t>(row.size()) + 4 >= table_.Places().OffsetLimit()) {
      RaiseEngineFault("'" + base_ + ".gdbtable' can't grow any more.");
    }
    std::array<char, 4> size{};
    PutLittleEndian(row.size(), size);
    held_.append(size.data(), size.size());
    held_ += row;
    moved_.push_back({oid, from, end_, old_size});
    longest_ = std::max(longest_, row.size());
    end_ += static_cast<std::int64_t>(row.size()) + 4;
    if (held_.size() >= held_bytes_) Finish();
  }

  std::shared_ptr<FileGdbEdit> edit_;
  std::string base_;
  GdbTable table_;
  std::vector<std::size_t> column_of_;  // by OGR index
  std::set<std::size_t> written_;       // columns
  std::array<char, kGdbHeaderSize> header_{};
  std::int64_t end_ = 0;
  std::size_t longest_ = 0;
  std::size_t held_bytes_;
  std::string held_;
  std::int64_t held_from_ = 0;
  std::vector<Moved> moved_;
  bool usable_ = false;
};

}  // namespace

std::unique_ptr<AttributeUpdate> OpenFileGdbUpdate(const OgrSource& source, OGRLayer& layer, std::size_t held_bytes) {
  std::shared_ptr<FileGdbEdit> edit = FileGdbEdit::UnderWay(source.Path());
  if (!edit) Raise(kInvalidCall, "'" + source.Path() + "' is written to outside of an edit.");
  const std::string base = FindGdbTable(edit->Folder(), source.LayerName());
  if (base.empty()) return nullptr;
  auto update = std::make_unique<FileGdbUpdate>(std::move(edit), base, layer, held_bytes);
  return update->IsUsable() ? std::move(update) : nullptr;
}

}  // namespace tessarine::engine
