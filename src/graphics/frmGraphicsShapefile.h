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
#include "support/output_form.h"

namespace tessarine {

/// Set up by `SetArcApplication`, then shown modally. The whole run happens behind OK: the class, the new layer and the
/// report. The form stays open where the run ends in a fault.
class frmGraphicsShapefile final : public OutputForm {
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

  void SetArcApplication(const std::shared_ptr<IApplication>& application);

 protected:
  void Form_Load() override;
  void Form_Unload() override;
  void cmdOK_Click() override;
  void cmdGetWorkspace_Click() override;

 private:
  void chkSelected_Click();
  void lbxGraphics_Click();
  void Mode_Click();
  void Shape_Click();
  void cmdSpRef_Click();

  void SetTexts();
  void SetEvents();
  void LayOut();
  void SetAnchors();
  void FillGraphicsArrays();
  void FillGraphicsListBox();
  void OfferConversions();
  void OfferNoConversion(const char* line);
  void ShowReference();
  void CheckEnable();

  [[nodiscard]] bool SelectedOnly() const { return chkSelected.Value() == CheckBox::kChecked; }
  [[nodiscard]] OutputPlace TypedPlace() const;
  /// What the tools for conversions and for empty classes take.
  [[nodiscard]] Arguments Chosen() const;
  [[nodiscard]] std::optional<Objection> ObjectionToChoice() const;

  std::shared_ptr<IMxDocument> document_;
  GraphicsAtHand graphics_;
  SpatialReferenceRef reference_;  // of the output
};

}  // namespace tessarine
