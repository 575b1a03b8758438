// Polygon building, and tools that this version doesn't hold.
#include "frame/clsExtension.h"
#include "frame/commands/command_base.h"
#include "frame/commands/commands.h"
#include "platform/text_formats.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

class UnavailableCommand : public CommandBase {
 public:
  using CommandBase::CommandBase;

 protected:
  void Run() override { RaiseUnavailable(Row()); }
};

constexpr const char* kNeedsNewerHost = "Disabled:  This function requires ArcGIS 9.2 or newer...";

class BuildPolygonCommand final : public UnavailableCommand {
 public:
  using UnavailableCommand::UnavailableCommand;

  [[nodiscard]] bool Enabled() const override { return !before_92_; }
  [[nodiscard]] std::string Caption() const override {
    return before_92_ ? "Buil&d Polygons (Disabled: Pre-ArcGIS 9.2)" : UnavailableCommand::Caption();
  }
  [[nodiscard]] std::string Tooltip() const override {
    return before_92_ ? kNeedsNewerHost : UnavailableCommand::Tooltip();
  }
  [[nodiscard]] std::string Message() const override {
    return before_92_ ? kNeedsNewerHost : UnavailableCommand::Message();
  }
  void OnCreate(const ObjectRef& hook) override {
    UnavailableCommand::OnCreate(hook);
    Trap("ICommand_OnCreate", [this] {
      extension_ = FindExtension(Application());
      before_92_ = !Require(extension_, "clsExtension")->IsVersion92();
    });
  }

 private:
  std::shared_ptr<clsExtension> extension_;
  bool before_92_ = false;
};

}  // namespace

void RaiseUnavailable(const CommandRow& row) {
  Raise(kInvalidCall, "The tool '" + Replace(row.caption, "&", "") + "' is not part of this version.");
}

std::shared_ptr<ICommand> MakeUnavailableCommand(const CommandRow& row) {
  return std::make_shared<UnavailableCommand>(row);
}

std::shared_ptr<ICommand> MakeBuildPolygonCommand(const CommandRow& row) {
  return std::make_shared<BuildPolygonCommand>(row);
}

}  // namespace tessarine
