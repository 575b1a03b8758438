#include "engine/shapefile_check.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>

#include "engine/engine_fault.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

// The beside-file with this ending, in either case; empty when there is none.
std::string Sibling(const fs::path& shapefile, const char* lower, const char* upper) {
  for (const char* ending : {lower, upper}) {
    fs::path file = shapefile;
    file.replace_extension(ending);
    if (fs::exists(file)) return file.string();
  }
  return "";
}

// The length that the header of a .shp or .shx gives: 16-bit words at byte 24, big-endian.
void CheckLength(const std::string& path) {
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
}

}  // namespace

void CheckShapefile(const std::string& native_path) {
  const fs::path shapefile = native_path;
  const std::string index = Sibling(shapefile, ".shx", ".SHX");
  if (index.empty()) {
    RaiseEngineFault("The shapefile '" + native_path + "' lacks its .shx file: copy all its parts together.");
  }
  if (Sibling(shapefile, ".dbf", ".DBF").empty()) {
    RaiseEngineFault("The shapefile '" + native_path + "' lacks its .dbf file: copy all its parts together.");
  }
  CheckLength(native_path);
  CheckLength(index);
}

}  // namespace tessarine::engine
