// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/LongitudeForm.h"

#include <algorithm>

#include "planetary/planetary_rules.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"
#include "support/attempt.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr int kBoxDecimals = 13;
constexpr std::int32_t kLayersWithShapes = kPointLayers + kPolylineLayers + kPolygonLayers + kMultipointLayers;

}  // namespace

LongitudeForm::LongitudeForm(const std::string& name) : OutputForm(name, FollowTypedOutput) {
  lblLayer.SetCaption("Select &Layer to Convert:");
  optWrap180.SetCaption("Wrap Longitude around -180° to 180° Range");
  optWrap360.SetCaption("Wrap Longitude around 0° to 360° Range");
  lblLongShift.SetCaption("Longitudinal Shift =");
  lblDegrees.SetCaption("Decimal Degrees");
  lblOutputName.SetCaption("Output &Feature Class:");
  cmdGetWorkspace.SetToolTipText("Browse for Output Feature Class...");
  txtMessage.Locked = true;
  txtMessage.MultiLine = true;
  cmdOK.SetEnabled(false);

  lbxLayers.Click = [this] { Trap("lbxLayers_Click", [this] { lbxLayers_Click(); }); };
  txtLongShift.Change = [this] { txtLongShift_Change(); };
  txtLongShift.Numeric = true;
  txtLongShift.KeyPress = [this](std::int32_t& key) { CheckNumericReal(key, txtLongShift); };

  lblLayer.Move(7, 7, 150, 9);
  lbxLayers.Move(7, 18, 150, 92);
  txtMessage.Move(165, 18, 148, 92);
  txtMessage.SetBackColor(kButtonFace);
  for (Control* box : std::initializer_list<Control*>{&lbxLayers, &txtLongShift}) {
    box->SetBackColor(kWindowBackground);
  }
}

void LongitudeForm::PlaceLowerRows(double top) {
  lblLongShift.Move(7, top + 2, 82, 9);
  txtLongShift.Move(93, top, 74, 13);
  lblDegrees.Move(171, top + 2, 64, 9);
  PlaceOutputRow({.top = top + 22, .width = 320, .least_width = 320, .least_height = top + 75});
}

void LongitudeForm::KeepAboveLowerEdge(std::initializer_list<Control*> controls) {
  for (Control* control : controls) anchors_.Item(*control).SetAnchors(enumStartSize, enumSizeEnd);
}

void LongitudeForm::Form_Load() {
  OutputForm::Form_Load();
  Trap("Form_Load", [this] {
    anchors_.Item(lblLayer).SetAnchors(enumStartSize, enumStartSize);
    for (Control* control : std::initializer_list<Control*>{&lbxLayers, &txtMessage}) {
      anchors_.Item(*control).SetAnchors(enumNone, enumStartEnd);
    }
    KeepAboveLowerEdge({&optWrap180, &optWrap360, &lblLongShift, &txtLongShift, &lblDegrees});
  });
}

void LongitudeForm::Form_Unload() {
  OutputForm::Form_Unload();
  layers_.clear();
}

void LongitudeForm::Begin(const std::shared_ptr<IApplication>& application,
                          const std::shared_ptr<clsExtension>& extension, const std::string& preferred_layer) {
  application_ = application;
  extension_ = extension;
  extension_->ShouldContinue = false;
  ForgetChoices(*extension_);
  FillLayers(preferred_layer);
}

void LongitudeForm::FillLayers(const std::string& preferred) {
  const auto document = Require(Cast<IMxDocument>(application_->Document()), "IMxDocument");
  const std::shared_ptr<ILayer> in_map = document->SelectedLayer();
  const auto all = Require(ReturnLayersByType(document->FocusMap(), kLayersWithShapes), "ReturnLayersByType");
  lbxLayers.Clear();
  layers_.clear();
  std::int32_t used_before = -1, chosen_in_map = -1;
  for (const Variant& element : *all) {
    const auto layer = element.AsObject<IFeatureLayer>();
    if (!layer || !IsGeographic(*layer)) continue;
    const auto line = static_cast<std::int32_t>(layers_.size());
    if (used_before < 0 && !preferred.empty() && layer->Name() == preferred) used_before = line;
    if (in_map == layer) chosen_in_map = line;
    layers_.push_back(layer);
    lbxLayers.AddItem(layer->Name());
  }
  cmdOK.SetEnabled(lbxLayers.ListCount() > 0);
  if (lbxLayers.ListCount() == 0) return;
  lbxLayers.SetListIndex(used_before >= 0 ? used_before : std::max(0, chosen_in_map));
}

std::shared_ptr<IFeatureLayer> LongitudeForm::CurrentLayer() const {
  const std::int32_t line = lbxLayers.ListIndex();
  return line < 0 ? nullptr : layers_.at(static_cast<std::size_t>(line));
}

void LongitudeForm::lbxLayers_Click() { cmdOK.SetEnabled(lbxLayers.ListCount() > 0); }

void LongitudeForm::ShowShift(double shift) {
  txtLongShift.SetText(BoxNumber(shift));
  shift_ = shift;
}

void LongitudeForm::txtLongShift_Change() {
  Trap("txtLongShift_Change", [this] { shift_ = NumberIn(txtLongShift.Text()).value_or(shift_); });
}

std::shared_ptr<VarArray> LongitudeForm::DescribeOutput(const IFeatureLayer& layer) {
  RememberOutput(output_.Place(), *extension_);
  return OutputDescription::Make(layer, output_.Place());
}

void LongitudeForm::Finish() {
  extension_->ShouldContinue = true;
  Hide();
}

std::string BoxNumber(double value) {
  const std::string text = aml_func_mod::BasicTrimAvenue(FixedText(value, kBoxDecimals), "", "0");
  return aml_func_mod::BasicTrimAvenue(text, "", ".");
}

std::optional<double> NumberIn(const std::string& text) {
  // A text can be numeric and still too large for a double.
  return IsNumericText(text) ? Attempt([&] { return std::optional(ToNumber(text)); }) : std::nullopt;
}

void FollowTypedOutput(const std::string& text, OutputPlace& place) {
  const std::string folder = WithoutTrailingSlash(aml_func_mod::ReturnDir(text));
  const std::string name = aml_func_mod::ReturnFilename(text);
  place.name = name;
  if (!place.dataset.empty() && EqualsIgnoringCase(folder, place.Directory() + "\\" + place.dataset)) return;
  if (FollowNamedFormat(text, place)) return;
  const OutputKind kind = KindInFolder(folder);
  // A path without a name is asked for when the output is made.
  const bool ends = kind == kShapefile && !name.empty();
  place = PlaceIn(kind, aml_func_mod::ReturnDir(text), ends ? aml_func_mod::SetExtension(name, "shp") : name);
}

}  // namespace tessarine
