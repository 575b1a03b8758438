// SPDX-License-Identifier: GPL-2.0-or-later
// The eight conversions: dialog, worker, report.
#include "conversion/frmLayerFields.h"
#include "conversion/modCreateVertices.h"
#include "frame/clsExtension.h"
#include "frame/commands/command_base.h"
#include "frame/commands/commands.h"
#include "platform/host.h"

namespace tessarine {
namespace {

class ConversionCommand final : public CommandBase {
 public:
  ConversionCommand(const CommandRow& row, const std::source_location& own, std::int32_t option)
      : CommandBase(row, own), option_(option) {}

 private:
  void Run() override {
    const std::shared_ptr<clsExtension> extension = Require(FindExtension(Application()), "clsExtension");
    const modCreateVertices::ConversionRun* run = modCreateVertices::FindRun(option_);
    {
      frmLayerFields dialog;
      dialog.SetArcApplication(Application());
      dialog.SetConversionOption(option_);
      dialog.ShowModal();
    }
    if (!extension->ShouldContinue) return;
    const bool planned = Host().PlanOnly();
    ShowReport(planned ? Plan(*run, extension) : Convert(*run, extension));
    extension->SelectedLayer = nullptr;
    extension->SelectedFeatureClass = nullptr;
    extension->SelectedFields = nullptr;
    if (!planned) MarkDirty();
  }

  [[nodiscard]] std::string Convert(const modCreateVertices::ConversionRun& run,
                                    const std::shared_ptr<clsExtension>& extension) const {
    const bool large = extension->AnalysisRecordCount > run.ProgressThreshold;
    RunContext context = HostContext();
    return modCreateVertices::RunConversion(context, run, extension->SelectedLayer, extension->SelectedFields,
                                            extension->DoAllRecords, extension->NewShapefileLocation, Application(),
                                            extension, large);
  }

  [[nodiscard]] std::string Plan(const modCreateVertices::ConversionRun& run,
                                 const std::shared_ptr<clsExtension>& extension) const {
    RunContext context = HostContext();
    return modCreateVertices::PlanConversion(context, run, extension->SelectedLayer, extension->SelectedFields,
                                             extension->DoAllRecords, extension->NewShapefileLocation, Application(),
                                             extension);
  }

  std::int32_t option_;
};

}  // namespace

template <std::int32_t Option>
std::shared_ptr<ICommand> MakeConversionCommand(const CommandRow& row) {
  return std::make_shared<ConversionCommand>(row, std::source_location::current(), Option);
}

template std::shared_ptr<ICommand> MakeConversionCommand<1>(const CommandRow&);
template std::shared_ptr<ICommand> MakeConversionCommand<2>(const CommandRow&);
template std::shared_ptr<ICommand> MakeConversionCommand<4>(const CommandRow&);
template std::shared_ptr<ICommand> MakeConversionCommand<8>(const CommandRow&);
template std::shared_ptr<ICommand> MakeConversionCommand<16>(const CommandRow&);
template std::shared_ptr<ICommand> MakeConversionCommand<32>(const CommandRow&);
template std::shared_ptr<ICommand> MakeConversionCommand<64>(const CommandRow&);
template std::shared_ptr<ICommand> MakeConversionCommand<128>(const CommandRow&);

}  // namespace tessarine
