// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/filegdb_indexes.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>

#include "engine/engine_fault.h"
#include "engine/filegdb_layout.h"
#include "outputs/way_out.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

constexpr std::uint64_t kMostIndexes = 100000;
constexpr std::size_t kBetweenNames = 12;
constexpr std::size_t kBehindNames = 2;

std::string FileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

class Walk {
 public:
  explicit Walk(std::span<const char> bytes) : bytes_(bytes) {}
  std::span<const char> Take(std::uint64_t size) {
    if (size > bytes_.size() - at_) Raise(kInvalidCall, "The list of indexes ends too early.");
    const std::span<const char> taken = bytes_.subspan(at_, static_cast<std::size_t>(size));
    at_ += taken.size();
    return taken;
  }
  std::uint64_t Number() { return LittleEndian(Take(4)); }
  std::string Name() { return TextOfUtf16(Take(2 * Number())); }
  [[nodiscard]] std::size_t At() const { return at_; }

 private:
  std::span<const char> bytes_;
  std::size_t at_ = 0;
};

}  // namespace

std::string GdbIndex::Column() const {
  constexpr std::string_view kLower = "LOWER(";
  if (!EqualsIgnoringCase(expression.substr(0, kLower.size()), kLower) || !expression.ends_with(')')) return expression;
  return expression.substr(kLower.size(), expression.size() - kLower.size() - 1);
}

std::vector<GdbIndex> ReadGdbIndexes(const std::string& base) {
  const std::string bytes = FileBytes(base + ".gdbindexes");
  std::vector<GdbIndex> indexes;
  if (bytes.empty()) return indexes;
  try {
    Walk walk(bytes);
    const std::uint64_t count = walk.Number();
    if (count > kMostIndexes) return {};  // the list of an older version
    for (std::uint64_t index = 0; index < count; ++index) {
      const std::size_t from = walk.At();
      GdbIndex entry;
      entry.name = walk.Name();
      (void)walk.Take(kBetweenNames);
      entry.expression = walk.Name();
      (void)walk.Take(kBehindNames);
      entry.bytes = bytes.substr(from, walk.At() - from);
      indexes.push_back(std::move(entry));
    }
  } catch (const Fault&) {
    return {};
  }
  return indexes;
}

void WriteGdbIndexes(const std::string& base, const std::vector<GdbIndex>& indexes) {
  std::array<char, 4> count{};
  PutLittleEndian(indexes.size(), count);
  const std::string path = base + ".gdbindexes";
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(count.data(), count.size());
  for (const GdbIndex& index : indexes)
    file.write(index.bytes.data(), static_cast<std::streamsize>(index.bytes.size()));
  file.close();
  if (!file) RaiseEngineFault("'" + path + "' can't be written" + WayOut(path, ""));
}

std::string GdbIndexFile(const std::string& base, const GdbIndex& index) { return base + "." + index.name + ".atx"; }

std::string GdbSpatialIndexFile(const std::string& base) { return base + ".spx"; }

}  // namespace tessarine::engine
