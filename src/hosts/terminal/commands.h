// SPDX-License-Identifier: GPL-2.0-or-later
// The commands of the program. Each takes its arguments without touching a file, then runs.
#pragma once

#include <CLI/App.hpp>
#include <functional>
#include <string>
#include <string_view>

#include "hosts/terminal/exit_status.h"

namespace tessarine {

/// What the command line chose to do; set by the command that was given.
struct ChosenCommand {
  std::function<ExitStatus()> run;
  std::string command_line;
};

/// A command for each tool whose name begins with the word of this group; for each without one where it is empty.
void AddToolCommands(CLI::App& parent, std::string_view group, ChosenCommand& chosen);
void AddToolsCommand(CLI::App& program, ChosenCommand& chosen);
void AddGeodesicCommands(CLI::App& program, ChosenCommand& chosen);
void AddMeasuresCommand(CLI::App& program, ChosenCommand& chosen);
void AddInfoCommand(CLI::App& program, ChosenCommand& chosen);
void AddFormatsCommand(CLI::App& program, ChosenCommand& chosen);
void AddGraphicsCommands(CLI::App& program, ChosenCommand& chosen);
void AddGraphicToolsCommand(CLI::App& program, ChosenCommand& chosen);
void AddAboutCommand(CLI::App& program, ChosenCommand& chosen);
void AddSpheroidsCommand(CLI::App& program, ChosenCommand& chosen);
void AddMenuCommand(CLI::App& program, ChosenCommand& chosen);

}  // namespace tessarine
