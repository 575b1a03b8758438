// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/batch.h"

#include <fmt/core.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>

#include "engine/format_abilities.h"
#include "hosts/terminal/interrupt.h"
#include "hosts/terminal/layer_source.h"
#include "hosts/terminal/passwords.h"
#include "hosts/terminal/pipes.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/report_output.h"
#include "outputs/layer_copy.h"
#include "platform/fault.h"
#include "platform/free_name.h"
#include "platform/paths.h"
#include "platform/run_journal.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

struct SourceOutcome {
  std::string source;
  std::string word;  ///< "done", "failed" and so on
  std::string detail;
  std::int64_t read = 0, written = 0;
  ExitStatus status = ExitStatus::Done;
};

const char* WordOf(const RunJournal& journal, ExitStatus status, bool planned) {
  if (status == ExitStatus::Refused) return "refused";
  if (status == ExitStatus::Done) return planned ? "planned" : "done";
  switch (journal.Outcome()) {
    case RunOutcome::Stopped:
      return "stopped";
    case RunOutcome::Incomplete:
      return "incomplete";
    default:
      return "failed";
  }
}

bool IsFolder(const std::string& text) {
  std::error_code error;
  return text.ends_with('/') || (fs::is_directory(text, error) && FormatOfPath(text) == nullptr);
}

// The source's name as a part of a file's.
std::string PlainName(const std::string& source) {
  std::string path, layer;
  if (source == kPipe) {
    path = "stdin.geojsonl";
  } else {
    SplitSource(source, path, layer);
  }
  while (path.size() > 1 && path.ends_with('/')) path.pop_back();
  std::string name = layer.empty() ? fs::path(path).stem().string() : layer;
  for (char& c : name) {
    if (c == '/' || c == ':') c = '_';
  }
  return name;
}

/// Names that are all different, in whatever case.
class FreeNames {
 public:
  std::string For(const std::string& source) {
    return FirstFree(PlainName(source),
                     [&](const std::string& name) { return !taken_.insert(LowerCase(name)).second; });
  }

 private:
  std::set<std::string> taken_;
};

/// A report for each source: "r.json" becomes "r_roads.json" and so on.
class ReportNames {
 public:
  explicit ReportNames(std::string report_file) : report_file_(std::move(report_file)) {}

  std::string For(const std::string& source) {
    if (report_file_.empty()) return "";
    const fs::path file = report_file_;
    const std::string name = file.stem().string() + "_" + names_.For(source) + file.extension().string();
    return (file.parent_path() / name).string();
  }

 private:
  std::string report_file_;
  FreeNames names_;
};

/// Names for the outputs in a folder.
class FolderNames {
 public:
  FolderNames(const OutputOptions& output) : output_(output) {
    std::error_code error;
    if (output.text.empty() || fs::is_directory(output.text, error)) return;
    throw Refusal("-o " + output.text + ": there is no folder '" + output.text + "': make it first.");
  }

  OutputOptions For(const std::string& source) {
    if (output_.text.empty()) return output_;
    std::string path = "stdin.geojsonl", layer;
    if (source != kPipe) SplitSource(source, path, layer);
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    const std::string ending = EndingFor(path);
    const std::string free = names_.For(source);
    const Format* format = FormatOfPath(ending);
    const bool names_class = format != nullptr && format->folder;
    OutputOptions own = output_;
    own.text = (fs::path(output_.text) / (free + ending)).string() + (names_class ? "/" + free : "");
    return own;
  }

 private:
  [[nodiscard]] std::string EndingFor(const std::string& path) const {
    if (!output_.format.empty()) {
      const Format* format = FormatToWriteAs(output_.format);
      if (format != nullptr && !format->server) return std::string(format->ending);
      throw Refusal("--format: '" + output_.format + "' is no format of files. 'tessarine formats' lists them.");
    }
    const Format* own = FormatOfPath(path);
    const bool usable = own != nullptr && own->writable && !own->server && CanWrite(*own);
    return usable ? std::string(own->ending) : ".gpkg";
  }

  const OutputOptions& output_;
  FreeNames names_;
};

// Some reasons are told in several lines.
std::string OnOneLine(const std::string& text) { return Replace(Replace(text, "\r\n", " "), "\n", " "); }

// Where the run itself has left no report. A source or output that the report would take the place of stays.
void ReportNoRun(const SourceOutcome& outcome, const std::string& output, const CommonOptions& options) {
  if (options.report_file.empty()) return;
  try {
    std::string path, layer;
    if (outcome.source != kPipe) SplitSource(outcome.source, path, layer);
    RefuseReportOver(options.report_file, {path, output}, kIsOutput);
    WriteReportOfNoRun(outcome.detail, outcome.status, options);
  } catch (const std::exception&) {
    // The line of the source tells what there is to tell.
  }
}

SourceOutcome RunOne(const std::string& source, FolderNames& names, const CommonOptions& common,
                     const std::string& report_file, const RunOnSource& run) {
  SourceOutcome outcome{source, "failed", "", 0, 0, ExitStatus::Failed};
  CommonOptions own = common;
  own.quiet = true;
  own.report_file = report_file;
  RunJournal journal;
  bool reported = false;
  own.on_outcome = [&](const SessionEnd& end) {
    journal = end.journal;
    reported = end.reported;
  };
  std::string place;
  try {
    const OutputOptions output = names.For(source);
    place = output.text;
    outcome.status = run(source, output, own);
    outcome.word = WordOf(journal, outcome.status, own.dry_run);
    outcome.detail = journal.failure.empty() ? ToNativePath(journal.output_path) : OnOneLine(journal.failure);
    if (outcome.status == ExitStatus::Refused && !reported) ReportNoRun(outcome, place, own);
  } catch (const Refusal& refusal) {
    outcome.status = ExitStatus::Refused;
    outcome.word = "refused";
    outcome.detail = refusal.what();
    ReportNoRun(outcome, place, own);
  } catch (const std::exception& error) {
    outcome.detail = error.what();
    ReportNoRun(outcome, place, own);
  }
  outcome.read = journal.read;
  outcome.written = journal.written;
  return outcome;
}

std::string TableOf(const std::vector<SourceOutcome>& outcomes) {
  std::size_t width = 6;
  for (const SourceOutcome& outcome : outcomes) width = std::max(width, outcome.source.size());
  std::string table = fmt::format("{:<{}}  {:<10}  {:>10}  {:>10}\n", "Source", width, "Outcome", "Read", "Written");
  for (const SourceOutcome& outcome : outcomes) {
    table += fmt::format("{:<{}}  {:<10}  {:>10}  {:>10}\n", outcome.source, width, outcome.word, outcome.read,
                         outcome.written);
  }
  return table;
}

ExitStatus StatusOf(const std::vector<SourceOutcome>& outcomes, std::size_t sources) {
  const auto count = [&](ExitStatus status) {
    return static_cast<std::size_t>(std::ranges::count(outcomes, status, &SourceOutcome::status));
  };
  if (count(ExitStatus::Done) == sources) return ExitStatus::Done;
  return count(ExitStatus::Refused) == sources ? ExitStatus::Refused : ExitStatus::Failed;
}

}  // namespace

ExitStatus RunOverSources(const std::vector<std::string>& sources, const OutputOptions& output,
                          const CommonOptions& common, OneIntoFolder one, const RunOnSource& run) {
  const bool into_folder = one == OneIntoFolder::BySource && IsFolder(output.text);
  if (sources.size() == 1 && !into_folder) return run(sources.front(), output, common);
  if (sources.size() == 1) {
    FolderNames names(output);
    return run(sources.front(), names.For(sources.front()), common);
  }
  if (!output.text.empty() && !IsFolder(output.text)) {
    throw Refusal("-o " + output.text + ": several sources go into a folder: name one that exists.");
  }
  CheckReportFile(common.report_file);
  if (std::ranges::count(sources, std::string(kPipe)) > 1) throw Refusal("Standard input can be named once.");
  FolderNames names(output);
  ReportNames reports(common.report_file);
  std::vector<SourceOutcome> outcomes;
  for (const std::string& source : sources) {
    if (WasInterrupted()) break;
    outcomes.push_back(RunOne(source, names, common, reports.For(source), run));
    const SourceOutcome& outcome = outcomes.back();
    const std::string line =
        WithoutPasswords(source + ": " + outcome.word + (outcome.detail.empty() ? "" : ", " + outcome.detail));
    // Who wants no report still wants to know what failed.
    if (common.quiet && outcome.status != ExitStatus::Done) fmt::print(stderr, "tessarine: {}\n", line);
    std::fflush(stderr);
    if (common.quiet) continue;
    fmt::print("{}\n", line);
    std::fflush(stdout);
  }
  if (!common.quiet) fmt::print("\n{}", WithoutPasswords(TableOf(outcomes)));
  return StatusOf(outcomes, sources.size());
}

}  // namespace tessarine
