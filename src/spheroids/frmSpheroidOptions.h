// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog that picks a spheroid: from the custom file, from the planets, from Earth, or by its two radii.
#pragma once

#include <memory>
#include <string>

#include "platform/form.h"
#include "session/clsExtension.h"
#include "spheroids/spheroid_lists.h"
#include "support/AnchorObjectList.h"

namespace tessarine {

/// Set up by `SetArcApplication`, then shown modally. The choice stands in the extension: `CurrentSpheroidCanceled`
/// is False after OK alone, and only then are `CurrentSpheroidName`, `CurrentSpheroidMajorAxis` and
/// `CurrentSpheroidMinorAxis` (metres) new.
class frmSpheroidOptions : public Form {
 public:
  frmSpheroidOptions();

  Label lblUSGS{*this, "lblUSGS"};
  ComboBox cbxUSGS{*this, "cbxUSGS"};
  CommandButton cmdLoadUSGS{*this, "cmdLoadUSGS"};
  Label lblESRIPlanetary{*this, "lblESRIPlanetary"};
  ComboBox cbxESRIPlanets{*this, "cbxESRIPlanets"};
  CommandButton cmdLoadESRIPlanetary{*this, "cmdLoadESRIPlanetary"};
  Label lblESRIEarth{*this, "lblESRIEarth"};
  ComboBox cbxESRIEarth{*this, "cbxESRIEarth"};
  CommandButton cmdLoadESRIEarth{*this, "cmdLoadESRIEarth"};
  CommandButton cmdLoadCurrent{*this, "cmdLoadCurrent"};
  Label lblCurrent{*this, "lblCurrent"};
  Label lblMajor{*this, "lblMajor"};
  TextBox txtMajor{*this, "txtMajor"};
  Label lblM1{*this, "lblM1"};
  Label lblMinor{*this, "lblMinor"};
  TextBox txtMinor{*this, "txtMinor"};
  Label lblM2{*this, "lblM2"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};
  CommandButton cmdManual{*this, "cmdManual"};

  /// The input is a list that `SpheroidDialogInput` makes.
  void SetArcApplication(const std::shared_ptr<VarArray>& input);

 protected:
  explicit frmSpheroidOptions(std::string name);

  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;

  /// What OK leaves in the extension.
  virtual void LeaveAnswer(clsExtension& extension) const;

  /// Puts the three buttons into a row at this height, with the form's lower edge below it.
  void PlaceButtons(double top);
  [[nodiscard]] AnchorObjectList& Anchors() { return anchors_; }

 private:
  /// A name with its axes in metres.
  struct Parameters {
    std::string name;
    double semi_major_axis = 0.0, semi_minor_axis = 0.0;
  };

  void cmdLoadCurrent_Click();
  void txtMajor_Change();
  void txtMinor_Change();
  void cmdOK_Click();
  void cmdCancel_Click();

  void LayOut();
  void ConnectEvents();
  void FillCustomList();
  static void FillList(ComboBox& combo, const StrArray& names);
  void LoadFrom(const SpheroidNames& list, const ComboBox& combo);
  void Show(const Parameters& parameters);
  void TakeTypedAxis(const TextBox& box, double& axis);
  void CheckOK();

  std::shared_ptr<clsExtension> extension_;
  SpheroidNames custom_, planets_, earth_;
  Parameters received_, working_;
  bool listening_ = false;  ///< False while the dialog itself writes the boxes
  AnchorObjectList anchors_;
};

}  // namespace tessarine
