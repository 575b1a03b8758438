// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog in front of the eight conversions: an input layer, the attribute fields to carry over, all records or
// the selected ones, and the output feature class.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/application.h"
#include "platform/form.h"
#include "session/clsExtension.h"
#include "support/output_form.h"

namespace tessarine {

/// Set up by `SetArcApplication`, then `SetConversionOption`; then shown modally. A valid OK leaves the choices in
/// `clsExtension` with `ShouldContinue` True; any other way out leaves it False.
class frmLayerFields final : public OutputForm {
 public:
  frmLayerFields();

  Label lblLayer{*this, "lblLayer"};
  ListBox lbxLayers{*this, "lbxLayers"};
  Label lblFields{*this, "lblFields"};
  ListBox lbxFields{*this, "lbxFields"};
  CommandButton cmdSelFields{*this, "cmdSelFields"};
  OptionButton optAll{*this, "optAll"};
  OptionButton optSel{*this, "optSel"};
  TextBox txtMessage{*this, "txtMessage"};

  void SetArcApplication(const std::shared_ptr<IApplication>& application);
  /// One of 1, 2, 4, 8, 16, 32, 64, 128. Any other value leaves the lists empty and still proposes an output.
  void SetConversionOption(std::int32_t option);
  [[nodiscard]] std::int32_t ConversionOption() const { return conversion_option_; }

 protected:
  void Form_Load() override;
  void Form_Unload() override;
  void cmdOK_Click() override;
  void ForgetChoices(clsExtension& extension) override;

 private:
  void lbxLayers_Click();
  void cmdSelFields_Click();
  void optAll_Click();

  void LayOut();
  void FillLayers();
  void ShowRecordCounts(const std::shared_ptr<IFeatureLayer>& layer);
  void UpdateSelName();
  void UpdateOkState();
  [[nodiscard]] std::shared_ptr<IFeatureLayer> CurrentLayer() const;

  std::shared_ptr<IMxDocument> document_;
  std::int32_t conversion_option_ = 0;
  std::shared_ptr<VarArray> layers_;
  std::vector<FieldRef> fields_;
  bool all_selected_ = false;
  std::string preferred_layer_;
};

}  // namespace tessarine
