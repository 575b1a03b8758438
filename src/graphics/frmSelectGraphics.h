// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog that selects graphic elements by their type, by names from a list, or by a pattern for names.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>

#include "graphics/element_selection.h"
#include "platform/application.h"
#include "platform/form.h"
#include "session/clsExtension.h"
#include "support/AnchorObjectList.h"

namespace tessarine {

/// Works on the view that the user has open: the page layout, or the focus map. What was selected before stays so.
class frmSelectGraphics final : public Form {
 public:
  frmSelectGraphics();

  Label lblInstructions{*this, "lblInstructions"};
  CheckBox chkPoints{*this, "chkPoints"};
  CheckBox chkLines{*this, "chkLines"};
  CheckBox chkPolygons{*this, "chkPolygons"};
  CheckBox chkRectangles{*this, "chkRectangles"};
  CheckBox chkEllipses{*this, "chkEllipses"};
  CheckBox chkCircles{*this, "chkCircles"};
  CheckBox chkText{*this, "chkText"};
  CheckBox chkPictures{*this, "chkPictures"};
  CheckBox chkData{*this, "chkData"};
  CheckBox chkGroup{*this, "chkGroup"};
  CheckBox chkFrames{*this, "chkFrames"};
  Label lblSelByName{*this, "lblSelByName"};
  Label lblSelFromList{*this, "lblSelFromList"};
  ListBox lbxNamesActive{*this, "lbxNamesActive"};
  ListBox lbxNamesInactive{*this, "lbxNamesInactive"};
  Label lblTypeName{*this, "lblTypeName"};
  TextBox txtName{*this, "txtName"};
  Label lblWildcards{*this, "lblWildcards"};
  CommandButton cmdHelp{*this, "cmdHelp"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdClose{*this, "cmdClose"};

  void SetArcApplication(const std::shared_ptr<IApplication>& application);

 protected:
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;

 private:
  void SetTexts();
  void LayOut();
  void FillGraphicsOptions();
  void ShowTypes(const ElementCensus& census);
  void ShowNames(const ElementCensus& census);
  void cmdOK_Click();
  void cmdClose_Click();
  void cmdHelp_Click();
  /// What the tool takes.
  [[nodiscard]] Arguments Chosen() const;

  std::shared_ptr<IApplication> application_;
  std::shared_ptr<IMxDocument> document_;
  std::shared_ptr<clsExtension> extension_;
  std::array<CheckBox*, 11> boxes_;
  std::map<std::string, std::string> names_of_lines_;  // the name of a list line
  AnchorObjectList anchors_;
};

}  // namespace tessarine
