// The options that all commands with a run share.
#pragma once

#include <CLI/App.hpp>
#include <string>

#include "hosts/terminal/terminal_host.h"

namespace tessarine {

struct CommonOptions {
  std::string report_file;
  std::string document;
  bool quiet = false;
  bool overwrite = false;
  bool yes = false;
  bool dry_run = false;
  std::string command_line;

  [[nodiscard]] TerminalManners Manners() const;
};

/// An empty text, as of a shell variable that isn't set, must not pass for an option that wasn't given.
[[nodiscard]] CLI::Validator NotEmpty();

/// Adds --report, --quiet, --overwrite, --yes and --dry-run.
void AddRunOptions(CLI::App& command, CommonOptions& options);
/// Adds --report, --document, --quiet, --overwrite, --yes and --dry-run.
void AddCommonOptions(CLI::App& command, CommonOptions& options);

}  // namespace tessarine
