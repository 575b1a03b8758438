// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/frmSelectGraphics.h"

#include "platform/trap.h"
#include "support/QuickSort.h"
#include "support/manual.h"

namespace tessarine {

// In the order of `ElementTypes`.
frmSelectGraphics::frmSelectGraphics()
    : Form("frmSelectGraphics"), boxes_{&chkPoints,   &chkLines,   &chkPolygons, &chkRectangles,
                                        &chkEllipses, &chkCircles, &chkText,     &chkPictures,
                                        &chkData,     &chkGroup,   &chkFrames} {
  SetTexts();
  LayOut();
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdClose.Click = [this] { cmdClose_Click(); };
  cmdHelp.Click = [this] { cmdHelp_Click(); };
}

void frmSelectGraphics::SetTexts() {
  SetCaption(" Select Graphic Elements:");
  lblInstructions.SetCaption("Select graphic elements by type:");
  lblSelByName.SetCaption("Select graphic elements by name:");
  lblSelFromList.SetCaption("Select Name from &List:");
  lblTypeName.SetCaption("Type &Name:");
  lblWildcards.SetCaption("(can include wildcards * and &&)");
  lbxNamesActive.MultiSelect = true;
  lbxNamesInactive.AddItem("<-- No Names Found -->!");
  lbxNamesInactive.SetEnabled(false);
  lbxNamesInactive.SetVisible(false);
  cmdHelp.SetCaption("Manual");
  cmdOK.SetCaption("OK");
  cmdOK.Default = true;
  cmdClose.SetCaption("Close");
  cmdClose.Cancel = true;
}

void frmSelectGraphics::LayOut() {
  SetSize(308, 196);
  SetMinimumSize(300, 196);
  lblInstructions.Move(7, 7, 130, 9);
  std::int32_t tab_index = 0;
  for (CheckBox* box : boxes_) {
    box->Move(7, 20 + 13 * tab_index, 130, 11);
    box->SetTabIndex(tab_index++);
  }
  lblSelByName.Move(149, 7, 152, 9);
  lblSelFromList.Move(149, 20, 152, 9);
  lbxNamesActive.Move(149, 31, 152, 86);
  lbxNamesInactive.Move(149, 31, 152, 86);
  lblTypeName.Move(149, 123, 152, 9);
  txtName.Move(149, 134, 152, 13);
  lblWildcards.Move(149, 151, 152, 9);
  cmdHelp.Move(7, 175, 56, 14);
  cmdOK.Move(185, 175, 56, 14);
  cmdClose.Move(245, 175, 56, 14);
  Control* const order[] = {&lblSelFromList, &lbxNamesActive, &lbxNamesInactive, &lblTypeName, &txtName,
                            &cmdHelp,        &cmdOK,          &cmdClose};
  for (Control* control : order) control->SetTabIndex(tab_index++);
  Control* const windows[] = {&lbxNamesActive, &txtName};
  for (Control* control : windows) control->SetBackColor(kWindowBackground);
}

void frmSelectGraphics::SetArcApplication(const std::shared_ptr<IApplication>& application) {
  Trap("ArcApplication", [&] {
    application_ = application;
    document_ = Cast<IMxDocument>(application_->Document());
    extension_ = FindExtension(application_);
    FillGraphicsOptions();
  });
}

void frmSelectGraphics::FillGraphicsOptions() {
  Trap("FillGraphicsOptions", [this] {
    const ElementCensus census = TakeCensus(*document_);
    ShowTypes(census);
    ShowNames(census);
  });
}

void frmSelectGraphics::ShowTypes(const ElementCensus& census) {
  for (std::size_t index = 0; index < boxes_.size(); ++index) {
    const std::size_t count = census.of_types[index].size();
    boxes_[index]->SetEnabled(count > 0);
    boxes_[index]->SetCaption(std::string(ElementTypes()[index].caption) + " [" + std::to_string(count) + "]");
  }
}

void frmSelectGraphics::ShowNames(const ElementCensus& census) {
  const bool any = !census.names.empty();
  Control* const of_names[] = {&lblSelByName,     &lblSelFromList, &lblTypeName, &lbxNamesActive,
                               &lbxNamesInactive, &txtName,        &lblWildcards};
  for (Control* control : of_names) control->SetEnabled(any);
  txtName.SetText("");
  lbxNamesActive.Clear();
  lbxNamesActive.SetVisible(any);
  lbxNamesInactive.SetVisible(!any);
  std::vector<std::string> lines;
  names_of_lines_.clear();
  for (const auto& [key, entry] : census.names) {
    lines.push_back(entry.name + " [" + std::to_string(entry.elements.size()) + "]");
    names_of_lines_[lines.back()] = entry.name;
  }
  QuickSort::StringsAscending(lines, 0, static_cast<std::int32_t>(lines.size()) - 1);
  for (const std::string& line : lines) lbxNamesActive.AddItem(line);
}

Arguments frmSelectGraphics::Chosen() const {
  Arguments arguments;
  for (std::size_t index = 0; index < boxes_.size(); ++index) {
    if (boxes_[index]->Value() == CheckBox::kChecked) arguments.Set(ElementTypes()[index].word, true);
  }
  std::vector<std::string> names;
  for (std::int32_t line = 0; line < lbxNamesActive.ListCount(); ++line) {
    if (lbxNamesActive.Selected(line)) names.push_back(names_of_lines_.at(lbxNamesActive.List(line)));
  }
  if (!names.empty()) arguments.Set("name", names);
  if (!txtName.Text().empty()) arguments.Set("pattern", txtName.Text());
  return arguments;
}

void frmSelectGraphics::cmdOK_Click() {
  Trap("cmdOK_Click", [this] {
    SelectElements(Chosen(), document_);
    Unload();
  });
}

void frmSelectGraphics::cmdClose_Click() {
  Trap("cmdClose_Click", [this] { Unload(); });
}

void frmSelectGraphics::cmdHelp_Click() {
  Trap("cmdHelp_Click", [] { MyGeneralOperations::OpenManual(); });
}

void frmSelectGraphics::Form_Load() {
  Trap("Form_Load", [this] {
    SetTopmost(true);
    MoveToUpperMiddle();
    anchors_.Hold({
        {lblSelByName, enumStartEnd, enumStartSize},
        {lblSelFromList, enumStartEnd, enumStartSize},
        {lbxNamesActive, enumStartEnd, enumStartEnd},
        {lbxNamesInactive, enumStartEnd, enumStartEnd},
        {lblTypeName, enumStartEnd, enumSizeEnd},
        {txtName, enumStartEnd, enumSizeEnd},
        {lblWildcards, enumStartEnd, enumSizeEnd},
        {cmdHelp, enumStartSize, enumSizeEnd},
        {cmdOK, enumSizeEnd, enumSizeEnd},
        {cmdClose, enumSizeEnd, enumSizeEnd},
    });
    anchors_.SetForm(*this);
  });
}

void frmSelectGraphics::Form_Resize() {
  Trap("Form_Resize", [this] { anchors_.DoAnchors(); });
}

void frmSelectGraphics::Form_Unload() {
  application_ = nullptr;
  document_ = nullptr;
  extension_ = nullptr;
}

}  // namespace tessarine
