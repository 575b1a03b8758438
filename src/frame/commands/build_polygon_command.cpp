// SPDX-License-Identifier: GPL-2.0-or-later
// Polygon building: dialog, worker, report.
#include "conversion/frmBuildParams.h"
#include "conversion/mod_92_functions.h"
#include "frame/clsExtension.h"
#include "frame/commands/command_base.h"
#include "frame/commands/commands.h"
#include "platform/host.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

constexpr const char* kNeedsNewerHost = "Disabled:  This function requires ArcGIS 9.2 or newer...";

class BuildPolygonCommand final : public CommandBase {
 public:
  using CommandBase::CommandBase;

  [[nodiscard]] bool Enabled() const override { return !before_92_; }
  [[nodiscard]] std::string Caption() const override {
    return before_92_ ? "Buil&d Polygons (Disabled: Pre-ArcGIS 9.2)" : CommandBase::Caption();
  }
  [[nodiscard]] std::string Tooltip() const override { return before_92_ ? kNeedsNewerHost : CommandBase::Tooltip(); }
  [[nodiscard]] std::string Message() const override { return before_92_ ? kNeedsNewerHost : CommandBase::Message(); }
  void OnCreate(const ObjectRef& hook) override {
    CommandBase::OnCreate(hook);
    Trap("ICommand_OnCreate", [this] {
      extension_ = FindExtension(Application());
      before_92_ = !Require(extension_, "clsExtension")->IsVersion92();
    });
  }

 private:
  void Run() override {
    extension_ = Require(FindExtension(Application()), "clsExtension");
    {
      frmBuildParams dialog;
      dialog.SetArcApplication(Application());
      dialog.ShowModal();
    }
    if (!extension_->ShouldContinue) return;
    const bool planned = Host().PlanOnly();
    ShowReport(planned ? mod_92_functions::PlanBuildPolygons(*extension_) : Build());
    extension_->SelectedFeatureClass = nullptr;
    extension_->SelectedFields = nullptr;
    extension_->SelectedPointLayer = nullptr;
    if (!planned) MarkDirty();
  }

  [[nodiscard]] std::string Build() const {
    const bool labels = extension_->BuildShouldTransferLabels;
    return mod_92_functions::orlBuildPolygons(
        extension_->SelectedLayer, extension_->DoAllRecords, extension_->BuildClusterTolerance, labels,
        labels && extension_->BuildUseAllLabelPoints, labels && extension_->BuildUseFirstLabelPoint,
        labels ? extension_->SelectedPointLayer : nullptr, labels ? extension_->SelectedFields : nullptr,
        extension_->NewShapefileLocation, false, nullptr, Document(), Application(), extension_);
  }

  std::shared_ptr<clsExtension> extension_;
  bool before_92_ = false;
};

}  // namespace

std::shared_ptr<ICommand> MakeBuildPolygonCommand(const CommandRow& row) {
  return std::make_shared<BuildPolygonCommand>(row, std::source_location::current());
}

}  // namespace tessarine
