// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog of the geometry calculator: a layer, the measures to calculate, a field for each, all records or the
// selected ones, and for geographic data another spheroid. It calculates nothing itself.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "calculator/geometry_options.h"
#include "calculator/measure_choice.h"
#include "platform/application.h"
#include "platform/form.h"
#include "session/clsExtension.h"
#include "support/AnchorObjectList.h"

namespace tessarine {

/// Set up by `SetArcApplication`, then shown modally. A confirmed OK leaves `GeometryOptions` in `clsExtension` with
/// `ShouldContinue` True; any other way out leaves it False.
class frmGeometry final : public Form {
 public:
  frmGeometry();

  Image imgLayers{*this, "imgLayers"};
  Label lbSelFeatureType{*this, "lbSelFeatureType"};
  ListBox lbxLayers{*this, "lbxLayers"};
  RichTextBox txtMessage{*this, "txtMessage"};
  OptionButton optAll{*this, "optAll"};
  OptionButton optSel{*this, "optSel"};
  Image imgOptions{*this, "imgOptions"};
  Label lblSelGeometry{*this, "lblSelGeometry"};
  Label lblFields{*this, "lblFields"};
  CheckBox chk1{*this, "chk1"};
  CheckBox chk2{*this, "chk2"};
  CheckBox chk3{*this, "chk3"};
  CheckBox chk4{*this, "chk4"};
  CheckBox chk5{*this, "chk5"};
  CheckBox chk6{*this, "chk6"};
  CheckBox chk7{*this, "chk7"};
  CheckBox chk8{*this, "chk8"};
  CheckBox chk9{*this, "chk9"};
  CheckBox chk10{*this, "chk10"};
  CheckBox chk11{*this, "chk11"};
  ComboBox cbx11{*this, "cbx11"};
  ComboBox cbx12{*this, "cbx12"};
  ComboBox cbx21{*this, "cbx21"};
  ComboBox cbx22{*this, "cbx22"};
  ComboBox cbx31{*this, "cbx31"};
  ComboBox cbx32{*this, "cbx32"};
  ComboBox cbx41{*this, "cbx41"};
  ComboBox cbx42{*this, "cbx42"};
  ComboBox cbx51{*this, "cbx51"};
  ComboBox cbx52{*this, "cbx52"};
  ComboBox cbx61{*this, "cbx61"};
  ComboBox cbx62{*this, "cbx62"};
  ComboBox cbx71{*this, "cbx71"};
  ComboBox cbx81{*this, "cbx81"};
  ComboBox cbx91{*this, "cbx91"};
  ComboBox cbx101{*this, "cbx101"};
  ComboBox cbx111{*this, "cbx111"};
  Image Line1{*this, "Line1"};
  Label lblSpheroidOptions{*this, "lblSpheroidOptions"};
  CommandButton cmdAdvanced{*this, "cmdAdvanced"};
  CommandButton cmdManual{*this, "cmdManual"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  void SetArcApplication(const std::shared_ptr<IApplication>& application);

 protected:
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;

 private:
  void lbxLayers_Click();
  void chk_Click(std::int32_t option_id);
  void cbx_LostFocus(ComboBox& combo);
  void cmdAdvanced_Click();
  void cmdManual_Click();
  void cmdOK_Click();
  void cmdCancel_Click();

  void LayOut();
  void AnchorControls();
  void ConnectEvents();

  void SetGeometryControls();
  void ShowNoLayers();
  void ShowSpheroid(const IFeatureClass& features);
  void ShowSpheroidLine();
  void ShowCatalogue(const IFeatureClass& features);
  void ShowRecordChoice(const IFeatureLayer& layer);
  void FillComboBox(ComboBox& combo, std::string_view default_name, const IFeatureClass& features);
  void CheckComboBoxEntry(ComboBox& combo);
  void CheckOK();
  [[nodiscard]] std::shared_ptr<IFeatureLayer> CurrentLayer() const;

  [[nodiscard]] std::vector<OptionEntry> ChosenOptions() const;
  [[nodiscard]] std::vector<NamedField> ChosenFields() const;
  [[nodiscard]] bool ConfirmNames(const std::vector<NamedField>& fields) const;
  /// True where there is no question, or the user agrees.
  [[nodiscard]] bool Confirm(const std::optional<NameQuestion>& question) const;

  // The option's first or second combo box, `position` 0 or 1; null where it has none.
  [[nodiscard]] ComboBox* ComboOf(std::int32_t option_id, std::int32_t position) const;

  const std::array<CheckBox*, kOptionCount> boxes_;
  const std::array<ComboBox*, kComboCount> combos_;
  std::shared_ptr<IApplication> application_;
  std::shared_ptr<IMxDocument> document_;
  std::shared_ptr<clsExtension> extension_;
  std::string selected_layer_;
  std::shared_ptr<VarArray> layers_;
  std::vector<std::string> numeric_names_;
  ComboUseFlags use_flags_{}, handed_flags_{};
  std::string spheroid_name_;
  double semi_major_ = 0.0, semi_minor_ = 0.0;
  bool geocentric_ = false;
  AnchorObjectList anchors_;
};

}  // namespace tessarine
