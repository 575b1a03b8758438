// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog that selects graphic elements by their type, by names from a list, or by a pattern for names.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <vector>

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
  using Elements = std::vector<std::shared_ptr<IElement>>;
  /// One type of elements: its box, its words and its test.
  struct TypeRow {
    CheckBox& box;
    const char* words;
    bool (*fits)(const std::shared_ptr<IElement>& element);
    Elements elements;
  };
  struct NamedElements {
    std::string name;
    Elements elements;
  };

  void SetTexts();
  void LayOut();
  void FillGraphicsOptions();
  void Sort(const std::shared_ptr<IElement>& element);
  void ShowTypes();
  void ShowNames();
  void cmdOK_Click();
  void cmdClose_Click();
  void cmdHelp_Click();
  [[nodiscard]] bool SelectTypes(IGraphicsContainerSelect& selection) const;
  [[nodiscard]] bool SelectNames(IGraphicsContainerSelect& selection) const;
  [[nodiscard]] bool SelectPattern(IGraphicsContainer& container, IGraphicsContainerSelect& selection) const;
  [[nodiscard]] std::shared_ptr<IGraphicsContainer> Container() const;

  std::shared_ptr<IApplication> application_;
  std::shared_ptr<IMxDocument> document_;
  std::shared_ptr<clsExtension> extension_;
  std::array<TypeRow, 11> types_;
  std::map<std::string, NamedElements> names_;         // by the name without its case
  std::map<std::string, std::string> names_of_lines_;  // the key of a list line
  AnchorObjectList anchors_;
};

}  // namespace tessarine
