// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/frmBuildParams.h"

#include "conversion/build_reports.h"
#include "conversion/cluster_tolerance.h"
#include "conversion/layer_choices.h"
#include "platform/host.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr const char* kNoPointLayers = "[No Point Layers Available]";
constexpr const char* kNoLineLayer = "Units:  [No Polyline Layer Selected]";

}  // namespace

void frmBuildParams::SetArcApplication(const std::shared_ptr<IApplication>& application) {
  Trap("ArcApplication", [&] {
    application_ = application;
    document_ = Cast<IMxDocument>(application_->Document());
    const auto selected = Cast<IFeatureLayer>(document_->SelectedLayer());
    preferred_layer_ = selected ? selected->Name() : "";
    extension_ = FindExtension(application_);
    extension_->ShouldContinue = false;
    FillPointLayers();
    SetLabelPointParams();
    all_selected_ = false;
    UpdateSelName();
    FillLineLayers();
    optFirstLabelPoint.SetValue(extension_->BuildUseFirstLabelPoint);
    optCentroidLabelPoint.SetValue(!extension_->BuildUseFirstLabelPoint);
    output_.Show(ProposeOutput(*extension_, application_, "Polygons"));
    if (layers_->Count() == 0) {
      optAll.SetValue(true);
      txtCluster.SetEnabled(false);
      lblUnits.SetCaption(kNoLineLayer);
    }
    CheckOK();
  });
}

void frmBuildParams::FillPointLayers() {
  point_layers_ = Require(ReturnLayersByType(document_->FocusMap(), kPointLayers), "ReturnLayersByType");
  cbxPointLayers.Clear();
  lbxFields.Clear();
  fields_.clear();
  if (point_layers_->Count() == 0) {
    chkUseLabelPoints.SetValue(CheckBox::kGrayed);
    chkUseLabelPoints.SetEnabled(false);
    return;
  }
  chkUseLabelPoints.SetEnabled(true);
  chkUseLabelPoints.SetValue(CheckBox::kUnchecked);
  for (const Variant& element : *point_layers_) cbxPointLayers.AddItem(element.AsObject<ILayer>()->Name());
  cbxPointLayers.SetListIndex(0);
}

void frmBuildParams::FillLineLayers() {
  lbxLayers.Clear();
  layers_ = Require(ReturnLayersByType(document_->FocusMap(), kPolylineLayers), "ReturnLayersByType");
  const std::int32_t preferred = ListLayers(*layers_, preferred_layer_, lbxLayers);
  if (lbxLayers.ListCount() > 0) lbxLayers.SetListIndex(preferred);
}

void frmBuildParams::SetLabelPointParams() {
  switch (chkUseLabelPoints.Value()) {
    case CheckBox::kUnchecked:
      EnableLabelControls(false);
      break;
    case CheckBox::kChecked:
      EnableLabelControls(true);
      if (cbxPointLayers.ListIndex() < 0) cbxPointLayers.SetListIndex(0);
      break;
    default:
      cbxPointLayers.Clear();
      cbxPointLayers.AddItem(kNoPointLayers);
      cbxPointLayers.SetListIndex(0);
      EnableLabelControls(false);
  }
}

void frmBuildParams::EnableLabelControls(bool enabled) {
  Control* const controls[] = {&frameLabelPoints,   &optAllLabelPoints,     &frameWhichPoint, &lblChooseLabelPoint,
                               &optFirstLabelPoint, &optCentroidLabelPoint, &lblFields,       &cbxPointLayers,
                               &lbxFields,          &cmdSelFields};
  for (Control* control : controls) control->SetEnabled(enabled);
  optSelLabelPoints.SetEnabled(enabled && points_selected_);
}

void frmBuildParams::UpdateSelName() {
  cmdSelFields.SetCaption(SelectFieldsCaption(all_selected_));
  CheckOK();
}

void frmBuildParams::CheckOK() {
  const bool transfers = chkUseLabelPoints.Value() == CheckBox::kChecked;
  cmdOK.SetEnabled(lbxLayers.ListIndex() >= 0 && !txtCluster.Text().empty() &&
                   (!transfers || lbxFields.SelCount() > 0));
}

std::shared_ptr<IFeatureLayer> frmBuildParams::PointLayer() const {
  return LayerAt(point_layers_, cbxPointLayers.ListIndex());
}

void frmBuildParams::lbxLayers_Click() {
  Trap("lbxLayers_Click", [this] {
    const std::shared_ptr<IFeatureLayer> layer = LayerAt(layers_, lbxLayers.ListIndex());
    const std::shared_ptr<IFeatureClass> features = Require(layer, "layer")->FeatureClass();
    ShowRecordChoice(layer, "Use All Polylines", "Selected Polylines", optAll, optSel);
    const SpatialReferenceRef reference = Require(features, "FeatureClass")->SpatialReference();
    txtCluster.SetText(ProposedClusterTolerance(*reference));
    lblUnits.SetCaption("Units: " + UnitWord(reference));
    CheckOK();
  });
}

void frmBuildParams::cbxPointLayers_Click() {
  Trap("cbxPointLayers_Click", [this] {
    if (cbxPointLayers.Text() == kNoPointLayers) return;
    const std::shared_ptr<IFeatureLayer> layer = PointLayer();
    fields_ = ListFields(*Require(layer, "layer"), StoredMeasures::Listed, lbxFields);
    all_selected_ = false;
    UpdateSelName();
    ShowRecordChoice(layer, "Consider All Label Points", "Only Selected Points", optAllLabelPoints, optSelLabelPoints);
    points_selected_ = optSelLabelPoints.Enabled();
    // Counting enables the options; without a transfer they stay grey.
    const bool transfers = chkUseLabelPoints.Value() == CheckBox::kChecked;
    optAllLabelPoints.SetEnabled(transfers);
    optSelLabelPoints.SetEnabled(transfers && points_selected_);
    CheckOK();
  });
}

void frmBuildParams::chkUseLabelPoints_Click() {
  Trap("chkUseLabelPoints_Click", [this] {
    SetLabelPointParams();
    CheckOK();
  });
}

void frmBuildParams::cmdSelFields_Click() {
  Trap("cmdSelFields_Click", [this] {
    SelectAllLines(lbxFields, !all_selected_);
    all_selected_ = !all_selected_;
    UpdateSelName();
    CheckOK();
  });
}

void frmBuildParams::optAll_Click() {
  Trap("optAll_Click", [this] { CheckOK(); });
}

void frmBuildParams::txtCluster_KeyPress(std::int32_t& key_ascii) {
  Trap("txtCluster_KeyPress", [&] { CheckNumericRealPositive(key_ascii, txtCluster); });
}

void frmBuildParams::cmdGetWorkspace_Click() { output_.Browse("Enter the name of your new Polygon Feature Class:"); }

void frmBuildParams::LeaveLabelChoices() {
  const bool transfers = chkUseLabelPoints.Value() == CheckBox::kChecked;
  extension_->BuildShouldTransferLabels = transfers;
  extension_->BuildUseAllLabelPoints = optAllLabelPoints.Value();
  extension_->BuildUseFirstLabelPoint = optFirstLabelPoint.Value();
  extension_->SelectedPointLayer = transfers ? PointLayer() : nullptr;
  extension_->SelectedFields = transfers ? SelectedFieldsOf(lbxFields, fields_) : nullptr;
}

void frmBuildParams::cmdOK_Click() {
  if (!output_.PlaceExists()) return;
  LeaveChoices(*extension_, LayerAt(layers_, lbxLayers.ListIndex()),
               optAll.Value() ? ToolRecords::All : ToolRecords::Selected, output_);
  extension_->BuildClusterTolerance = ToNumber(txtCluster.Text());
  LeaveLabelChoices();
  extension_->ShouldContinue = true;
  Unload();
}

void frmBuildParams::ForgetChoices(clsExtension& extension) { ForgetLayerAndFields(extension); }

void frmBuildParams::Form_Unload() {
  OutputForm::Form_Unload();
  document_ = nullptr;
  layers_ = nullptr;
  point_layers_ = nullptr;
  fields_.clear();
}

}  // namespace tessarine
