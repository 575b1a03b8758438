// SPDX-License-Identifier: GPL-2.0-or-later
// The toolbar and its menus as a host sees them.
#include <fmt/core.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "hosts/document/component_loader.h"
#include "hosts/document/document_application.h"
#include "hosts/terminal/commands.h"
#include "hosts/terminal/common_options.h"
#include "hosts/terminal/session.h"
#include "hosts/terminal/terminal_status_bar.h"

namespace tessarine {
namespace {

class MenuPrinter {
 public:
  explicit MenuPrinter(std::shared_ptr<DocumentApplication> application) : application_(std::move(application)) {}

  void PrintToolBar() {
    const auto tool_bar = CreateComponentAs<IToolBarDef>("Tessarine.clsToolBar", "IToolBarDef");
    fmt::print("{}  [toolbar {}]\n", tool_bar->Caption(), tool_bar->Name());
    PrintItems(*tool_bar, 1);
  }

 private:
  template <class Definition>
  void PrintItems(const Definition& definition, int depth) {
    for (std::int32_t position = 0; position < definition.ItemCount(); ++position) {
      ItemDef item;
      definition.GetItemInfo(position, item);
      if (item.Group) fmt::print("{}---\n", Indent(depth));
      PrintItem(item.ID, depth);
    }
  }

  void PrintItem(const std::string& id, int depth) {
    const IClassFactory* factory = nullptr;
    if (DllGetClassObject(id.c_str(), "IMenuDef", &factory) == kComponentOk) {
      const auto menu = CreateComponentAs<IMenuDef>(id, "IMenuDef");
      fmt::print("{}{}  [menu {}]\n", Indent(depth), menu->Caption(), menu->Name());
      PrintItems(*menu, depth + 1);
      return;
    }
    const auto command = CreateComponentAs<ICommand>(id, "ICommand");
    command->OnCreate(application_);
    fmt::print("{}{}  [{}]{}\n", Indent(depth), command->Caption(), command->Name(),
               command->Enabled() ? "" : "  (disabled)");
    fmt::print("{}{}\n", Indent(depth + 2), command->Message());
  }

  static std::string Indent(int depth) { return std::string(static_cast<std::size_t>(depth) * 2, ' '); }

  std::shared_ptr<DocumentApplication> application_;
};

ExitStatus RunMenu(const std::string& document_path) {
  const std::shared_ptr<MapDocument> document = OpenDocument(document_path);
  TerminalHost host({}, document->host_version);
  auto application =
      std::make_shared<DocumentApplication>(document, std::make_shared<TerminalStatusBar>(ProgressDisplay::None));
  application->Start();
  MenuPrinter(application).PrintToolBar();
  application->Stop();
  return host.FaultReported() ? ExitStatus::Failed : ExitStatus::Done;
}

}  // namespace

void AddMenuCommand(CLI::App& program, ChosenCommand& chosen) {
  auto document = std::make_shared<std::string>();
  CLI::App& command =
      *program.add_subcommand("menu", "Show the suite's toolbar and menus as a map program builds them");
  command.add_option("-d,--document", *document, "Show them for this map document")->type_name("MAP.json");
  command.footer("Example:\n  tessarine menu");
  command.callback([&chosen, document] { chosen.run = [document] { return RunMenu(*document); }; });
}

}  // namespace tessarine
