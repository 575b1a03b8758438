// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/common_options.h"

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <thread>

#include "hosts/terminal/report_output.h"
#include "platform/text_formats.h"

namespace tessarine {

TerminalManners CommonOptions::Manners() const {
  return {.yes = yes,
          .overwrite = overwrite,
          .interactive = !no && isatty(STDIN_FILENO) != 0,
          .plan_only = dry_run,
          .jobs = jobs != 0 ? jobs : std::max(1U, std::thread::hardware_concurrency())};
}

ProgressDisplay CommonOptions::Progress() const {
  if (progress == "bar") return ProgressDisplay::Bar;
  if (progress == "json") return ProgressDisplay::Json;
  if (progress == "none") return ProgressDisplay::None;
  return !quiet && isatty(STDERR_FILENO) != 0 ? ProgressDisplay::Bar : ProgressDisplay::None;
}

void RefuseEmptyValues(CLI::App& program) {
  const CLI::Validator not_empty(
      [](const std::string& text) {
        return Trim(text).empty() ? std::string("there is nothing behind it") : std::string();
      },
      "");
  for (CLI::Option* option : program.get_options()) {
    const bool is_flag = option->get_items_expected_max() == 0;
    if (!is_flag) option->check(not_empty);
  }
  for (CLI::App* command : program.get_subcommands({})) RefuseEmptyValues(*command);
}

void AddQuietRun(CLI::App& command, CommonOptions& options) {
  command.add_flag("-q,--quiet", options.quiet, "Print nothing");
  command.add_flag("-n,--dry-run", options.dry_run, "Run, but leave the document's file as it is");
}

void AddRunOptions(CLI::App& command, CommonOptions& options) {
  command
      .add_option("-r,--report", options.report_file,
                  "Also write the report to this file; its ending tells the form: " + ReportEndings())
      ->type_name("FILE");
  command.add_flag("-q,--quiet", options.quiet, "Print no report");
  command.add_flag("--overwrite", options.overwrite, "Replace an output that exists");
  CLI::Option* yes = command.add_flag("-y,--yes", options.yes, kYesHelp);
  command.add_flag("--no", options.no, "Answer No to every question, and ask none")->excludes(yes);
  command
      .add_option("--progress", options.progress,
                  "How to show what is done: a bar, a line of JSON each second, or nothing; all on standard error")
      ->check(CLI::IsMember({"bar", "json", "none"}))
      ->type_name("bar|json|none");
  command.add_flag("-n,--dry-run", options.dry_run, "Check everything and print the plan, but write nothing");
}

void AddJobsOption(CLI::App& command, CommonOptions& options) {
  constexpr unsigned kMostJobs = 256;
  command
      .add_option("-j,--jobs", options.jobs,
                  "How many processors the run may keep busy, 1 for one; otherwise all. What it writes is the same")
      ->check(CLI::Range(1U, kMostJobs))
      ->type_name("N");
}

void AddCommonOptions(CLI::App& command, CommonOptions& options) {
  command
      .add_option("-d,--document", options.document,
                  "Work in this map document: its layers, selection and remembered settings")
      ->type_name("MAP.json");
  AddRunOptions(command, options);
}

CLI::App& AddDocumentCommand(CLI::App& parent, const char* name, const char* description, CommonOptions& options) {
  CLI::App& command = *parent.add_subcommand(name, description);
  command.add_option("document", options.document, "The map document")->required()->type_name("MAP.json");
  return command;
}

}  // namespace tessarine
