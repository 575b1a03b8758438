// SPDX-License-Identifier: GPL-2.0-or-later
// What the suite is: the about dialog in the terminal.
#include <fmt/core.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <filesystem>
#include <memory>

#include "engine/versions.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/form_answers.h"
#include "hosts/terminal/report_output.h"
#include "hosts/terminal/session.h"
#include "platform/paths.h"

namespace tessarine {
namespace {

struct AboutOptions {
  CommonOptions common;
  bool open_manual = false;
};

class AboutScript final : public FormScript {
 public:
  explicit AboutScript(bool open_manual) : open_manual_(open_manual) {}

  void Answer(Form& form) override {
    PrintReport(ControlOf<RichTextBox>(form, "Text1").TextRTF(), stdout);
    fmt::print("{}\n", ControlOf<Label>(form, "lblVersion").Caption());
    if (open_manual_) ControlOf<CommandButton>(form, "cmdManual").Press();
    ControlOf<CommandButton>(form, "cmdOK").Press();
  }

 private:
  bool open_manual_;
};

ExitStatus RunAbout(const AboutOptions& options) {
  Session session(options.common);
  AboutScript script(options.open_manual);
  const ExitStatus status = session.Run("Tessarine.cmdAbout", &script);
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
