// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/frmBoundaryWrap.h"

#include <algorithm>
#include <iterator>

#include "platform/host.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr const char* kInstruction =
    "Select your feature layer to convert from the list below.  If any features extend past the selected "
    "boundary, this tool will clip that feature at the boundary and wrap the clipped portion to the other side. All "
    "clipped "
    "portions of a feature will be maintained in a single record.  NOTE: Only geographically-projected feature layers "
    "listed... ";

constexpr const char* kInvalidValue = "Invalid Boundary Value:";
constexpr const char* kInvalidValues = "Invalid Boundary Values:";

struct PoleLine {
  MyGeometricOperations::EnclosedPole pole;
  const char* text;
};

constexpr PoleLine kPoleLines[] = {{MyGeometricOperations::EnclosedPole::SmallerPart, "the smaller part"},
                                   {MyGeometricOperations::EnclosedPole::North, "the north pole"},
                                   {MyGeometricOperations::EnclosedPole::South, "the south pole"},
                                   {MyGeometricOperations::EnclosedPole::Both, "both poles"},
                                   {MyGeometricOperations::EnclosedPole::Neither, "neither pole"}};

// What the last run was asked for, as long as its list stands.
StepChoice RememberedSteps(const clsExtension& extension) {
  return extension.frmBoundaryWrapReturn ? WrapArguments(extension.frmBoundaryWrapReturn).Steps() : StepChoice{};
}

WrapBox RememberedBox(const clsExtension& extension) {
  const WrapBox box{extension.CustomBoundaryWest, extension.CustomBoundaryNorth, extension.CustomBoundaryEast,
                    extension.CustomBoundarySouth};
  return box.west < box.east && box.south < box.north ? box : kBox180;
}

}  // namespace

frmBoundaryWrap::frmBoundaryWrap() : LongitudeForm("frmBoundaryWrap") {
  SetCaption(" Wrap to Boundary:");
  txtMessage.SetText(kInstruction);
  optCustom.SetCaption("Custom Boundary");
  for (TextBox* box : {&txtWest, &txtEast, &txtNorth, &txtSouth}) box->Numeric = true;
  lblWest.SetCaption("Western Boundary");
  lblEast.SetCaption("Eastern Boundary");
  lblNorth.SetCaption("Northern Boundary");
  lblSouth.SetCaption("Southern Boundary");
  chkShortSteps.SetCaption("Steps of more than 180° mean the short &way over the edge");
  lblPole.SetCaption("Rings round the globe &hold");
  cboPole.DropDownList = true;
  cboPole.SetBackColor(kWindowBackground);
  for (const PoleLine& line : kPoleLines) cboPole.AddItem(line.text);
  chkShortSteps.Click = [this] { Trap("chkShortSteps_Click", [this] { FollowShortSteps(); }); };
  optWrap180.Click = [this] { Trap("optWrap180_Click", [this] { ChooseOption(kWrap180); }); };
  optWrap360.Click = [this] { Trap("optWrap360_Click", [this] { ChooseOption(kWrap360); }); };
  optCustom.Click = [this] { Trap("optCustom_Click", [this] { ChooseOption(kCustomOrNoWrap); }); };
  LayOut();
}

void frmBoundaryWrap::LayOut() {
  optWrap180.Move(7, 117, 200, 11);
  optWrap360.Move(7, 130, 200, 11);
  optCustom.Move(7, 143, 80, 11);
  lblWest.Move(17, 160, 70, 9);
  txtWest.Move(89, 158, 72, 13);
  lblEast.Move(169, 160, 70, 9);
  txtEast.Move(241, 158, 72, 13);
  lblNorth.Move(17, 177, 70, 9);
  txtNorth.Move(89, 175, 72, 13);
  lblSouth.Move(169, 177, 70, 9);
  txtSouth.Move(241, 175, 72, 13);
  chkShortSteps.Move(7, 196, 306, 11);
  lblPole.Move(17, 213, 104, 9);
  cboPole.Move(125, 211, 90, 13);
  PlaceLowerRows(232);
  SetTabOrder({&lblLayer,      &lbxLayers,       &txtMessage, &optWrap180,   &optWrap360,   &optCustom,  &lblWest,
               &txtWest,       &lblEast,         &txtEast,    &lblNorth,     &txtNorth,     &lblSouth,   &txtSouth,
               &chkShortSteps, &lblPole,         &cboPole,    &lblLongShift, &txtLongShift, &lblDegrees, &lblOutputName,
               &txtOutput,     &cmdGetWorkspace, &cmdManual,  &cmdOK,        &cmdCancel});
}

void frmBoundaryWrap::Form_Load() {
  LongitudeForm::Form_Load();
  KeepAboveLowerEdge({&optCustom, &lblWest, &txtWest, &lblEast, &txtEast, &lblNorth, &txtNorth, &lblSouth, &txtSouth,
                      &chkShortSteps, &lblPole, &cboPole});
}

void frmBoundaryWrap::SetArcApplication(const std::shared_ptr<IApplication>& application) {
  Trap("ArcApplication", [&] {
    const std::shared_ptr<clsExtension> extension = Require(FindExtension(application), "clsExtension");
    const StepChoice steps = RememberedSteps(*extension);
    Begin(application, extension, ReleasedLayerName(extension->frmBoundaryWrapReturn));
    ShowSteps(steps);
    ShowBox(RememberedBox(*extension));
    ShowShift(extension->LongitudeShift);
    OptionButton& option = extension->LongitudeWrapOption == kWrap180   ? optWrap180
                           : extension->LongitudeWrapOption == kWrap360 ? optWrap360
                                                                        : optCustom;
    option.SetValue(true);
    ShowOutput(ProposeOutput(*extension, application, "Output"));
  });
}

void frmBoundaryWrap::ForgetChoices(clsExtension& extension) { extension.frmBoundaryWrapReturn = nullptr; }

void frmBoundaryWrap::ChooseOption(std::int32_t option) {
  option_ = option;
  const bool custom = option == kCustomOrNoWrap;
  for (TextBox* box : {&txtWest, &txtEast, &txtNorth, &txtSouth}) {
    box->SetEnabled(custom);
    box->SetBackColor(custom ? kWindowBackground : kButtonFace);
  }
}

void frmBoundaryWrap::ShowBox(const WrapBox& box) {
  txtWest.SetText(BoxNumber(box.west));
  txtEast.SetText(BoxNumber(box.east));
  txtNorth.SetText(BoxNumber(box.north));
  txtSouth.SetText(BoxNumber(box.south));
}

void frmBoundaryWrap::ShowSteps(const StepChoice& choice) {
  const auto* line = std::ranges::find(kPoleLines, choice.pole, &PoleLine::pole);
  cboPole.SetListIndex(line != std::end(kPoleLines) ? static_cast<std::int32_t>(line - kPoleLines) : 0);
  chkShortSteps.SetValue(choice.steps == LongSteps::kShortWay ? CheckBox::kChecked : CheckBox::kUnchecked);
  FollowShortSteps();
}

void frmBoundaryWrap::FollowShortSteps() {
  const bool short_way = chkShortSteps.Value() == CheckBox::kChecked;
  cboPole.SetEnabled(short_way);
  cboPole.SetBackColor(short_way ? kWindowBackground : kButtonFace);
}

StepChoice frmBoundaryWrap::ChosenSteps() const {
  if (chkShortSteps.Value() != CheckBox::kChecked) return {};
  return {LongSteps::kShortWay, kPoleLines[cboPole.ListIndex()].pole};
}

std::optional<WrapBox> frmBoundaryWrap::ChosenBox() {
  if (option_ == kWrap180) return kBox180;
  if (option_ == kWrap360) return kBox360;
  return CustomBox();
}

std::optional<WrapBox> frmBoundaryWrap::CustomBox() {
  WrapBox box;
  struct Side {
    TextBox& text;
    double& value;
    const char* refusal;
  };
  const Side sides[] = {{txtNorth, box.north, "Northern Boundary Value is invalid..."},
                        {txtEast, box.east, "Eastern Boundary Value is invalid..."},
                        {txtSouth, box.south, "Southern Boundary Value is invalid..."},
                        {txtWest, box.west, "Western Boundary Value is invalid..."}};
  for (const Side& side : sides) {
    const std::optional<double> value = NumberIn(side.text.Text());
    if (!value) {
      RefuseBoundary(side.text, kInvalidValue, side.refusal);
      side.text.SetSelStart(0);
      side.text.SetSelLength(static_cast<std::int32_t>(side.text.Text().size()));
      return std::nullopt;
    }
    side.value = *value;
  }
  if (box.west >= box.east) {
    RefuseBoundary(txtEast, kInvalidValues, "Western Boundary Value >= Eastern Boundary Value...");
    return std::nullopt;
  }
  if (box.south >= box.north) {
    RefuseBoundary(txtNorth, kInvalidValues, "Southern Boundary Value >= Northern Boundary Value...");
    return std::nullopt;
  }
  return box;
}

void frmBoundaryWrap::RefuseBoundary(TextBox& box, const char* title, const char* text) {
  Host().MessageBox().Show(text, title);
  box.SetFocus();
}

void frmBoundaryWrap::cmdOK_Click() {
  if (!OutputPlaceExists()) return;
  const std::optional<WrapBox> box = ChosenBox();
  if (!box) return;
  const std::shared_ptr<IFeatureLayer> layer = Require(CurrentLayer(), "layer");
  clsExtension& extension = *Extension();
  extension.CustomBoundaryWest = box->west;
  extension.CustomBoundaryNorth = box->north;
  extension.CustomBoundaryEast = box->east;
  extension.CustomBoundarySouth = box->south;
  extension.LongitudeShift = Shift();
  extension.LongitudeWrapOption = option_;
  extension.frmBoundaryWrapReturn =
      WrapArguments::Make(layer, *box, option_, DescribeOutput(*layer), Shift(), ChosenSteps());
  WrapArguments(extension.frmBoundaryWrapReturn).SetFromDocument(FromDocument());
  Finish();
}

}  // namespace tessarine
