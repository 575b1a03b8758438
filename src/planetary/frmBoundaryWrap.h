// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog in front of the wrap: a layer in degrees, the box that its features shall lie in, and the output.
#pragma once

#include <memory>
#include <optional>

#include "planetary/LongitudeForm.h"

namespace tessarine {

/// Set up by `SetArcApplication`, then shown modally. A valid OK leaves its choices in `frmBoundaryWrapReturn` of the
/// extension, as `WrapArguments` reads them, with `ShouldContinue` True; any other way out leaves nothing and False.
class frmBoundaryWrap final : public LongitudeForm {
 public:
  frmBoundaryWrap();

  OptionButton optCustom{*this, "optCustom"};
  Label lblWest{*this, "lblWest"};
  TextBox txtWest{*this, "txtWest"};
  Label lblEast{*this, "lblEast"};
  TextBox txtEast{*this, "txtEast"};
  Label lblNorth{*this, "lblNorth"};
  TextBox txtNorth{*this, "txtNorth"};
  Label lblSouth{*this, "lblSouth"};
  TextBox txtSouth{*this, "txtSouth"};
  CheckBox chkShortSteps{*this, "chkShortSteps"};
  Label lblPole{*this, "lblPole"};
  ComboBox cboPole{*this, "cboPole"};

  void SetArcApplication(const std::shared_ptr<IApplication>& application);

 protected:
  void Form_Load() override;
  void cmdOK_Click() override;
  void ForgetChoices(clsExtension& extension) override;

 private:
  void LayOut();
  void ChooseOption(std::int32_t option);
  void ShowBox(const WrapBox& box);
  void ShowSteps(const StepChoice& choice);
  void FollowShortSteps();
  [[nodiscard]] StepChoice ChosenSteps() const;
  /// The box of the chosen option; empty after the user was told what is wrong with it.
  [[nodiscard]] std::optional<WrapBox> ChosenBox();
  [[nodiscard]] std::optional<WrapBox> CustomBox();

  std::int32_t option_ = kCustomOrNoWrap;
};

}  // namespace tessarine
