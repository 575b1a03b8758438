// SPDX-License-Identifier: GPL-2.0-or-later
#include "spheroids/spheroid_entries.h"

#include <unordered_set>

#include "platform/at_hand.h"
#include "platform/free_name.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "platform/text_formats.h"
#include "spheroids/USGS_Functions.h"
#include "support/attempt.h"

namespace tessarine::USGS_Functions {
namespace {

constexpr const char* kCustomFileName = "spheroids.dat";
constexpr std::size_t kCustomFields = 4;

std::vector<std::string_view> Split(std::string_view text, char delimiter) {
  std::vector<std::string_view> parts;
  std::size_t from = 0;
  for (std::size_t at = text.find(delimiter); at != std::string_view::npos; at = text.find(delimiter, from)) {
    parts.push_back(text.substr(from, at - from));
    from = at + 1;
  }
  parts.push_back(text.substr(from));
  return parts;
}

// Lines without their ends. A carriage return and line feed leave an empty line between them, which no reader of
// lines here minds.
std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  for (const std::string_view part : Split(text, '\n')) {
    for (const std::string_view line : Split(part, '\r')) lines.push_back(line);
  }
  return lines;
}

// Tells names apart that differ in more than case: "Moon", "Moon (2)", "Moon (3)".
class UniqueNames {
 public:
  [[nodiscard]] std::string Unique(std::string_view base) const {
    return FirstFreeTitle(std::string(base), [&](const std::string& name) { return taken_.contains(LowerCase(name)); });
  }
  void Take(const std::string& name) { taken_.insert(LowerCase(name)); }

 private:
  std::unordered_set<std::string> taken_;
};

struct TableLine {
  std::string constant, code, display;
};

TableLine ParseTableLine(const std::string& line) {
  const std::vector<std::string_view> pieces = Split(line, ' ');
  if (pieces.size() < 3) Raise(kInvalidCall, "The line '" + line + "' tells no spheroid.");
  TableLine parsed{std::string(pieces[0]), std::string(pieces[1]), ""};
  // The display name starts right after the blank that follows the code.
  parsed.display = line.substr(line.find(parsed.code) + parsed.code.size() + 1);
  if (parsed.display.ends_with('.')) parsed.display.pop_back();
  return parsed;
}

}  // namespace

std::optional<double> AxisFromText(std::string_view text) {
  if (!IsNumericText(text)) return std::nullopt;
  return MyGeneralOperations::Attempt([&] { return std::optional<double>(ToNumber(text)); });
}

std::string CustomSpheroidFile() {
  std::string folder = SystemAtHand().ProgramFolder();
  if (!folder.ends_with('\\') && !folder.ends_with('/')) folder += '\\';
  return folder + kCustomFileName;
}

std::vector<SpheroidEntry> ReadCustomSpheroids(std::string_view text) {
  std::vector<SpheroidEntry> entries;
  UniqueNames names;
  for (const std::string_view line : Lines(text)) {
    const std::vector<std::string_view> fields = Split(line, ',');
    if (fields.size() != kCustomFields) continue;
    const std::optional<double> major = AxisFromText(fields[1]);
    const std::optional<double> minor = AxisFromText(fields[2]);
    if (!major || !minor) continue;
    entries.push_back({names.Unique(fields[0]), *major, *minor, std::string(fields[3]), "", nullptr});
    names.Take(entries.back().name);
  }
  return entries;
}

std::vector<SpheroidEntry> ReadCustomSpheroidFile(const std::string& path) {
  std::vector<SpheroidEntry> entries = ReadCustomSpheroids(SystemAtHand().ReadTextFile(path));
  if (entries.empty()) {
    Raise(kInvalidCall, "The spheroid file '" + ToNativePath(path) +
                            "' tells no spheroid: write one on each line as name, semi-major axis, semi-minor axis "
                            "and remark, parted by commas, or remove the file.");
  }
  return entries;
}

std::vector<SpheroidEntry> ReadSpheroidTable(std::string_view table) {
  const SpatialReferenceEnvironment factory;
  std::vector<SpheroidEntry> entries;
  UniqueNames names;
  for (const std::string_view piece : Lines(table)) {
    const std::string line = Trim(piece);
    if (line.empty()) continue;
    const TableLine parsed = ParseTableLine(line);
    std::shared_ptr<const Spheroid> spheroid = SpheroidFromCode(factory, parsed.code);
    if (!spheroid) continue;
    entries.push_back({names.Unique(parsed.display), spheroid->SemiMajorAxis(), spheroid->SemiMinorAxis(),
                       parsed.constant, parsed.code, spheroid});
    names.Take(entries.back().name);
  }
  return entries;
}

}  // namespace tessarine::USGS_Functions
