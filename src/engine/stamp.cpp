// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/stamp.h"

#include <ctime>
#include <vector>

#include "engine/engine_fault.h"
#include "engine/ogr_source.h"
#include "platform/run_context.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

std::string TimeNow() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[] = "2000-01-01T00:00:00Z";
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

// Formats of XML have no place for the other control characters.
std::string WithoutControls(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 0x20U && c != '\n' && c != '\t') c = '?';
  }
  return text;
}

std::string SpheroidText(const RunSpheroid& spheroid) {
  return spheroid.name + ", semi-major axis " + ExactNumberText(spheroid.semi_major) + " m, semi-minor axis " +
         ExactNumberText(spheroid.semi_minor) + " m";
}

std::vector<StampLine> LinesOfRun() {
  const RunContext* run = RunningContext();
  const OutputWishes wishes = run != nullptr ? run->services.Wishes() : OutputWishes();
  return wishes.stamps ? StampLines(run->journal, wishes.command_line, wishes.version) : std::vector<StampLine>();
}

std::string AsText(const std::vector<StampLine>& lines) {
  std::string text;
  for (const StampLine& line : lines) text += (text.empty() ? "" : "\n") + line.key + "=" + line.value;
  return text;
}

std::string EscapedXml(const std::string& text) {
  char* escaped = CPLEscapeString(text.c_str(), static_cast<int>(text.size()), CPLES_XML);
  std::string result(escaped);
  CPLFree(escaped);
  return result;
}

std::string AsXml(const std::vector<StampLine>& lines) {
  std::string text = "<metadata>";
  for (const StampLine& line : lines) {
    text += "<" + line.key + ">" + EscapedXml(line.value) + "</" + line.key + ">";
  }
  return text + "</metadata>";
}

}  // namespace

std::vector<StampLine> StampLines(const RunJournal& journal, const std::string& command_line,
                                  const std::string& version) {
  std::vector<StampLine> lines;
  if (!command_line.empty()) lines.push_back({"TESSARINE_COMMAND", WithoutControls(command_line)});
  lines.push_back({"TESSARINE_VERSION", version});
  if (const auto spheroid = SpheroidOf(journal)) {
    lines.push_back({"TESSARINE_SPHEROID", WithoutControls(SpheroidText(*spheroid))});
  }
  lines.push_back({"TESSARINE_TIME", TimeNow()});
  return lines;
}

void AddStamp(const Format& format, CPLStringList& options) {
  const std::vector<StampLine> lines = LinesOfRun();
  if (lines.empty()) return;
  if (format.stamp == StampPlace::Description) options.SetNameValue("DESCRIPTION", AsText(lines).c_str());
  if (format.stamp == StampPlace::Documentation) options.SetNameValue("DOCUMENTATION", AsXml(lines).c_str());
}

void StampGeoPackage(const std::filesystem::path& file, const std::string& layer) {
  const std::vector<StampLine> lines = LinesOfRun();
  if (lines.empty()) return;
  const GdalErrorScope errors;
  DatasetHandle dataset = OpenDatasetAt(file.string(), FileAccess::Change);
  OGRLayer* stamped = dataset->GetLayerByName(layer.c_str());
  bool kept = stamped != nullptr;
  for (const StampLine& line : lines) {
    kept = kept && stamped->SetMetadataItem(line.key.c_str(), line.value.c_str()) == CE_None;
  }
  dataset.reset();
  if (!kept || errors.Failed())
    RaiseEngineFault("The layer '" + layer + "' doesn't take its stamp" + errors.Quote() + ".");
}

}  // namespace tessarine::engine
