// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/frmBoundaryWrap.h"

#include "planetary/planetary_rules.h"
#include "platform/tell_user.h"
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
  for (const PoleRow& row : AllPoles()) cboPole.AddItem(row.line);
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
  SetTabOrder({&lblLayer,      &lbxLayers, &txtMessage, &optWrap180,   &optWrap360,   &optCustom, &lblWest,
               &txtWest,       &lblEast,   &txtEast,    &lblNorth,     &txtNorth,     &lblSouth,  &txtSouth,
               &chkShortSteps, &lblPole,   &cboPole,    &lblLongShift, &txtLongShift, &lblDegrees});
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
  cboPole.SetListIndex(static_cast<std::int32_t>(&RowOfPole(choice.pole) - AllPoles().data()));
  chkShortSteps.SetValue(choice.steps == LongSteps::ShortWay ? CheckBox::kChecked : CheckBox::kUnchecked);
  FollowShortSteps();
}

void frmBoundaryWrap::FollowShortSteps() {
  const bool short_way = chkShortSteps.Value() == CheckBox::kChecked;
  cboPole.SetEnabled(short_way);
  cboPole.SetBackColor(short_way ? kWindowBackground : kButtonFace);
}

StepChoice frmBoundaryWrap::ChosenSteps() const {
  if (chkShortSteps.Value() != CheckBox::kChecked) return {};
  return {LongSteps::ShortWay, AllPoles()[static_cast<std::size_t>(cboPole.ListIndex())].pole};
}

std::optional<WrapBox> frmBoundaryWrap::ChosenBox() {
  if (option_ == kWrap180) return kBox180;
  if (option_ == kWrap360) return kBox360;
  return CustomBox();
}

std::optional<WrapBox> frmBoundaryWrap::CustomBox() {
  const BoxReading reading = ReadBox({txtWest.Text(), txtSouth.Text(), txtEast.Text(), txtNorth.Text()});
  if (!reading.objection) return reading.box;
  TextBox* const boxes[] = {&txtWest, &txtSouth, &txtEast, &txtNorth};  // in the order of the sides
  TextBox& wrong = *boxes[static_cast<std::size_t>(reading.wrong)];
  TellUser(reading.objection->text, reading.objection->title);
  wrong.SetFocus();
  if (!NumberIn(wrong.Text())) {
    wrong.SetSelStart(0);
    wrong.SetSelLength(static_cast<std::int32_t>(wrong.Text().size()));
  }
  return std::nullopt;
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
  Finish();
}

}  // namespace tessarine
