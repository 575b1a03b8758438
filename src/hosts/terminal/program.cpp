// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/program.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "engine/versions.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/common_options.h"
#include "hosts/terminal/passwords.h"
#include "hosts/terminal/refusal.h"
#include "hosts/terminal/usage_errors.h"

namespace tessarine {
namespace {

std::string VersionText() {
  const LibraryVersions versions = EngineLibraryVersions();
  return fmt::format("tessarine {} (GDAL {}, GEOS {}, PROJ {})", TESSARINE_VERSION, versions.gdal, versions.geos,
                     versions.proj);
}

// A shell takes a word of these as it stands.
constexpr std::string_view kPlainCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_@%+=:,./-";

// The command line as a shell takes it again.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int index = 0; index < argc; ++index) {
    const std::string word = WithoutPasswords(argv[index]);
    const bool plain = !word.empty() && word.find_first_not_of(kPlainCharacters) == std::string::npos;
    std::string quoted = "'";
    for (const char c : word) quoted += c == '\'' ? "'\\''" : std::string(1, c);
    line += (index == 0 ? "" : " ") + (plain ? word : quoted + "'");
  }
  return line;
}

// The words after the program's name. A negative number would pass for an option, were it not for a blank before it.
std::vector<std::string> Words(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  for (std::string& word : words) {
    char* end = nullptr;
    if (word.starts_with('-') && word.size() > 1) (void)std::strtod(word.c_str(), &end);
    if (end != nullptr && *end == '\0') word.insert(0, " ");
  }
  return words;
}

int StatusOf(ExitStatus status) { return static_cast<int>(status); }

int Refuse(const std::string& text) {
  fmt::print(stderr, "tessarine: {}\n", WithoutPasswords(text));
  return StatusOf(ExitStatus::Refused);
}

// A file that a run opens must not take the place of a stream that the caller closed: texts would go into it.
void OccupyClosedStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) != -1) continue;
    // Opened the wrong way round, so that its use fails as on a closed one.
    (void)open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

int RunCommand(int argc, char** argv) {
  CLI::App program("Measures features on the spheroid, converts features, and works on the graphics of maps.",
                   "tessarine");
  ChosenCommand chosen;
  chosen.command_line = CommandLine(argc, argv);
  program.set_version_flag("-V,--version", VersionText);
  program.require_subcommand(1);
  program.footer("tessarine COMMAND --help tells the options of a command, with an example.");
  AddToolCommands(program, "", chosen);
  AddToolsCommand(program, chosen);
  AddGeodesicCommands(program, chosen);
  AddMeasuresCommand(program, chosen);
  AddInfoCommand(program, chosen);
  AddFormatsCommand(program, chosen);
  AddGraphicsCommands(program, chosen);
  AddGraphicToolsCommand(program, chosen);
  AddSpheroidsCommand(program, chosen);
  AddMenuCommand(program, chosen);
  AddAboutCommand(program, chosen);
  RefuseEmptyValues(program);
  try {
    // The parser takes its words from the back.
    std::vector<std::string> words = Words(argc, argv);
    std::reverse(words.begin(), words.end());
    program.parse(std::move(words));
  } catch (const CLI::ParseError& error) {
    // Help and version are no errors.
    if (error.get_exit_code() == 0) return program.exit(error);
    return Refuse(UsageErrorText(program, error, std::vector<std::string>(argv + 1, argv + argc)));
  }
  try {
    return StatusOf(chosen.run());
  } catch (const Refusal& refusal) {
    return Refuse(refusal.what());
  } catch (const std::exception& error) {
    // What standard output couldn't take is told at the end.
    if (std::ferror(stdout) == 0) fmt::print(stderr, "tessarine: {}\n", WithoutPasswords(error.what()));
    return StatusOf(ExitStatus::Failed);
  }
}

}  // namespace

int RunProgram(int argc, char** argv) {
  OccupyClosedStreams();
  const int status = RunCommand(argc, argv);
  errno = 0;
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
  fmt::print(stderr, "tessarine: Standard output can't be written to its end{}.\n",
             errno != 0 ? std::string(": ") + std::strerror(errno) : "");
  return status == StatusOf(ExitStatus::Done) ? StatusOf(ExitStatus::Failed) : status;
}

}  // namespace tessarine
