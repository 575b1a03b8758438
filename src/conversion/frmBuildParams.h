// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog in front of the building of polygons: a polyline layer with a cluster tolerance, the output, and the
// points whose attributes the polygons take.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/application.h"
#include "platform/form.h"
#include "session/clsExtension.h"
#include "support/output_form.h"

namespace tessarine {

/// Set up by `SetArcApplication`, then shown modally. A valid OK leaves the choices in `clsExtension` with
/// `ShouldContinue` True; any other way out leaves it False.
class frmBuildParams final : public OutputForm {
 public:
  frmBuildParams();

  Label lblLayer{*this, "lblLayer"};
  ListBox lbxLayers{*this, "lbxLayers"};
  Frame framePolylines{*this, "framePolylines"};
  OptionButton optAll{*this, "optAll"};
  OptionButton optSel{*this, "optSel"};
  Label lblTolerance{*this, "lblTolerance"};
  TextBox txtCluster{*this, "txtCluster"};
  Label lblUnits{*this, "lblUnits"};
  CheckBox chkUseLabelPoints{*this, "chkUseLabelPoints"};
  Label lblLabelPoints{*this, "lblLabelPoints"};
  ComboBox cbxPointLayers{*this, "cbxPointLayers"};
  Frame frameLabelPoints{*this, "frameLabelPoints"};
  OptionButton optAllLabelPoints{*this, "optAllLabelPoints"};
  OptionButton optSelLabelPoints{*this, "optSelLabelPoints"};
  Frame frameWhichPoint{*this, "frameWhichPoint"};
  Label lblChooseLabelPoint{*this, "lblChooseLabelPoint"};
  OptionButton optFirstLabelPoint{*this, "optFirstLabelPoint"};
  OptionButton optCentroidLabelPoint{*this, "optCentroidLabelPoint"};
  Label lblFields{*this, "lblFields"};
  ListBox lbxFields{*this, "lbxFields"};
  CommandButton cmdSelFields{*this, "cmdSelFields"};
  TextBox txtMessage{*this, "txtMessage"};

  /// Fills the whole form from the map and from what the last run left.
  void SetArcApplication(const std::shared_ptr<IApplication>& application);

 protected:
  void Form_Load() override;
  void Form_Unload() override;
  void cmdGetWorkspace_Click() override;
  void cmdOK_Click() override;
  void ForgetChoices(clsExtension& extension) override;

 private:
  void lbxLayers_Click();
  void cbxPointLayers_Click();
  void chkUseLabelPoints_Click();
  void cmdSelFields_Click();
  void optAll_Click();
  void txtCluster_KeyPress(std::int32_t& key_ascii);

  void SetTexts();
  void SetEvents();
  void LayOut();
  void FillPointLayers();
  void FillLineLayers();
  void SetLabelPointParams();
  void EnableLabelControls(bool enabled);
  void UpdateSelName();
  void CheckOK();
  void LeaveLabelChoices();
  [[nodiscard]] std::shared_ptr<IFeatureLayer> PointLayer() const;

  std::shared_ptr<IMxDocument> document_;
  std::shared_ptr<VarArray> layers_, point_layers_;
  std::vector<FieldRef> fields_;
  bool all_selected_ = false;
  bool points_selected_ = false;  // the point layer has a selection
  std::string preferred_layer_;
};

}  // namespace tessarine
