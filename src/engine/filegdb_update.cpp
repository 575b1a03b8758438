// Columns of a table of a file geodatabase. A row that keeps its size is written in its place; one that grows goes to
// the end of the file, and its old place is marked as free. Shapes are carried over as the bytes they are.
#include <algorithm>
#include <array>
#include <bit>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>

#include "engine/attribute_update.h"
#include "engine/engine_fault.h"
#include "engine/filegdb_layout.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kHeaderSize = 40;
constexpr std::int64_t kFirstOffset = 16;
constexpr std::int64_t kRowsPerPage = 1024;
constexpr std::size_t kHeldBytes = 4 << 20;

/// Where the rows of a table lie: a file of offsets by row number, in pages; pages without rows may be left out.
class RowPlaces {
 public:
  explicit RowPlaces(const std::string& path) : file_(path) {
    if (!file_.IsOpen()) return;
    std::array<char, kFirstOffset> header{};
    file_.Read(0, header);
    const std::span<const char> bytes(header);
    pages_ = static_cast<std::int64_t>(LittleEndian(bytes.subspan(4, 4)));
    row_count_ = static_cast<std::int64_t>(LittleEndian(bytes.subspan(8, 4)));
    width_ = static_cast<std::size_t>(LittleEndian(bytes.subspan(12, 4)));
    const std::int64_t end = kFirstOffset + pages_ * kRowsPerPage * static_cast<std::int64_t>(width_);
    // Whole pages stand for all rows; the trailer of a table with gaps says otherwise.
    usable_ = LittleEndian(bytes.first(4)) == 3 && width_ >= 4 && width_ <= 6 && row_count_ <= pages_ * kRowsPerPage &&
              file_.Size() >= end;
  }

  [[nodiscard]] bool IsUsable() const { return usable_; }
  [[nodiscard]] std::int64_t OffsetLimit() const { return std::int64_t{1} << (8 * width_); }

  /// 0 where there is no such row.
  [[nodiscard]] std::int64_t Find(std::int64_t oid) const {
    if (oid < 1 || oid > row_count_) return 0;
    std::array<char, 8> bytes{};
    const std::span<char> used = std::span(bytes).first(width_);
    file_.Read(PlaceOf(oid), used);
    return static_cast<std::int64_t>(LittleEndian(used));
  }
  void Set(std::int64_t oid, std::int64_t offset) const {
    std::array<char, 8> bytes{};
    const std::span<char> used = std::span(bytes).first(width_);
    PutLittleEndian(static_cast<std::uint64_t>(offset), used);
    file_.Write(PlaceOf(oid), used);
  }

 private:
  [[nodiscard]] std::int64_t PlaceOf(std::int64_t oid) const {
    return kFirstOffset + (oid - 1) * static_cast<std::int64_t>(width_);
  }

  RawFile file_;
  std::int64_t pages_ = 0, row_count_ = 0;
  std::size_t width_ = 0;
  bool usable_ = false;
};

/// A column's new value as it stands in a row; nothing for null.
using NewValue = std::optional<std::string>;

template <class Number>
std::string BytesOf(Number number) {
  static_assert(std::endian::native == std::endian::little);
  std::string bytes(sizeof(Number), '\0');
  std::memcpy(bytes.data(), &number, sizeof(Number));
  return bytes;
}

NewValue Encode(const OGRFeature& feature, int index, GdbColumn::Type type) {
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
      const std::string text = feature.GetFieldAsString(index);
      return GdbLength(text.size()) + text;
    }
  }
}

bool IsWritable(GdbColumn::Type type) { return type <= GdbColumn::kText; }

// The description of the indexes of a table, where it has any on attributes.
std::string ReadIndexes(const std::string& base) {
  std::error_code error;
  const fs::path path(base);
  const std::string prefix = path.filename().string() + ".";
  for (const auto& entry : fs::directory_iterator(path.parent_path(), error)) {
    const std::string name = entry.path().filename().string();
    if (!name.starts_with(prefix) || !EndsWithIgnoringCase(name, ".atx")) continue;
    std::ifstream file(base + ".gdbindexes", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  return "";
}

// True where an index is kept of this column: its name in two bytes a character, by itself or as "LOWER(name)".
bool IsIndexed(const std::string& indexes, const std::string& column) {
  if (indexes.empty()) return false;
  for (const std::string& expression : {column, "LOWER(" + column + ")"}) {
    std::string pattern(4, '\0');
    PutLittleEndian(expression.size(), pattern);
    for (const char c : expression) pattern.append({c, '\0'});
    if (indexes.find(pattern) != std::string::npos) return true;
  }
  return false;
}

class FileGdbUpdate final : public AttributeUpdate {
 public:
  FileGdbUpdate(const std::string& base, OGRLayer& layer)
      : base_(base), table_(base + ".gdbtable"), places_(base + ".gdbtablx") {
    if (!table_.IsOpen() || !places_.IsUsable()) return;
    columns_ = ReadGdbColumns(table_);
    const std::string indexes = ReadIndexes(base);
    for (const GdbColumn& column : columns_) {
      null_bytes_ += column.nullable ? 1 : 0;
      indexed_.push_back(IsIndexed(indexes, column.name));
    }
    null_bytes_ = (null_bytes_ + 7) / 8;
    MatchFields(*layer.GetLayerDefn());
    table_.Read(0, header_);
    const std::span<const char> header(header_);
    longest_ = static_cast<std::size_t>(LittleEndian(header.subspan(8, 4)));
    end_ = std::max(static_cast<std::int64_t>(LittleEndian(header.subspan(24, 8))), table_.Size());
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
      if (!IsWritable(columns_[column].type)) return false;
      if (indexed_[column]) {
        RaiseEngineFault("The field '" + columns_[column].name +
                         "' has an index, which can't be kept up to date. Choose another field, or work on a copy.");
      }
      values[column] = Encode(feature, index, columns_[column].type);
    }
    const std::int64_t oid = feature.GetFID();
    // A row that is still held back hasn't its new place yet.
    if (!moved_.empty() && oid <= moved_.back().oid) Finish();
    const std::int64_t offset = places_.Find(oid);
    if (offset == 0) RaiseDamaged(oid);
    const std::string before = ReadRow(oid, offset);
    const std::string after = Rebuild(oid, before, values);
    if (after.size() == before.size()) {
      table_.Write(offset + 4, after);
    } else {
      Append(oid, offset, before.size(), after);
    }
    return true;
  }

  void Finish() override {
    if (moved_.empty()) return;
    // The new rows are in the file before anything points to them.
    table_.Write(held_from_, held_);
    PutLittleEndian(longest_, std::span(header_).subspan(8, 4));
    PutLittleEndian(static_cast<std::uint64_t>(end_), std::span(header_).subspan(24, 8));
    table_.Write(0, header_);
    for (const Moved& row : moved_) places_.Set(row.oid, row.to);
    for (const Moved& row : moved_) {
      std::array<char, 4> freed{};
      PutLittleEndian(static_cast<std::uint64_t>(-static_cast<std::int64_t>(row.old_size)), freed);
      table_.Write(row.from, freed);
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

  void MatchFields(const OGRFeatureDefn& definition) {
    for (int index = 0; index < definition.GetFieldCount(); ++index) {
      const std::string name = definition.GetFieldDefn(index)->GetNameRef();
      const auto found = std::ranges::find(columns_, name, &GdbColumn::name);
      if (found == columns_.end()) return;
      column_of_.push_back(static_cast<std::size_t>(found - columns_.begin()));
    }
    usable_ = !columns_.empty();
  }

  [[noreturn]] void RaiseDamaged(std::int64_t oid) const {
    RaiseEngineFault("Row " + std::to_string(oid) + " of '" + base_ +
                     ".gdbtable' isn't stored as its table says. Copy the layer, and calculate on the copy.");
  }

  [[nodiscard]] std::string ReadRow(std::int64_t oid, std::int64_t offset) const {
    std::array<char, 4> size{};
    table_.Read(offset, size);
    const auto length = static_cast<std::int32_t>(LittleEndian(size));
    if (length < static_cast<std::int32_t>(null_bytes_) || offset + 4 + length > end_) RaiseDamaged(oid);
    std::string row(static_cast<std::size_t>(length), '\0');
    table_.Read(offset + 4, row);
    return row;
  }

  // The row with its new values; all other bytes are taken over.
  [[nodiscard]] std::string Rebuild(std::int64_t oid, const std::string& before,
                                    const std::map<std::size_t, NewValue>& values) const {
    std::string after = before.substr(0, null_bytes_);
    std::size_t at = null_bytes_;
    for (std::size_t index = 0; index < columns_.size(); ++index) {
      const GdbColumn& column = columns_[index];
      if (column.type == GdbColumn::kOid) continue;
      const bool is_null = column.nullable && IsNullBit(before, column.null_bit);
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

  static bool IsNullBit(const std::string& row, int bit) {
    return (static_cast<unsigned char>(row[static_cast<std::size_t>(bit / 8)]) >> (bit % 8) & 1) != 0;
  }
  static void SetNullBit(std::string& row, int bit, bool is_null) {
    char& byte = row[static_cast<std::size_t>(bit / 8)];
    const auto mask = static_cast<unsigned char>(1U << (bit % 8));
    byte = static_cast<char>(is_null ? static_cast<unsigned char>(byte) | mask
                                     : static_cast<unsigned char>(byte) & static_cast<unsigned char>(~mask));
  }

  void Append(std::int64_t oid, std::int64_t from, std::size_t old_size, const std::string& row) {
    if (moved_.empty()) held_from_ = end_;
    if (end_ + static_cast<std::int64_t>(row.size()) + 4 >= places_.OffsetLimit()) {
      RaiseEngineFault("'" + base_ + ".gdbtable' can't grow any more.");
    }
    std::array<char, 4> size{};
    PutLittleEndian(row.size(), size);
    held_.append(size.data(), size.size());
    held_ += row;
    moved_.push_back({oid, from, end_, old_size});
    longest_ = std::max(longest_, row.size());
    end_ += static_cast<std::int64_t>(row.size()) + 4;
    if (held_.size() >= kHeldBytes) Finish();
  }

  std::string base_;
  RawFile table_;
  RowPlaces places_;
  std::vector<GdbColumn> columns_;
  std::vector<bool> indexed_;
  std::vector<std::size_t> column_of_;  // by OGR index
  std::size_t null_bytes_ = 0;
  std::array<char, kHeaderSize> header_{};
  std::int64_t end_ = 0;
  std::size_t longest_ = 0;
  std::string held_;
  std::int64_t held_from_ = 0;
  std::vector<Moved> moved_;
  bool usable_ = false;
};

// The files of a table are numbered by its row in the catalog of the geodatabase.
std::string FindTable(const OgrSource& source) {
  const char* const options[] = {"LIST_ALL_TABLES=YES", nullptr};
  const char* const drivers[] = {"OpenFileGDB", nullptr};
  const GdalErrorScope quiet;
  const DatasetHandle dataset(GDALDataset::Open(source.Path().c_str(), GDAL_OF_VECTOR, drivers, options));
  OGRLayer* catalog = dataset ? dataset->GetLayerByName("GDB_SystemCatalog") : nullptr;
  if (catalog == nullptr) return "";
  for (const auto& row : *catalog) {
    if (source.LayerName() != row->GetFieldAsString("Name")) continue;
    std::array<char, 16> name{};
    std::snprintf(name.data(), name.size(), "a%08x", static_cast<unsigned>(row->GetFID()));
    return (fs::path(source.Path()) / name.data()).string();
  }
  return "";
}

// Tells the table's header of its size, and of a row that is longer than all others.
void SettleHeader(const std::string& base, std::int64_t oid) {
  const RawFile table(base + ".gdbtable");
  const RowPlaces places(base + ".gdbtablx");
  const std::int64_t offset = table.IsOpen() && places.IsUsable() ? places.Find(oid) : 0;
  if (offset == 0) return;
  std::array<char, kHeaderSize> header{};
  std::array<char, 4> size{};
  table.Read(0, header);
  table.Read(offset, size);
  const std::span<char> longest = std::span(header).subspan(8, 4);
  PutLittleEndian(std::max(LittleEndian(longest), LittleEndian(size)), longest);
  PutLittleEndian(static_cast<std::uint64_t>(table.Size()), std::span(header).subspan(24, 8));
  table.Write(0, header);
}

}  // namespace

std::unique_ptr<AttributeUpdate> OpenFileGdbUpdate(const OgrSource& source, OGRLayer& layer) {
  const std::string base = FindTable(source);
  if (base.empty()) return nullptr;
  auto update = std::make_unique<FileGdbUpdate>(base, layer);
  return update->IsUsable() ? std::move(update) : nullptr;
}

void StoreFileGdbRow(OgrSource& source, OGRFeature& feature) {
  const std::string base = FindTable(source);
  std::error_code error;
  // Without a list of free places, a row that grows goes to the end.
  if (!base.empty()) fs::remove(base + ".freelist", error);
  {
    const GdalErrorScope errors;
    const LayerHandle handle = source.Write();
    if (handle.Layer().SetFeature(&feature) != OGRERR_NONE) {
      RaiseEngineFault("Row " + std::to_string(feature.GetFID()) + " of '" + source.Path() + "' can't be written" +
                       errors.Quote() + ".");
    }
  }
  if (!base.empty()) SettleHeader(base, feature.GetFID());
}

}  // namespace tessarine::engine
