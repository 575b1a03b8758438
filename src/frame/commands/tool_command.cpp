// SPDX-License-Identifier: GPL-2.0-or-later
// The command of a tool: dialog, run, report.
#include "frame/commands/command_base.h"
#include "frame/commands/commands.h"
#include "platform/host.h"
#include "platform/trap.h"
#include "session/clsExtension.h"
#include "support/frmReport_modal.h"

namespace tessarine {
namespace {

class ToolCommand : public CommandBase {
 public:
  using CommandBase::CommandBase;

 private:
  void Run() override {
    (void)Require(FindExtension(Application()), "clsExtension");
    const Tool& tool = *Row().tool;
    const std::optional<Arguments> arguments = tool.Ask(Application());
    if (!arguments) return;
    RunContext context = HostContext();
    const bool planned = Host().PlanOnly();
    const auto watcher = planned ? nullptr : Cast<IRunWatcher>(Application());
    if (watcher) watcher->RunBegins(tool, *arguments);
    const std::string report =
        planned ? tool.Plan(context, *arguments, Application()) : tool.Run(context, *arguments, Application());
    if (watcher) watcher->RunEnded(context.journal, report);
    // A user who gave up knows it.
    if (!context.journal.cancelled) ShowReportWindow(report);
    if (!planned) MarkDirty();
  }
};

constexpr const char* kNeedsNewerHost = "Disabled:  This function requires ArcGIS 9.2 or newer...";

class BuildPolygonCommand final : public ToolCommand {
 public:
  using ToolCommand::ToolCommand;

  [[nodiscard]] bool Enabled() const override { return !before_92_; }
  [[nodiscard]] std::string Caption() const override {
    return before_92_ ? "Buil&d Polygons (Disabled: Pre-ArcGIS 9.2)" : CommandBase::Caption();
  }
  [[nodiscard]] std::string Tooltip() const override { return before_92_ ? kNeedsNewerHost : CommandBase::Tooltip(); }
  [[nodiscard]] std::string Message() const override { return before_92_ ? kNeedsNewerHost : CommandBase::Message(); }
  void OnCreate(const ObjectRef& hook) override {
    CommandBase::OnCreate(hook);
    Trap("ICommand_OnCreate",
         [this] { before_92_ = !Require(FindExtension(Application()), "clsExtension")->IsVersion92(); });
  }

 private:
  bool before_92_ = false;
};

}  // namespace

std::shared_ptr<ICommand> MakeToolCommand(const CommandRow& row) {
  if (std::string_view(row.texts.class_name) == "clsBuildPolygon") {
    return std::make_shared<BuildPolygonCommand>(row, std::source_location::current());
  }
  return std::make_shared<ToolCommand>(row, std::source_location::current());
}

}  // namespace tessarine
