// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/shapefile_check.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>

#include "engine/dbase_layout.h"
#include "engine/engine_fault.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kShapeHeaderSize = 100;
constexpr std::uint64_t kIndexEntrySize = 8;

// The beside-file with this ending, in either case; empty when there is none.
std::string Sibling(const fs::path& shapefile, const char* lower, const char* upper) {
  for (const char* ending : {lower, upper}) {
    fs::path file = shapefile;
    file.replace_extension(ending);
    if (fs::exists(file)) return file.string();
  }
  return "";
}

// The bytes that the header of a .shp or .shx tells of, all of them there: 16-bit words at byte 24, big-endian.
std::uint64_t CheckedLength(const std::string& path) {
  std::array<unsigned char, 100> header{};
  std::ifstream file(path, std::ios::binary);
  file.read(reinterpret_cast<char*>(header.data()), static_cast<std::streamsize>(header.size()));
  if (file.gcount() != static_cast<std::streamsize>(header.size())) {
    RaiseEngineFault("'" + path + "' is no shapefile part: it is shorter than its header. Get a whole copy of it.");
  }
  std::uint64_t words = 0;
  for (std::size_t byte = 24; byte < 28; ++byte) words = words << 8U | header[byte];
  const std::uint64_t length = fs::file_size(path);
  if (length < words * 2) {
    RaiseEngineFault("'" + path + "' was cut off: its header tells of " + std::to_string(words * 2) +
                     " bytes, but it has " + std::to_string(length) + ". Get a whole copy of it.");
  }
  return words * 2;
}

// The rows that the header of a .dbf tells of, all of them there.
std::uint64_t CheckedRows(const std::string& path) {
  std::array<char, kDbaseHeaderSize> header{};
  std::ifstream file(path, std::ios::binary);
  if (!file.read(header.data(), header.size())) {
    RaiseEngineFault("'" + path + "' is no dBASE table: it is shorter than its header. Get a whole copy of it.");
  }
  const std::span<const char> bytes(header);
  const std::uint64_t rows = LittleEndian(bytes, kDbaseRecordCount);
  const std::uint64_t first = LittleEndian(bytes, kDbaseFirstRecord), size = LittleEndian(bytes, kDbaseRecordSize);
  const std::uint64_t length = fs::file_size(path);
  if (length >= first + rows * size) return rows;
  const std::uint64_t there = size == 0 || length < first ? 0 : (length - first) / size;
  RaiseEngineFault("'" + path + "' was cut off: its header tells of " + std::to_string(rows) + " rows, but it has " +
                   std::to_string(there) + ". Get a whole copy of it.");
}

// Shapes and rows belong together by their order alone; what is over on either side would be lost without a word.
void CheckRows(const std::string& native_path, const std::string& table, std::uint64_t shapes) {
  const std::uint64_t rows = CheckedRows(table);
  if (rows == shapes) return;
  RaiseEngineFault("The parts of the shapefile '" + native_path + "' don't belong together: it has " +
                   std::to_string(shapes) + " shapes, but '" + table + "' has " + std::to_string(rows) +
                   " rows. Copy all its parts together, or mend the table.");
}

}  // namespace

void CheckShapefile(const std::string& native_path) {
  const fs::path shapefile = native_path;
  const std::string index = Sibling(shapefile, ".shx", ".SHX");
  if (index.empty()) {
    RaiseEngineFault("The shapefile '" + native_path + "' lacks its .shx file: copy all its parts together.");
  }
  const std::string table = Sibling(shapefile, ".dbf", ".DBF");
  if (table.empty()) {
    RaiseEngineFault("The shapefile '" + native_path + "' lacks its .dbf file: copy all its parts together.");
  }
  static_cast<void>(CheckedLength(native_path));
  CheckRows(native_path, table, (CheckedLength(index) - kShapeHeaderSize) / kIndexEntrySize);
}

}  // namespace tessarine::engine
