// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/frmGeoCentric.h"

#include "geodesy/figure.h"
#include "planetary/planetary_rules.h"
#include "platform/tell_user.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "spheroids/frmSpheroidOptions.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr const char* kFirstName = "WGS 1984";

}  // namespace

frmGeoCentric::frmGeoCentric() : LongitudeForm("frmGeoCentric") {
  lblMajor.SetCaption("Semi-Major (Equatorial) Radius =");
  lblMinor.SetCaption("Semi-Minor (Polar) Radius =");
  for (Label* unit : {&lblM1, &lblM2}) unit->SetCaption("Meters");
  cmdGetSpheroid.SetCaption("Load Predefined Spheroid");
  optNoWrap.SetCaption("Do not wrap Longitude values");
  txtMajor.Change = [this] { Trap("txtMajor_Change", [this] { TakeTypedAxis(txtMajor, semi_major_axis_); }); };
  txtMinor.Change = [this] { Trap("txtMinor_Change", [this] { TakeTypedAxis(txtMinor, semi_minor_axis_); }); };
  for (TextBox* box : {&txtMajor, &txtMinor}) {
    box->SetBackColor(kWindowBackground);
    box->Numeric = true;
    box->KeyPress = [box](std::int32_t& key) { CheckNumericRealPositive(key, *box); };
  }
  cmdGetSpheroid.Click = [this] { Trap("cmdGetSpheroid_Click", [this] { cmdGetSpheroid_Click(); }); };
  optNoWrap.Click = [this] { option_ = kCustomOrNoWrap; };
  optWrap180.Click = [this] { option_ = kWrap180; };
  optWrap360.Click = [this] { option_ = kWrap360; };
  LayOut();
}

void frmGeoCentric::LayOut() {
  lblCurrent.Move(7, 117, 306, 9);
  lblCurrent.SetBold(true);
  lblMajor.Move(7, 133, 130, 9);
  txtMajor.Move(141, 131, 110, 13);
  lblM1.Move(255, 133, 40, 9);
  lblMinor.Move(7, 150, 130, 9);
  txtMinor.Move(141, 148, 110, 13);
  lblM2.Move(255, 150, 40, 9);
  cmdGetSpheroid.Move(141, 166, 110, 14);
  optNoWrap.Move(7, 187, 200, 11);
  optWrap180.Move(7, 200, 200, 11);
  optWrap360.Move(7, 213, 200, 11);
  PlaceLowerRows(230);
  SetTabOrder({&lblLayer, &lbxLayers, &txtMessage, &lblCurrent, &lblMajor, &txtMajor, &lblM1, &lblMinor, &txtMinor,
               &lblM2, &cmdGetSpheroid, &optNoWrap, &optWrap180, &optWrap360, &lblLongShift, &txtLongShift,
               &lblDegrees});
}

void frmGeoCentric::Form_Load() {
  LongitudeForm::Form_Load();
  Anchors().Item(lblCurrent).SetAnchors(enumStartEnd, enumSizeEnd);
  KeepAboveLowerEdge({&lblMajor, &txtMajor, &lblM1, &lblMinor, &txtMinor, &lblM2, &cmdGetSpheroid, &optNoWrap});
}

void frmGeoCentric::SetArcApplication(const std::shared_ptr<VarArray>& input) {
  Trap("ArcApplication", [&] {
    const GeoCentricInput given(Require(input, "dialog input"));
    const std::shared_ptr<clsExtension> extension = Require(given.Extension(), "clsExtension");
    SetCaption(given.Caption());
    txtMessage.SetText(given.Instruction());
    ShowSpheroid(kFirstName, geodesy::kWgs1984.semi_major, geodesy::kWgs1984.semi_minor);
    Begin(given.Application(), extension, ReleasedLayerName(extension->frmGeoCentricReturn));
    ShowShift(extension->LongitudeShift);
    OptionButton& option = extension->LongitudeWrapOption == kWrap180   ? optWrap180
                           : extension->LongitudeWrapOption == kWrap360 ? optWrap360
                                                                        : optNoWrap;
    option.SetValue(true);
    const std::string dataset = extension->IsFeatureDataset ? extension->FeatDatasetName : "";
    ShowOutput(ProposeName(PlaceIn(given.OutputKind(), given.Directory(), "", dataset), "Output"));
  });
}

void frmGeoCentric::ForgetChoices(clsExtension& extension) { extension.frmGeoCentricReturn = nullptr; }

void frmGeoCentric::lbxLayers_Click() {
  LongitudeForm::lbxLayers_Click();
  const std::shared_ptr<IFeatureLayer> layer = CurrentLayer();
  if (!layer) return;
  const ToolSpheroid spheroid = SpheroidOf(*layer);
  ShowSpheroid(spheroid.name, spheroid.semi_major, spheroid.semi_minor);
}

void frmGeoCentric::UseSpheroidName(const std::string& name) {
  spheroid_name_ = name;
  lblCurrent.SetCaption("Current Spheroid = " + Replace(name, "&", "&&"));
}

void frmGeoCentric::ShowSpheroid(const std::string& name, double semi_major_axis, double semi_minor_axis) {
  UseSpheroidName(name);
  semi_major_axis_ = semi_major_axis;
  semi_minor_axis_ = semi_minor_axis;
  listening_ = false;
  txtMajor.SetText(BoxNumber(semi_major_axis));
  txtMinor.SetText(BoxNumber(semi_minor_axis));
  listening_ = true;
}

void frmGeoCentric::TakeTypedAxis(const TextBox& box, double& axis) {
  if (!listening_) return;
  axis = NumberIn(box.Text()).value_or(0.0);
  UseSpheroidName(kCustomSpheroid);
}

void frmGeoCentric::cmdGetSpheroid_Click() {
  const std::shared_ptr<clsExtension>& extension = Extension();
  {
    frmSpheroidOptions dialog;
    dialog.SetArcApplication(
        SpheroidDialogInput::Make(Application(), extension, spheroid_name_, semi_major_axis_, semi_minor_axis_));
    dialog.ShowModal();
  }
  if (extension->CurrentSpheroidCanceled) return;
  ShowSpheroid(extension->CurrentSpheroidName, extension->CurrentSpheroidMajorAxis,
               extension->CurrentSpheroidMinorAxis);
}

bool frmGeoCentric::AxesAreValid() {
  const std::optional<Objection> to_major = ObjectionToMajorAxis(semi_major_axis_);
  const std::optional<Objection> objection = to_major ? to_major : ObjectionToMinorAxis(semi_minor_axis_);
  if (!objection) return true;
  TellUser(objection->text, objection->title);
  (to_major ? txtMajor : txtMinor).SetFocus();
  return false;
}

void frmGeoCentric::cmdOK_Click() {
  if (!AxesAreValid() || !OutputPlaceExists()) return;
  const std::shared_ptr<IFeatureLayer> layer = Require(CurrentLayer(), "layer");
  clsExtension& extension = *Extension();
  extension.LongitudeShift = Shift();
  extension.LongitudeWrapOption = option_;
  extension.frmGeoCentricReturn = GeoCentricArguments::Make(layer, spheroid_name_, semi_major_axis_, semi_minor_axis_,
                                                            Shift(), option_, DescribeOutput(*layer));
  Finish();
}

}  // namespace tessarine
