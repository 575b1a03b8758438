// SPDX-License-Identifier: GPL-2.0-or-later
// What is broken in one table of a file geodatabase.
#include <algorithm>
#include <array>
#include <filesystem>
#include <set>

#include "engine/filegdb_check.h"
#include "engine/filegdb_indexes.h"
#include "engine/filegdb_table.h"
#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostFindings = 20;  // of one kind; a torn table would tell of each row
constexpr std::int64_t kFreePage = 4096;
constexpr std::int64_t kFreeTrailer = 344;
constexpr std::int64_t kFreePageHeader = 8;

/// A stretch of the file that belongs to one thing: a row by its number, or one of these.
struct Stretch {
  enum Kind : std::int64_t { kHeader = 0, kDescription = -1, kFreePlace = -2 };
  std::int64_t from, size, what;

  [[nodiscard]] std::int64_t To() const { return from + size; }
  [[nodiscard]] std::string Name() const {
    if (what > 0) return "row " + std::to_string(what);
    return what == kHeader ? "the header" : what == kDescription ? "the description of the columns" : "a free place";
  }
};

/// Which bytes of a file belong to something. Rows mostly follow each other, and what follows is kept as one: a table
/// of millions of rows costs no more than one of few.
class TakenBytes {
 public:
  void Add(const Stretch& stretch) {
    if (!blocks_.empty() && blocks_.back().to == stretch.from) {
      blocks_.back().to = stretch.To();
    } else {
      blocks_.push_back({stretch.from, stretch.To()});
    }
  }

  /// Whether a byte was added twice. Sorts what was added.
  [[nodiscard]] bool Overlap() {
    std::ranges::sort(blocks_, {}, &Block::from);
    const auto overlap = [](const Block& before, const Block& after) { return before.to > after.from; };
    return std::ranges::adjacent_find(blocks_, overlap) != blocks_.end();
  }

 private:
  struct Block {
    std::int64_t from, to;
  };
  std::vector<Block> blocks_;
};

class TableCheck {
 public:
  TableCheck(std::string base, std::string name)
      : base_(std::move(base)), name_(std::move(name)), table_(base_), counts_(table_.Description().columns.size()) {}

  std::vector<std::string> Run() {
    if (!table_.IsUsable()) return {"the table '" + name_ + "' (" + FileName() + ") can't be read"};
    for (const Stretch& head : Heads()) taken_.Add(head);
    GdbRowScan rows(table_);
    table_.Places().ForEach([&](std::int64_t oid, std::int64_t offset) { CheckRow(oid, offset, rows.Row(offset)); });
    CheckHeader();
    CheckFreePlaces();
    for (const Stretch& place : free_places_) taken_.Add(place);
    if (taken_.Overlap()) TellOverlaps();
    CheckIndexes();
    return std::move(findings_);
  }

 private:
  [[nodiscard]] std::string FileName() const { return fs::path(base_).filename().string(); }
  void Tell(const std::string& text) {
    if (findings_.size() < kMostFindings) findings_.push_back("'" + name_ + "' (" + FileName() + "): " + text);
  }

  [[nodiscard]] std::array<Stretch, 2> Heads() const {
    const GdbDescription& description = table_.Description();
    return {{{0, kGdbHeaderSize, Stretch::kHeader}, {description.place, description.size, Stretch::kDescription}}};
  }

  void CheckRow(std::int64_t oid, std::int64_t offset, std::optional<std::string_view> row) {
    ++rows_;
    if (!row) {
      Tell("row " + std::to_string(oid) + " isn't where the offsets say");
      return;
    }
    longest_ = std::max(longest_, row->size());
    taken_.Add({offset, 4 + static_cast<std::int64_t>(row->size()), oid});
    if (!SplitGdbRow(table_.Description(), *row, values_)) {
      Tell("row " + std::to_string(oid) + " isn't as long as its values");
      return;
    }
    for (std::size_t index = 0; index < counts_.size(); ++index) {
      if (values_[index]) ++counts_[index];
    }
  }

  void CheckHeader() {
    std::array<char, kGdbHeaderSize> header{};
    table_.File().Read(0, header);
    const std::span<const char> bytes(header);
    const auto told = [&](std::size_t at, std::size_t size) { return LittleEndian(bytes.subspan(at, size)); };
    if (told(4, 4) != rows_) {
      Tell("the header tells of " + std::to_string(told(4, 4)) + " rows, there are " + std::to_string(rows_));
    }
    if (told(8, 4) < longest_) {
      Tell("the header tells of rows up to " + std::to_string(told(8, 4)) + " bytes, one has " +
           std::to_string(longest_));
    }
    if (static_cast<std::int64_t>(told(24, 8)) != table_.File().Size()) {
      Tell("the header tells of " + std::to_string(told(24, 8)) + " bytes, the file has " +
           std::to_string(table_.File().Size()));
    }
  }

  void CheckFreePlaces() {
    const RawFile file(base_ + ".freelist", FileAccess::Read);
    if (!file.IsOpen()) return;
    if (file.Size() % kFreePage != kFreeTrailer) {
      Tell("the list of free places has a length that it can't have");
      return;
    }
    std::array<char, kFreeTrailer> trailer{};
    file.Read(file.Size() - kFreeTrailer, trailer);
    // A class of sizes tells its last page; each page tells the one before.
    for (std::size_t at = 8; at + 8 <= trailer.size(); at += 8) {
      WalkFreePages(file, LittleEndian(std::span<const char>(trailer).subspan(at, 4)));
    }
  }

  void WalkFreePages(const RawFile& file, std::uint64_t page) {
    constexpr std::uint64_t kNone = 0xFFFFFFFFU;
    std::set<std::uint64_t> seen;
    while (page != kNone) {
      if (static_cast<std::int64_t>(page) >= file.Size() / kFreePage || !seen.insert(page).second) {
        Tell("the list of free places has a page " + std::to_string(page) + " that it can't have");
        return;
      }
      page = CheckFreePage(file, page);
    }
  }

  std::uint64_t CheckFreePage(const RawFile& file, std::uint64_t page) {
    std::vector<char> bytes(static_cast<std::size_t>(kFreePage));
    file.Read(static_cast<std::int64_t>(page) * kFreePage, bytes);
    const std::span<const char> all(bytes);
    const std::size_t width = table_.Places().OffsetWidth();
    const std::size_t entry = 4 + width;
    const auto count = std::min<std::uint64_t>(LittleEndian(all.first(4)), (kFreePage - kFreePageHeader) / entry);
    for (std::uint64_t index = 0; index < count; ++index) {
      const std::size_t at = kFreePageHeader + static_cast<std::size_t>(index) * entry;
      const auto size = static_cast<std::int64_t>(LittleEndian(all.subspan(at, 4)));
      const auto offset = static_cast<std::int64_t>(LittleEndian(all.subspan(at + 4, width)));
      if (offset + size > table_.File().Size()) Tell("a free place ends behind the file");
      free_places_.push_back({offset, size, Stretch::kFreePlace});
    }
    return LittleEndian(all.subspan(4, 4));
  }

  // Looks at the rows once more, for their numbers.
  void TellOverlaps() {
    std::vector<Stretch> stretches = free_places_;
    for (const Stretch& head : Heads()) stretches.push_back(head);
    GdbRowScan rows(table_);
    table_.Places().ForEach([&](std::int64_t oid, std::int64_t offset) {
      if (const std::int64_t size = rows.RowSize(offset); size >= 0) stretches.push_back({offset, 4 + size, oid});
    });
    std::ranges::stable_sort(stretches, {}, &Stretch::from);
    for (std::size_t index = 1; index < stretches.size(); ++index) {
      const Stretch &before = stretches[index - 1], &after = stretches[index];
      if (before.To() > after.from) Tell(before.Name() + " and " + after.Name() + " overlap");
    }
  }

  void CheckIndexes() {
    for (const GdbIndex& index : ReadGdbIndexes(base_)) {
      const int found = table_.FindColumn(index.Column());
      if (found < 0) {
        Tell("the index '" + index.name + "' is of a column '" + index.Column() + "' that isn't there");
        continue;
      }
      const auto column = static_cast<std::size_t>(found);
      const GdbColumn::Type type = table_.Description().columns[column].type;
      if (type == GdbColumn::kOid) continue;
      const bool spatial = type == GdbColumn::kShape;
      const std::string file = spatial ? GdbSpatialIndexFile(base_) : GdbIndexFile(base_, index);
      std::error_code error;
      if (!fs::exists(file, error)) {
        // Shapes at one place have no cells, and none are made for them.
        if (!spatial) Tell("the index '" + index.name + "' has no file");
      } else if (!spatial) {
        CheckEntries(file, index, counts_[column]);
      }
    }
  }

  // The last 22 bytes of an index: the size of a value at 0, the depth at 6, the number of entries at 10; with one page
  // the number may stand there alone.
  void CheckEntries(const std::string& path, const GdbIndex& index, std::uint64_t expected) {
    constexpr std::int64_t kTrailer = 22;
    const RawFile file(path, FileAccess::Read);
    if (!file.IsOpen() || file.Size() < kFreePage + kTrailer) {
      Tell("the index '" + index.name + "' is cut off");
      return;
    }
    std::array<char, kTrailer> trailer{};
    file.Read(file.Size() - kTrailer, trailer);
    const std::span<const char> bytes(trailer);
    std::uint64_t count = LittleEndian(bytes.subspan(10, 4));
    if (LittleEndian(bytes.subspan(6, 4)) == 1) {
      std::array<char, 4> in_page{};
      file.Read(4, in_page);
      count = LittleEndian(in_page);
    }
    if (count == expected) return;
    Tell("the index '" + index.name + "' has " + std::to_string(count) + " entries, its column " +
         std::to_string(expected) + " values");
  }

  std::string base_, name_;
  GdbTable table_;
  std::vector<std::uint64_t> counts_;  // values by column
  GdbValues values_;                   // of the row in hand
  TakenBytes taken_;
  std::vector<Stretch> free_places_;
  std::vector<std::string> findings_;
  std::uint64_t rows_ = 0;
  std::size_t longest_ = 0;
};

}  // namespace

std::vector<std::string> CheckGdbTable(const std::string& base, const std::string& name) {
  try {
    return TableCheck(base, name).Run();
  } catch (const Fault& fault) {
    return {"the table '" + name + "' can't be read: " + fault.Description()};
  }
}

}  // namespace tessarine::engine
