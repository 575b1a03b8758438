// SPDX-License-Identifier: GPL-2.0-or-later
// The options that all commands with a run share.
#pragma once

#include <CLI/App.hpp>
#include <functional>
#include <string>

#include "hosts/terminal/terminal_host.h"
#include "hosts/terminal/terminal_status_bar.h"

namespace tessarine {

/// How a session ended.
struct SessionEnd {
  const RunJournal& journal;
  bool reported;  ///< its report is written
};

struct CommonOptions {
  std::string report_file;
  std::string document;
  bool quiet = false;
  bool overwrite = false;
  bool yes = false, no = false;
  std::string progress;
  bool dry_run = false;
  unsigned jobs = 0;  ///< 0: as many as the machine has processors
  std::string command_line;
  /// Told how a run ended; of a command over several sources.
  std::function<void(const SessionEnd&)> on_outcome;

  [[nodiscard]] TerminalManners Manners() const;
  /// A bar where standard error is a terminal and nobody asked for quiet, unless an option says otherwise.
  [[nodiscard]] ProgressDisplay Progress() const;
};

/// Makes all commands refuse an empty value, for whichever option or argument: an empty text, as of a shell variable
/// that isn't set, must not pass for one that wasn't given. Call it once all commands are there.
void RefuseEmptyValues(CLI::App& program);

/// Adds --jobs, for commands whose runs spread their work over threads.
void AddJobsOption(CLI::App& command, CommonOptions& options);
inline constexpr const char* kYesHelp = "Answer Yes to every question";

/// Adds --quiet and --dry-run, for commands that change nothing but the map document.
void AddQuietRun(CLI::App& command, CommonOptions& options);
/// Adds --report, --quiet, --progress, --overwrite, --yes, --no and --dry-run.
void AddRunOptions(CLI::App& command, CommonOptions& options);
/// The same and --document.
void AddCommonOptions(CLI::App& command, CommonOptions& options);

/// Adds a command that works on a map document, which it names first.
CLI::App& AddDocumentCommand(CLI::App& parent, const char* name, const char* description, CommonOptions& options);

}  // namespace tessarine
