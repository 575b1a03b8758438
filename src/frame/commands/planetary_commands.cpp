// SPDX-License-Identifier: GPL-2.0-or-later
// The wrap and the two conversions of planetary latitudes: dialog, worker, report.
#include "frame/clsExtension.h"
#include "frame/commands/command_base.h"
#include "frame/commands/commands.h"
#include "planetary/frmBoundaryWrap.h"
#include "planetary/frmGeoCentric.h"
#include "planetary/planetary_runs.h"
#include "platform/host.h"

namespace tessarine {
namespace {

// The progress dialog is shown for classes of more features than this.
constexpr std::int32_t kLargeRun = 500;

constexpr const char* kLatitudeInstruction =
    "Select your feature layer to convert from the list below.  If the default spheroid equatorial and polar "
    "radii are incorrect, you may enter the correct values or load predefined values.  You also have the option to "
    "apply a longitudinal shift to your output.  NOTE: Only geographically-projected feature layers listed... ";

class PlanetaryCommand : public CommandBase {
 public:
  using CommandBase::CommandBase;

 protected:
  /// Shows the dialog and answers the list of arguments that it left; nothing when it was not left with OK.
  virtual std::shared_ptr<VarArray> Ask(const std::shared_ptr<clsExtension>& extension,
                                        const MyGeneralOperations::OutputChoice& place) = 0;
  [[nodiscard]] virtual std::shared_ptr<IFeatureLayer> LayerOf(const std::shared_ptr<VarArray>& arguments) const = 0;
  [[nodiscard]] virtual PlanetaryRun* Worker() const = 0;
  [[nodiscard]] virtual PlanetaryPlan* Planner() const = 0;

 private:
  void Run() override {
    const std::shared_ptr<clsExtension> extension = Require(FindExtension(Application()), "clsExtension");
    const std::shared_ptr<VarArray> arguments = Ask(extension, RememberPlace(*extension));
    if (!extension->ShouldContinue || !arguments) return;
    const bool planned = Host().PlanOnly();
    ShowReport(planned ? Planner()(arguments)
                       : Worker()(Application(), Document(), extension, arguments, IsLarge(arguments)));
    // The layer is held no longer than the run.
    ReleaseLayer(*arguments);
    if (!planned) MarkDirty();
  }

  // The place of the last output, or the document's folder where that is gone.
  [[nodiscard]] MyGeneralOperations::OutputChoice RememberPlace(clsExtension& extension) const {
    const MyGeneralOperations::OutputChoice place = MyGeneralOperations::RememberedPlace(extension, Application());
    extension.IsFeatureDataset = place.IsFeatureDataset;
    extension.FeatDatasetName = place.FeatureDatasetName;
    extension.DirectoryType = MyGeneralOperations::DirectoryTypeText(place.Kind);
    return place;
  }

  [[nodiscard]] bool IsLarge(const std::shared_ptr<VarArray>& arguments) const {
    const std::shared_ptr<IFeatureLayer> layer = Require(LayerOf(arguments), "layer");
    return Require(layer->FeatureClass(), "FeatureClass")->FeatureCount(nullptr) > kLargeRun;
  }
};

class WrapBoundaryCommand final : public PlanetaryCommand {
 public:
  using PlanetaryCommand::PlanetaryCommand;

 private:
  std::shared_ptr<VarArray> Ask(const std::shared_ptr<clsExtension>& extension,
                                const MyGeneralOperations::OutputChoice&) override {
    frmBoundaryWrap dialog;
    dialog.SetArcApplication(Application());
    dialog.ShowModal();
    return extension->frmBoundaryWrapReturn;
  }
  [[nodiscard]] std::shared_ptr<IFeatureLayer> LayerOf(const std::shared_ptr<VarArray>& arguments) const override {
    return WrapArguments(arguments).Layer();
  }
  [[nodiscard]] PlanetaryRun* Worker() const override { return WrapToBoundaries; }
  [[nodiscard]] PlanetaryPlan* Planner() const override { return PlanWrapToBoundaries; }
};

struct LatitudeDirection {
  const char* caption;
  PlanetaryRun* worker;
  PlanetaryPlan* planner;
};

constexpr LatitudeDirection kToGraphic{" Planetocentric to Planetographic:", CalcPlanetoCentricToPlanetoGraphic,
                                       PlanCentricToGraphic};
constexpr LatitudeDirection kToCentric{" Planetographic to Planetocentric:", CalcPlanetoGraphicToPlanetoCentric,
                                       PlanGraphicToCentric};

class LatitudeCommand final : public PlanetaryCommand {
 public:
  LatitudeCommand(const CommandRow& row, const std::source_location& own, const LatitudeDirection& direction)
      : PlanetaryCommand(row, own), direction_(direction) {}

 private:
  std::shared_ptr<VarArray> Ask(const std::shared_ptr<clsExtension>& extension,
                                const MyGeneralOperations::OutputChoice& place) override {
    frmGeoCentric dialog;
    dialog.SetArcApplication(GeoCentricInput::Make(Application(), extension, place.Directory, place.Kind,
                                                   direction_.caption, kLatitudeInstruction));
    dialog.ShowModal();
    return extension->frmGeoCentricReturn;
  }
  [[nodiscard]] std::shared_ptr<IFeatureLayer> LayerOf(const std::shared_ptr<VarArray>& arguments) const override {
    return GeoCentricArguments(arguments).Layer();
  }
  [[nodiscard]] PlanetaryRun* Worker() const override { return direction_.worker; }
  [[nodiscard]] PlanetaryPlan* Planner() const override { return direction_.planner; }

  const LatitudeDirection& direction_;
};

}  // namespace

std::shared_ptr<ICommand> MakeWrapBoundaryCommand(const CommandRow& row) {
  return std::make_shared<WrapBoundaryCommand>(row, std::source_location::current());
}

std::shared_ptr<ICommand> MakeCentricToGraphicCommand(const CommandRow& row) {
  return std::make_shared<LatitudeCommand>(row, std::source_location::current(), kToGraphic);
}

std::shared_ptr<ICommand> MakeGraphicToCentricCommand(const CommandRow& row) {
  return std::make_shared<LatitudeCommand>(row, std::source_location::current(), kToCentric);
}

}  // namespace tessarine
