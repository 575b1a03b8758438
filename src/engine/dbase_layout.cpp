// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/dbase_layout.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <mutex>
#include <span>

namespace tessarine::engine {

namespace fs = std::filesystem;

std::string FindDbaseTable(const OgrSource& source) {
  std::error_code error;
  fs::path base = source.DataPath();
  if (fs::is_directory(base, error)) base /= source.LayerName() + ".shp";
  for (const char* ending : {".dbf", ".DBF", ".Dbf"}) {
    const fs::path table = fs::path(base).replace_extension(ending);
    if (fs::is_regular_file(table, error)) return table.string();
  }
  return "";
}

DbaseLayout ReadDbaseLayout(const RawFile& file) {
  std::array<char, kDbaseHeaderSize> header{};
  file.Read(0, header);
  const std::span<const char> bytes(header);
  DbaseLayout layout;
  layout.record_count = static_cast<std::int64_t>(LittleEndian(bytes, kDbaseRecordCount));
  layout.first_record = static_cast<std::int64_t>(LittleEndian(bytes, kDbaseFirstRecord));
  layout.record_size = static_cast<std::int64_t>(LittleEndian(bytes, kDbaseRecordSize));
  if (layout.first_record <= static_cast<std::int64_t>(kDbaseHeaderSize)) return layout;
  std::vector<char> described(static_cast<std::size_t>(layout.first_record) - kDbaseHeaderSize);
  file.Read(kDbaseHeaderSize, described);
  std::size_t offset = 1;
  for (std::size_t at = 0; at + kDbaseColumnSize <= described.size() && described[at] != '\r'; at += kDbaseColumnSize) {
    const char* name = &described[at];
    DbaseColumn column{{name, strnlen(name, kDbaseNameSize)},
                       described[at + kDbaseTypeAt],
                       offset,
                       static_cast<unsigned char>(described[at + kDbaseWidthAt]),
                       0};
    if (column.type == 'N' || column.type == 'F') {
      column.decimals = static_cast<unsigned char>(described[at + kDbaseDecimalsAt]);
    } else {
      // Texts longer than 255 bytes have the rest of their width in the next byte.
      column.width += std::size_t{256} * static_cast<unsigned char>(described[at + kDbaseDecimalsAt]);
    }
    offset += column.width;
    layout.columns.push_back(std::move(column));
  }
  if (static_cast<std::int64_t>(offset) != layout.record_size) layout.columns.clear();
  return layout;
}

namespace {

std::int64_t CountMarks(std::ifstream& file) {
  constexpr std::int64_t kBlock = 1 << 18;
  std::array<char, kDbaseHeaderSize> header{};
  if (!file.read(header.data(), header.size())) return 0;
  const std::span<const char> bytes(header);
  const auto count = static_cast<std::int64_t>(LittleEndian(bytes, kDbaseRecordCount));
  const auto size = static_cast<std::int64_t>(LittleEndian(bytes, kDbaseRecordSize));
  if (size == 0) return 0;
  file.seekg(static_cast<std::int64_t>(LittleEndian(bytes, kDbaseFirstRecord)));
  std::vector<char> block(static_cast<std::size_t>(std::max<std::int64_t>(1, kBlock / size) * size));
  std::int64_t deleted = 0, seen = 0;
  while (seen < count) {
    file.read(block.data(), static_cast<std::streamsize>(block.size()));
    const std::int64_t read = file.gcount();
    for (std::int64_t at = 0; at < read && seen < count; at += size, ++seen) {
      if (block[static_cast<std::size_t>(at)] == '*') ++deleted;
    }
    if (!file) break;
  }
  return deleted;
}

struct CountedTable {
  fs::file_time_type changed;
  std::uintmax_t size = 0;
  std::int64_t deleted = 0;
};

}  // namespace

std::int64_t CountDeletedRecords(const std::string& table) {
  static std::mutex lock;
  static std::map<std::string, CountedTable> known;
  std::error_code error;
  const fs::file_time_type changed = fs::last_write_time(table, error);
  const std::uintmax_t size = fs::file_size(table, error);
  if (error) return 0;
  const std::lock_guard guard(lock);
  const auto found = known.find(table);
  if (found != known.end() && found->second.changed == changed && found->second.size == size) {
    return found->second.deleted;
  }
  std::ifstream file(table, std::ios::binary);
  const std::int64_t deleted = CountMarks(file);
  // A table written just now may change again within the grain of its time.
  if (fs::file_time_type::clock::now() - changed > std::chrono::seconds(2)) known[table] = {changed, size, deleted};
  return deleted;
}

std::array<char, 3> DbaseDate() {
  const std::time_t now = std::time(nullptr);
  std::tm day{};
  localtime_r(&now, &day);
  return {static_cast<char>(day.tm_year), static_cast<char>(day.tm_mon + 1), static_cast<char>(day.tm_mday)};
}

}  // namespace tessarine::engine
