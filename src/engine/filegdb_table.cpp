// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/filegdb_table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <limits>

namespace tessarine::engine {
namespace {

constexpr std::int64_t kFirstOffset = 16;
constexpr std::int64_t kRowsPerPage = 1024;
constexpr std::int64_t kTrailerSize = 16;

}  // namespace

GdbRowPlaces::GdbRowPlaces(const std::string& path, FileAccess access) : file_(path, access) {
  if (!file_.IsOpen() || file_.Size() < kFirstOffset) return;
  std::array<char, kFirstOffset> header{};
  file_.Read(0, header);
  const std::span<const char> bytes(header);
  page_count_ = static_cast<std::int64_t>(LittleEndian(bytes.subspan(4, 4)));
  row_limit_ = static_cast<std::int64_t>(LittleEndian(bytes.subspan(8, 4)));
  width_ = static_cast<std::size_t>(LittleEndian(bytes.subspan(12, 4)));
  if (LittleEndian(bytes.first(4)) != 3 || width_ < 4 || width_ > 6) return;
  ReadPages();
}

void GdbRowPlaces::ReadPages() {
  const std::int64_t trailer = kFirstOffset + page_count_ * kRowsPerPage * static_cast<std::int64_t>(width_);
  if (file_.Size() < trailer) return;
  if (file_.Size() >= trailer + kTrailerSize) {
    ReadTrailer(trailer);
  } else {
    for (std::int32_t page = 0; page < page_count_; ++page) page_in_file_.push_back(page);
  }
  const auto pages = static_cast<std::int64_t>(page_in_file_.size());
  const auto in_file = std::ranges::count_if(page_in_file_, [](std::int32_t page) { return page >= 0; });
  usable_ = in_file == page_count_ && row_limit_ <= pages * kRowsPerPage;
}

void GdbRowPlaces::ReadTrailer(std::int64_t trailer) {
  std::array<char, kTrailerSize> numbers{};
  file_.Read(trailer, numbers);
  const std::span<const char> bytes(numbers);
  const auto words = static_cast<std::int64_t>(LittleEndian(bytes.first(4)));
  const auto pages = static_cast<std::int64_t>(LittleEndian(bytes.subspan(4, 4)));
  if (words == 0) {
    for (std::int32_t page = 0; page < page_count_; ++page) page_in_file_.push_back(page);
    return;
  }
  const std::int64_t map_size = (pages + 7) / 8;
  if (map_size > 4 * words || file_.Size() < trailer + kTrailerSize + map_size) return;
  std::vector<char> map(static_cast<std::size_t>(map_size));
  file_.Read(trailer + kTrailerSize, map);
  std::int32_t next = 0;
  for (std::int64_t page = 0; page < pages; ++page) {
    const auto byte = static_cast<unsigned char>(map[static_cast<std::size_t>(page / 8)]);
    page_in_file_.push_back((byte >> (page % 8) & 1) != 0 ? next++ : -1);
  }
}

std::int64_t GdbRowPlaces::PlaceOf(std::int64_t oid) const {
  const std::int32_t page = page_in_file_[static_cast<std::size_t>((oid - 1) / kRowsPerPage)];
  if (page < 0) return 0;
  return kFirstOffset + (page * kRowsPerPage + (oid - 1) % kRowsPerPage) * static_cast<std::int64_t>(width_);
}

std::int64_t GdbRowPlaces::Find(std::int64_t oid) const {
  if (oid < 1 || oid > row_limit_) return 0;
  const std::int64_t place = PlaceOf(oid);
  if (place == 0) return 0;
  std::array<char, 8> bytes{};
  const std::span<char> used = std::span(bytes).first(width_);
  file_.Read(place, used);
  return static_cast<std::int64_t>(LittleEndian(used));
}

void GdbRowPlaces::Set(std::int64_t oid, std::int64_t offset) const {
  std::array<char, 8> bytes{};
  const std::span<char> used = std::span(bytes).first(width_);
  PutLittleEndian(static_cast<std::uint64_t>(offset), used);
  file_.Write(PlaceOf(oid), used);
}

void GdbRowPlaces::ForEach(const std::function<void(std::int64_t, std::int64_t)>& look) const {
  std::vector<char> page(static_cast<std::size_t>(kRowsPerPage) * width_);
  for (std::size_t index = 0; index < page_in_file_.size(); ++index) {
    if (page_in_file_[index] < 0) continue;
    file_.Read(kFirstOffset + page_in_file_[index] * static_cast<std::int64_t>(page.size()), page);
    for (std::int64_t row = 0; row < kRowsPerPage; ++row) {
      const std::int64_t oid = static_cast<std::int64_t>(index) * kRowsPerPage + row + 1;
      if (oid > row_limit_) return;
      const auto bytes = std::span<const char>(page).subspan(static_cast<std::size_t>(row) * width_, width_);
      if (const auto offset = static_cast<std::int64_t>(LittleEndian(bytes)); offset != 0) look(oid, offset);
    }
  }
}

GdbTable::GdbTable(const std::string& base, FileAccess access)
    : file_(base + ".gdbtable", access), places_(base + ".gdbtablx", access) {
  if (!file_.IsOpen() || !places_.IsUsable()) return;
  description_ = ReadGdbDescription(file_);
  usable_ = !description_.columns.empty();
}

int GdbTable::FindColumn(std::string_view name) const {
  const auto found = std::ranges::find(description_.columns, name, &GdbColumn::name);
  return found == description_.columns.end() ? -1 : static_cast<int>(found - description_.columns.begin());
}

std::int64_t GdbTable::RowSize(std::int64_t offset) const {
  if (offset < static_cast<std::int64_t>(kGdbHeaderSize) || offset + 4 > file_.Size()) return -1;
  std::array<char, 4> size{};
  file_.Read(offset, size);
  const auto length = static_cast<std::int32_t>(LittleEndian(size));
  return length >= 0 && offset + 4 + length <= file_.Size() ? length : -1;
}

std::optional<std::string> GdbTable::Row(std::int64_t offset) const {
  const std::int64_t size = RowSize(offset);
  if (size < 0) return std::nullopt;
  std::string row(static_cast<std::size_t>(size), '\0');
  file_.Read(offset + 4, row);
  return row;
}

std::string_view GdbRowScan::Bytes(std::int64_t offset, std::int64_t count) {
  // Rows that don't follow each other would have the rest of a window read for nothing.
  constexpr std::int64_t kAhead = std::int64_t{1} << 18, kAlone = std::int64_t{1} << 12;
  const auto end = first_ + static_cast<std::int64_t>(window_.size());
  if (offset < first_ || offset + count > end) {
    const bool follows = offset >= first_ && offset <= end + kAlone;
    const std::int64_t size = std::min(std::max(count, follows ? kAhead : kAlone), file_size_ - offset);
    window_.resize(static_cast<std::size_t>(size));
    file_.Read(offset, window_);
    first_ = offset;
  }
  return {window_.data() + (offset - first_), static_cast<std::size_t>(count)};
}

std::int64_t GdbRowScan::RowSize(std::int64_t offset) {
  if (offset < static_cast<std::int64_t>(kGdbHeaderSize) || offset + 4 > file_size_) return -1;
  const auto length = static_cast<std::int32_t>(LittleEndian(Bytes(offset, 4)));
  return length >= 0 && offset + 4 + length <= file_size_ ? length : -1;
}

std::optional<std::string_view> GdbRowScan::Row(std::int64_t offset) {
  const std::int64_t size = RowSize(offset);
  if (size < 0) return std::nullopt;
  return Bytes(offset, 4 + size).substr(4);
}

void SettleGdbHeader(const std::string& base) {
  const GdbTable table(base, FileAccess::Change);
  if (!table.IsUsable()) return;
  std::array<char, kGdbHeaderSize> header{};
  table.File().Read(0, header);
  const std::array<char, kGdbHeaderSize> before = header;
  const std::span<char> longest = std::span(header).subspan(kGdbLongestRow.at, kGdbLongestRow.size);
  auto needed = static_cast<std::int64_t>(LittleEndian(longest));
  GdbRowScan rows(table);
  table.Places().ForEach([&](std::int64_t, std::int64_t offset) { needed = std::max(needed, rows.RowSize(offset)); });
  PutLittleEndian(static_cast<std::uint64_t>(needed), longest);
  PutLittleEndian(static_cast<std::uint64_t>(table.File().Size()), header, kGdbFileSize);
  if (header != before) table.File().Write(0, header);
}

std::string GdbTableBase(const std::string& folder, std::int64_t number) {
  std::array<char, 16> name{};
  std::snprintf(name.data(), name.size(), "a%08x", static_cast<unsigned>(number));
  return (std::filesystem::path(folder) / name.data()).string();
}

std::vector<std::pair<std::int64_t, std::string>> GdbTableNames(const std::string& folder) {
  std::vector<std::pair<std::int64_t, std::string>> names;
  const GdbTable catalogue(GdbTableBase(folder, 1));
  const int column = catalogue.IsUsable() ? catalogue.FindColumn("Name") : -1;
  if (column < 0) return names;
  catalogue.Places().ForEach([&](std::int64_t oid, std::int64_t offset) {
    const std::optional<std::string> row = catalogue.Row(offset);
    const auto values = row ? SplitGdbRow(catalogue.Description(), *row) : std::nullopt;
    if (!values || !(*values)[static_cast<std::size_t>(column)]) return;
    names.emplace_back(oid, GdbText(catalogue.Description(), *(*values)[static_cast<std::size_t>(column)]));
  });
  return names;
}

std::string FindGdbTable(const std::string& folder, const std::string& name) {
  for (const auto& [number, table] : GdbTableNames(folder)) {
    if (table == name) return GdbTableBase(folder, number);
  }
  return "";
}

}  // namespace tessarine::engine
