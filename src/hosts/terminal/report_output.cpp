#include "hosts/terminal/report_output.h"

#include <fmt/core.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "engine/versions.h"
#include "hosts/terminal/refusal.h"
#include "platform/paths.h"
#include "platform/rich_text.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

std::string IsoTime(Date date) {
  const DateParts parts = Split(date);
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}", parts.year, parts.month, parts.day, parts.hour,
                     parts.minute, parts.second);
}

const char* OutcomeWord(const RunJournal& journal, bool plan_only, bool fault_reported) {
  if (plan_only) return "planned";
  if (journal.failed || fault_reported) return "failed";
  return journal.stopped ? "stopped" : "done";
}

std::shared_ptr<const GeographicCoordinateSystem> GeographicOf(const SpatialReferenceRef& reference) {
  if (auto projected = Cast<const ProjectedCoordinateSystem>(reference)) return projected->GeographicCoordinateSystem();
  return Cast<const GeographicCoordinateSystem>(reference);
}

json ReferenceToJson(const SpatialReferenceRef& reference) {
  if (!reference) return nullptr;
  json result = {{"name", reference->Name()}, {"wkt", reference->Wkt()}};
  if (const auto geographic = GeographicOf(reference)) {
    const auto& spheroid = geographic->Datum()->Spheroid();
    result["spheroid"] = {{"name", spheroid->Name()},
                          {"semi_major_axis", spheroid->SemiMajorAxis()},
                          {"semi_minor_axis", spheroid->SemiMinorAxis()}};
  }
  return result;
}

std::string JsonReport(const std::string& rtf, const CommonOptions& options, TerminalHost& host) {
  const RunJournal& journal = host.Journal();
  const LibraryVersions versions = EngineLibraryVersions();
  json report = {
      {"command_line", options.command_line},
      {"versions",
       {{"tessarine", TESSARINE_VERSION}, {"gdal", versions.gdal}, {"geos", versions.geos}, {"proj", versions.proj}}},
      {"outcome", OutcomeWord(journal, host.PlanOnly(), host.FaultReported())},
      {"output", journal.output_path.empty() ? json() : json(ToNativePath(journal.output_path))},
      {"spatial_reference", ReferenceToJson(journal.reference)},
      {"records",
       {{"read", journal.read},
        {"written", journal.written},
        {"skipped", journal.skipped_oids.size()},
        {"skipped_oids", journal.skipped_oids}}},
      {"report", ToPlainText(ReadRtf(rtf))},
  };
  if (!host.PlanOnly()) {
    report["start"] = IsoTime(journal.begin);
    report["end"] = IsoTime(journal.end);
    report["elapsed_seconds"] = SecondsBetween(journal.begin, journal.end);
  }
  return report.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}

struct ReportForm {
  const char* ending;
  std::string (*make)(const std::string& rtf, const CommonOptions& options, TerminalHost& host);
};

constexpr std::array kForms = {
    ReportForm{".txt", [](const std::string& rtf, const CommonOptions&,
                          TerminalHost&) { return ToPlainText(ReadRtf(rtf)) + "\n"; }},
    ReportForm{".rtf", [](const std::string& rtf, const CommonOptions&, TerminalHost&) { return rtf; }},
    ReportForm{".html", [](const std::string& rtf, const CommonOptions&,
                           TerminalHost&) { return ToHtml(ReadRtf(rtf), "Tessarine Suite report"); }},
    ReportForm{".json", JsonReport},
};

const ReportForm* FindForm(const std::string& path) {
  for (const ReportForm& form : kForms) {
    if (EndsWithIgnoringCase(path, form.ending)) return &form;
  }
  return nullptr;
}

}  // namespace

void PrintReport(const std::string& rtf, bool on_terminal) {
  const RichText text = ReadRtf(rtf);
  fmt::print("{}\n", on_terminal ? ToTerminalText(text) : ToPlainText(text));
}

void CheckReportFile(const std::string& path) {
  if (path.empty()) return;
  if (FindForm(path) == nullptr) {
    throw Refusal("The report file '" + path + "' must end in .txt, .rtf, .html or .json.");
  }
  const fs::path folder = fs::absolute(path).parent_path();
  if (!fs::is_directory(folder)) throw Refusal("The report's folder '" + folder.string() + "' doesn't exist.");
}

void WriteReport(const std::string& rtf, const CommonOptions& options, TerminalHost& host) {
  std::ofstream file(options.report_file, std::ios::binary | std::ios::trunc);
  file << FindForm(options.report_file)->make(rtf, options, host);
  file.close();
  if (!file) Raise(kPathNotFound, "The report can't be written to '" + options.report_file + "'.");
}

}  // namespace tessarine
