#include "hosts/terminal/program.h"

#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "engine/versions.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/refusal.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

std::string VersionText() {
  const LibraryVersions versions = EngineLibraryVersions();
  return fmt::format("tessarine {} (GDAL {}, GEOS {}, PROJ {})", TESSARINE_VERSION, versions.gdal, versions.geos,
                     versions.proj);
}

std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int index = 0; index < argc; ++index) {
    const std::string word = argv[index];
    const bool plain = !word.empty() && word.find_first_of(" \t\"'\\$*") == std::string::npos;
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
  fmt::print(stderr, "tessarine: {}\n", text);
  return StatusOf(ExitStatus::Refused);
}

}  // namespace

int RunProgram(int argc, char** argv) {
  CLI::App program("Measures features on the spheroid, converts features, and works on the graphics of maps.",
                   "tessarine");
  ChosenCommand chosen;
  chosen.command_line = CommandLine(argc, argv);
  program.set_version_flag("-V,--version", VersionText);
  program.require_subcommand(1);
  program.footer("tessarine COMMAND --help tells the options of a command, with an example.");
  AddConversionCommands(program, chosen);
  AddBuildPolygonsCommand(program, chosen);
  AddGeodesicCommands(program, chosen);
  AddPlanetaryCommands(program, chosen);
  AddMeasuresCommand(program, chosen);
  AddCalculateCommand(program, chosen);
  AddInfoCommand(program, chosen);
  AddGraphicsCommands(program, chosen);
  AddGraphicToolsCommand(program, chosen);
  AddSpheroidsCommand(program, chosen);
  AddMenuCommand(program, chosen);
  AddAboutCommand(program, chosen);
  try {
    // The parser takes its words from the back.
    std::vector<std::string> words = Words(argc, argv);
    std::reverse(words.begin(), words.end());
    program.parse(std::move(words));
  } catch (const CLI::ParseError& error) {
    // Help and version are no errors.
    return program.exit(error) == 0 ? StatusOf(ExitStatus::Done) : StatusOf(ExitStatus::Refused);
  }
  try {
    return StatusOf(chosen.run());
  } catch (const Refusal& refusal) {
    return Refuse(refusal.what());
  } catch (const Fault& fault) {
    fmt::print(stderr, "tessarine: {}\n", fault.Description());
    return StatusOf(ExitStatus::Failed);
  } catch (const std::exception& error) {
    fmt::print(stderr, "tessarine: {}\n", error.what());
    return StatusOf(ExitStatus::Failed);
  }
}

}  // namespace tessarine
