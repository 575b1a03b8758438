// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog in front of both conversions of planetary latitudes: a layer in degrees, the spheroid, a shift and a wrap
// of the longitudes, and the output.
#pragma once

#include <memory>
#include <string>

#include "planetary/LongitudeForm.h"

namespace tessarine {

/// Set up by `SetArcApplication`, then shown modally. A valid OK leaves its choices in `frmGeoCentricReturn` of the
/// extension, as `GeoCentricArguments` reads them, with `ShouldContinue` True; any other way out leaves nothing and
/// False.
class frmGeoCentric final : public LongitudeForm {
 public:
  frmGeoCentric();

  Label lblCurrent{*this, "lblCurrent"};
  Label lblMajor{*this, "lblMajor"};
  TextBox txtMajor{*this, "txtMajor"};
  Label lblM1{*this, "lblM1"};
  Label lblMinor{*this, "lblMinor"};
  TextBox txtMinor{*this, "txtMinor"};
  Label lblM2{*this, "lblM2"};
  CommandButton cmdGetSpheroid{*this, "cmdGetSpheroid"};
  OptionButton optNoWrap{*this, "optNoWrap"};

  /// The input is a list that `GeoCentricInput` makes.
  void SetArcApplication(const std::shared_ptr<VarArray>& input);

 protected:
  void Form_Load() override;
  void lbxLayers_Click() override;
  void cmdOK_Click() override;
  void ForgetChoices(clsExtension& extension) override;

 private:
  void LayOut();
  void cmdGetSpheroid_Click();
  void ShowSpheroid(const std::string& name, double semi_major_axis, double semi_minor_axis);
  void TakeTypedAxis(const TextBox& box, double& axis);
  void UseSpheroidName(const std::string& name);
  [[nodiscard]] bool AxesAreValid();

  std::string spheroid_name_;
  double semi_major_axis_ = 0.0, semi_minor_axis_ = 0.0;
  bool listening_ = true;  ///< False while the dialog itself writes the boxes
  std::int32_t option_ = kCustomOrNoWrap;
};

}  // namespace tessarine
