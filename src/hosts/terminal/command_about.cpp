// SPDX-License-Identifier: GPL-2.0-or-later
// What the suite is: the about dialog in the terminal.
#include <fmt/core.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

#include "engine/versions.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/session.h"
#include "platform/fault.h"
#include "platform/form.h"
#include "platform/paths.h"

namespace tessarine {
namespace {

struct AboutOptions {
  CommonOptions common;
  bool open_manual = false;
};

/// The control of this name and kind; a fault when the form has none.
template <class Kind>
Kind& ControlOf(Form& form, const char* name) {
  auto* control = form.FindAs<Kind>(name);
  if (control == nullptr) Raise(kInvalidCall, std::string("The form has no control '") + name + "'.");
  return *control;
}

ExitStatus RunAbout(const AboutOptions& options) {
  Session session(options.common);
  session.Host().read_form = [&](Form& form) {
    PrintReport(ControlOf<RichTextBox>(form, "Text1").TextRTF(), stdout);
    fmt::print("{}\n", ControlOf<Label>(form, "lblVersion").Caption());
    if (options.open_manual) ControlOf<CommandButton>(form, "cmdManual").Press();
  };
  const ExitStatus status = session.Click("Tessarine.cmdAbout");
  const LibraryVersions versions = EngineLibraryVersions();
  fmt::print("Libraries: GDAL {}, GEOS {}, PROJ {}\n", versions.gdal, versions.geos, versions.proj);
  const std::string manual = ToNativePath(session.Host().LocalSystem().ProgramFolder()) + "/Tessarine_Manual.pdf";
  fmt::print("Manual: {}{}\n", manual, std::filesystem::exists(manual) ? "" : "  (not installed)");
  return status;
}

}  // namespace

void AddAboutCommand(CLI::App& program, ChosenCommand& chosen) {
  auto options = std::make_shared<AboutOptions>();
  CLI::App& command =
      *program.add_subcommand("about", "Tell what the suite does, its version, its libraries and where its manual is");
  command.add_flag("-m,--manual", options->open_manual, "Open the manual");
  command.footer("Example:\n  tessarine about");
  command.callback([&chosen, options] { chosen.run = [options] { return RunAbout(*options); }; });
}

}  // namespace tessarine
