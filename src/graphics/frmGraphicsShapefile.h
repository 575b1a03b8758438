// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog that makes a feature class: an empty one of a chosen geometry, or one of the graphic elements of the map.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "graphics/graphics_tools.h"
#include "platform/application.h"
#include "platform/form.h"
#include "session/clsExtension.h"
#include "support/AnchorObjectList.h"
#include "support/output_chooser.h"

namespace tessarine {

/// Set up by `SetArcApplication`, then shown modally. The whole run happens behind OK: the class, the new layer and the
/// report. The form stays open where the run ends in a fault.
class frmGraphicsShapefile final : public Form {
 public:
  frmGraphicsShapefile();

  OptionButton optNew{*this, "optNew"};
  Frame frmNew{*this, "frmNew"};
  OptionButton optPoint{*this, "optPoint"};
  OptionButton optPolyline{*this, "optPolyline"};
  OptionButton optPolygon{*this, "optPolygon"};
  OptionButton optConvert{*this, "optConvert"};
  ListBox lbxGraphics{*this, "lbxGraphics"};
  CheckBox chkSelected{*this, "chkSelected"};
  CommandButton cmdSpRef{*this, "cmdSpRef"};
  Label lblSpRef{*this, "lblSpRef"};
  Label lblOutputName{*this, "lblOutputName"};
  TextBox txtOutput{*this, "txtOutput"};
  CommandButton cmdGetWorkspace{*this, "cmdGetWorkspace"};
  CommandButton cmdHelp{*this, "cmdHelp"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  void SetArcApplication(const std::shared_ptr<IApplication>& application);

 protected:
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;

 private:
  void chkSelected_Click();
  void lbxGraphics_Click();
  void Mode_Click();
  void Shape_Click();
  void cmdSpRef_Click();
  void txtOutput_Change();
  void cmdGetWorkspace_Click();
  void cmdOK_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();

  void SetTexts();
  void SetEvents();
  void LayOut();
  void SetAnchors();
  void FillGraphicsArrays();
  void FillGraphicsListBox();
  void OfferConversions();
  void OfferNoConversion(const char* line);
  void ShowReference();
  void ShowOutput(OutputPlace place);
  void CheckEnable();

  [[nodiscard]] bool SelectedOnly() const { return chkSelected.Value() == CheckBox::kChecked; }
  [[nodiscard]] OutputPlace TypedPlace() const;
  /// What the tools for conversions and for empty classes take.
  [[nodiscard]] Arguments Chosen() const;
  [[nodiscard]] std::optional<Objection> ObjectionToChoice() const;

  std::shared_ptr<IApplication> application_;
  std::shared_ptr<IMxDocument> document_;
  std::shared_ptr<clsExtension> extension_;
  GraphicsAtHand graphics_;
  SpatialReferenceRef reference_;  // of the output
  OutputPlace output_;
  AnchorObjectList anchors_;
};

}  // namespace tessarine
