// SPDX-License-Identifier: GPL-2.0-or-later
// The geometry calculator: dialog, worker, report.
#include "calculator/frmGeometry.h"
#include "calculator/modCalcGeometry.h"
#include "frame/clsExtension.h"
#include "frame/commands/command_base.h"
#include "frame/commands/commands.h"
#include "platform/host.h"

namespace tessarine {
namespace {

class CalculateCommand final : public CommandBase {
 public:
  using CommandBase::CommandBase;

 private:
  void Run() override {
    const std::shared_ptr<clsExtension> extension = Require(FindExtension(Application()), "clsExtension");
    {
      frmGeometry dialog;
      dialog.SetArcApplication(Application());
      dialog.ShowModal();
    }
    if (!extension->ShouldContinue) return;
    const bool planned = Host().PlanOnly();
    ShowReport(planned ? modCalcGeometry::PlanGeometry(extension->GeometryOptions, Application())
                       : modCalcGeometry::CalcGeometry(extension->GeometryOptions, Application(), true, false));
    extension->GeometryOptions = nullptr;
    if (!planned) MarkDirty();
  }
};

}  // namespace

std::shared_ptr<ICommand> MakeCalculateCommand(const CommandRow& row) {
  return std::make_shared<CalculateCommand>(row, std::source_location::current());
}

}  // namespace tessarine
