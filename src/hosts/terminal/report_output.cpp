// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/report_output.h"

#include <fmt/core.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "engine/versions.h"
#include "hosts/terminal/passwords.h"
#include "hosts/terminal/pipes.h"
#include "hosts/terminal/refusal.h"
#include "outputs/output_place.h"
#include "platform/paths.h"
#include "platform/report_heads.h"
#include "platform/rich_text.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

// A local time, with its distance from UTC.
std::string IsoTime(Date date) {
  const DateParts parts = Split(date);
  std::tm local{};
  local.tm_year = parts.year - 1900;
  local.tm_mon = parts.month - 1;
  local.tm_mday = parts.day;
  local.tm_hour = parts.hour;
  local.tm_min = parts.minute;
  local.tm_sec = parts.second;
  local.tm_isdst = -1;
  (void)std::mktime(&local);
  const long minutes = local.tm_gmtoff / 60;
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}{}{:02}:{:02}", parts.year, parts.month, parts.day, parts.hour,
                     parts.minute, parts.second, minutes < 0 ? '-' : '+', std::abs(minutes) / 60,
                     std::abs(minutes) % 60);
}

// A fault that was reported and is in no record's account kept something from being done.
bool FailedOutsideRecords(const RunJournal& journal, bool fault_reported) {
  return fault_reported && journal.FaultCount() == 0;
}

const char* OutcomeWord(const RunJournal& journal, bool plan_only, bool fault_reported) {
  if (plan_only) return "planned";
  if (FailedOutsideRecords(journal, fault_reported)) return "failed";
  switch (journal.Outcome()) {
    case RunOutcome::Failed:
      return "failed";
    case RunOutcome::Stopped:
      return "stopped";
    case RunOutcome::Cancelled:
      return "cancelled";
    case RunOutcome::Incomplete:
      return "incomplete";
    case RunOutcome::Done:
      break;
  }
  return "done";
}

// The spheroid that the run worked on: its own, or else that of the data.
json SpheroidToJson(const RunJournal& journal) {
  const std::optional<RunSpheroid> spheroid = SpheroidOf(journal);
  if (!spheroid) return nullptr;
  return {
      {"name", spheroid->name}, {"semi_major_axis", spheroid->semi_major}, {"semi_minor_axis", spheroid->semi_minor}};
}

// The spheroid beside the reference is the one that was used; what the reference itself says stands in its text.
json ReferenceToJson(const RunJournal& journal) {
  const SpatialReferenceRef& reference = journal.reference;
  if (!reference) return nullptr;
  return {{"name", reference->Name()}, {"wkt", reference->Wkt()}, {"spheroid", SpheroidToJson(journal)}};
}

// Where the output isn't in the reference that the run worked in.
json BroughtToJson(const RunJournal& journal) {
  if (!journal.brought) return nullptr;
  const SpatialReference& reference = *journal.brought->reference;
  return {{"name", reference.Name()}, {"wkt", reference.Wkt()}, {"way", journal.brought->way}};
}

json ChangesToJson(const RunJournal& journal) {
  json list = json::array();
  for (const ChangedValues& values : journal.changed) {
    list.push_back({{"field", values.field},
                    {"kind", ValueChangeKey(values.kind)},
                    {"count", values.count},
                    {"first_oid", values.first_oid}});
  }
  return list;
}

json NamesToJson(const RunJournal& journal) {
  json list = json::array();
  for (const ChangedName& name : journal.changed_names) {
    list.push_back({{"asked", name.asked}, {"written", name.written}});
  }
  return list;
}

json WarningsToJson(const RunJournal& journal) {
  json list = json::array();
  for (const RunWarning& warning : journal.warnings) {
    list.push_back({{"text", warning.text}, {"count", warning.count}, {"first_oids", warning.first_oids}});
  }
  return list;
}

json FaultsToJson(const RunJournal& journal) {
  json list = json::array();
  for (const RunFault& fault : journal.faults) {
    list.push_back({{"number", fault.number},
                    {"description", fault.description},
                    {"place", fault.place},
                    {"count", fault.count},
                    {"first_oids", fault.first_oids}});
  }
  return list;
}

json RecordsToJson(const RunJournal& journal) {
  std::vector<std::int64_t> skipped = journal.skipped_oids;
  skipped.insert(skipped.end(), journal.left_out_oids.begin(), journal.left_out_oids.end());
  return {{"read", journal.read},
          {"written", journal.written},
          {"skipped", skipped.size()},
          {"skipped_oids", skipped},
          {"unmeasured", journal.unmeasured_oids.size()},
          {"unmeasured_oids", journal.unmeasured_oids}};
}

// What a report is made from besides its text.
struct EndedRun {
  const RunJournal& journal;
  std::string outcome;
  enum class Kind : std::uint8_t { Run, Plan, Nothing } kind = Kind::Run;
};

std::string JsonReport(const std::string& rtf, const CommonOptions& options, const EndedRun& run) {
  const RunJournal& journal = run.journal;
  const LibraryVersions versions = EngineLibraryVersions();
  json report = {
      {"command_line", options.command_line},
      {"versions",
       {{"tessarine", TESSARINE_VERSION}, {"gdal", versions.gdal}, {"geos", versions.geos}, {"proj", versions.proj}}},
      {"outcome", run.outcome},
      {"output", journal.output_path.empty() ? json() : json(WithoutPipedFile(ToNativePath(journal.output_path)))},
      {"spatial_reference", ReferenceToJson(journal)},
      {"brought_to", BroughtToJson(journal)},
      {"records", RecordsToJson(journal)},
      {"failure", journal.failure.empty() ? json() : json(journal.failure)},
      {"changed", ChangesToJson(journal)},
      {"changed_names", NamesToJson(journal)},
      {"warnings", WarningsToJson(journal)},
      {"other_warnings", journal.other_warnings},
      {"faults", FaultsToJson(journal)},
      {"other_faults", journal.other_faults},
      {"report", ToPlainText(ReadRtf(rtf))},
  };
  if (run.kind == EndedRun::Kind::Plan) {
    report["plan"] = {{"fields", journal.planned_fields}, {"questions", journal.planned_questions}};
  } else if (run.kind == EndedRun::Kind::Run) {
    report["start"] = IsoTime(journal.begin);
    report["end"] = IsoTime(journal.end);
    report["elapsed_seconds"] = static_cast<std::int64_t>(journal.elapsed_seconds);
  }
  return report.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}

struct ReportForm {
  const char* ending;
  std::string (*make)(const std::string& rtf, const CommonOptions& options, const EndedRun& run);
};

constexpr std::array kForms = {
    ReportForm{".txt", [](const std::string& rtf, const CommonOptions&,
                          const EndedRun&) { return ToPlainText(ReadRtf(rtf)) + "\n"; }},
    ReportForm{".rtf", [](const std::string& rtf, const CommonOptions&, const EndedRun&) { return rtf; }},
    ReportForm{".html", [](const std::string& rtf, const CommonOptions&,
                           const EndedRun&) { return ToHtml(ReadRtf(rtf), "Tessarine Suite report"); }},
    ReportForm{".json", JsonReport},
};

const ReportForm* FindForm(const std::string& path) {
  for (const ReportForm& form : kForms) {
    if (EndsWithIgnoringCase(path, form.ending)) return &form;
  }
  return nullptr;
}

void Write(const std::string& rtf, const CommonOptions& options, const EndedRun& run) {
  std::ofstream file(options.report_file, std::ios::binary | std::ios::trunc);
  file << WithoutPasswords(FindForm(options.report_file)->make(rtf, options, run));
  file.close();
  if (!file) Raise(kPathNotFound, "The report can't be written to '" + options.report_file + "'.");
}

}  // namespace

void PrintReport(const std::string& rtf, std::FILE* stream) {
  const RichText text = ReadRtf(rtf);
  const bool on_terminal = isatty(fileno(stream)) != 0;
  fmt::print(stream, "{}\n", WithoutPasswords(on_terminal ? ToTerminalText(text) : ToPlainText(text)));
}

std::string ReportEndings() {
  std::string endings;
  for (const ReportForm& form : kForms) {
    const bool is_first = endings.empty(), is_last = &form == &kForms.back();
    endings += (is_first ? "" : is_last ? " or " : ", ") + std::string(form.ending);
  }
  return endings;
}

void CheckReportFile(const std::string& path) {
  if (path.empty()) return;
  if (FindForm(path) == nullptr) {
    throw Refusal("The report file '" + path + "' must end in " + ReportEndings() + ".");
  }
  const fs::path folder = fs::absolute(path).parent_path();
  if (!fs::is_directory(folder)) throw Refusal("The report's folder '" + folder.string() + "' doesn't exist.");
}

void RefuseReportOver(const std::string& report_file, const std::vector<std::string>& files, std::string_view role) {
  if (report_file.empty()) return;
  for (const std::string& file : files) {
    if (file.empty() || !WouldTouch(report_file, file)) continue;
    throw Refusal("The report can't be written to '" + report_file + "', which " + std::string(role) +
                  ": name another file.");
  }
}

void WriteReport(const std::string& rtf, const CommonOptions& options, TerminalHost& host) {
  const RunJournal& journal = host.Journal();
  Write(rtf, options,
        {journal, OutcomeWord(journal, host.PlanOnly(), host.FaultReported()),
         host.PlanOnly() ? EndedRun::Kind::Plan : EndedRun::Kind::Run});
}

void WriteReportOfNoRun(const std::string& why, ExitStatus status, const CommonOptions& options) {
  RunJournal journal;
  journal.Fail(why);
  Write(PlainTextToRtf(why), options,
        {journal, status == ExitStatus::Refused ? "refused" : "failed", EndedRun::Kind::Nothing});
}

std::string PlainReport(const std::string& title, const std::vector<std::string>& sentences) {
  std::string report = ReportHead() + EscapeRtf(title) + "\\par\r\n\\pard\\b0 ";
  for (const std::string& sentence : sentences) report += EscapeRtf(sentence) + "\\par\r\n";
  return report + "}";
}

}  // namespace tessarine
