// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/frmSelectGraphics.h"

#include "graphics/element_names.h"
#include "platform/letter_case.h"
#include "platform/trap.h"
#include "support/QuickSort.h"
#include "support/manual.h"

namespace tessarine {
namespace {

constexpr std::int32_t kRepaintPhases = esriViewGeography | esriViewGraphics | esriViewGraphicSelection;

template <class Kind>
bool Fits(const std::shared_ptr<IElement>& element) {
  return Is<Kind>(element);
}

std::string NameOf(const std::shared_ptr<IElement>& element) {
  const auto properties = Cast<IElementProperties>(element);
  return properties ? properties->Name() : "";
}

}  // namespace

// The order of the rows decides: an element belongs to the first whose test it passes.
frmSelectGraphics::frmSelectGraphics()
    : Form("frmSelectGraphics"),
      types_{TypeRow{chkPoints, "Points", Fits<IMarkerElement>, {}},
             TypeRow{chkLines, "Lines", Fits<ILineElement>, {}},
             TypeRow{chkPolygons, "Polygons", Fits<IPolygonElement>, {}},
             TypeRow{chkRectangles, "Rectangles", Fits<IRectangleElement>, {}},
             TypeRow{chkEllipses, "Ellipses", Fits<IEllipseElement>, {}},
             TypeRow{chkCircles, "Circles", Fits<ICircleElement>, {}},
             TypeRow{chkText, "Text", Fits<ITextElement>, {}},
             TypeRow{chkPictures, "Pictures", Fits<IPictureElement>, {}},
             TypeRow{chkData, "Data Graphs", Fits<IDataGraphElement>, {}},
             TypeRow{chkGroup, "Group Elements", Fits<IGroupElement>, {}},
             TypeRow{chkFrames, "Frames", Fits<IFrameElement>, {}}} {
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
  for (const TypeRow& row : types_) {
    row.box.Move(7, 20 + 13 * tab_index, 130, 11);
    row.box.SetTabIndex(tab_index++);
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

std::shared_ptr<IGraphicsContainer> frmSelectGraphics::Container() const {
  const bool layout = Is<IPageLayout>(document_->ActiveView());
  const auto container =
      layout ? Cast<IGraphicsContainer>(document_->PageLayout()) : Cast<IGraphicsContainer>(document_->FocusMap());
  return Require(container, "IGraphicsContainer");
}

void frmSelectGraphics::FillGraphicsOptions() {
  Trap("FillGraphicsOptions", [this] {
    for (TypeRow& row : types_) row.elements.clear();
    names_.clear();
    names_of_lines_.clear();
    const std::shared_ptr<IGraphicsContainer> container = Container();
    container->Reset();
    while (const std::shared_ptr<IElement> element = container->Next()) Sort(element);
    ShowTypes();
    ShowNames();
  });
}

void frmSelectGraphics::Sort(const std::shared_ptr<IElement>& element) {
  if (const std::string name = NameOf(element); !name.empty()) {
    NamedElements& entry = names_[FoldedCase(name)];
    if (entry.elements.empty()) entry.name = name;
    entry.elements.push_back(element);
  }
  for (TypeRow& row : types_) {
    if (!row.fits(element)) continue;
    row.elements.push_back(element);
    return;
  }
}

void frmSelectGraphics::ShowTypes() {
  for (const TypeRow& row : types_) {
    row.box.SetEnabled(!row.elements.empty());
    row.box.SetCaption(std::string(row.words) + " [" + std::to_string(row.elements.size()) + "]");
  }
}

void frmSelectGraphics::ShowNames() {
  const bool any = !names_.empty();
  Control* const of_names[] = {&lblSelByName,     &lblSelFromList, &lblTypeName, &lbxNamesActive,
                               &lbxNamesInactive, &txtName,        &lblWildcards};
  for (Control* control : of_names) control->SetEnabled(any);
  txtName.SetText("");
  lbxNamesActive.Clear();
  lbxNamesActive.SetVisible(any);
  lbxNamesInactive.SetVisible(!any);
  std::vector<std::string> lines;
  for (const auto& [key, entry] : names_) {
    lines.push_back(entry.name + " [" + std::to_string(entry.elements.size()) + "]");
    names_of_lines_[lines.back()] = key;
  }
  QuickSort::StringsAscending(lines, 0, static_cast<std::int32_t>(lines.size()) - 1);
  for (const std::string& line : lines) lbxNamesActive.AddItem(line);
}

bool frmSelectGraphics::SelectTypes(IGraphicsContainerSelect& selection) const {
  bool any = false;
  for (const TypeRow& row : types_) {
    if (row.box.Value() != CheckBox::kChecked) continue;
    for (const auto& element : row.elements) selection.SelectElement(element), any = true;
  }
  return any;
}

bool frmSelectGraphics::SelectNames(IGraphicsContainerSelect& selection) const {
  bool any = false;
  for (std::int32_t line = 0; line < lbxNamesActive.ListCount(); ++line) {
    if (!lbxNamesActive.Selected(line)) continue;
    const std::string& key = names_of_lines_.at(lbxNamesActive.List(line));
    for (const auto& element : names_.at(key).elements) selection.SelectElement(element), any = true;
  }
  return any;
}

bool frmSelectGraphics::SelectPattern(IGraphicsContainer& container, IGraphicsContainerSelect& selection) const {
  if (txtName.Text().empty()) return false;
  bool any = false;
  container.Reset();
  while (const std::shared_ptr<IElement> element = container.Next()) {
    if (selection.ElementSelected(element)) continue;
    const std::string name = NameOf(element);
    if (name.empty() || !MatchesPattern(name, txtName.Text())) continue;
    selection.SelectElement(element);
    any = true;
  }
  return any;
}

void frmSelectGraphics::cmdOK_Click() {
  Trap("cmdOK_Click", [this] {
    const std::shared_ptr<IGraphicsContainer> container = Container();
    const auto selection = Cast<IGraphicsContainerSelect>(container);
    Require(selection, "IGraphicsContainerSelect");
    bool any = SelectTypes(*selection);
    any = SelectNames(*selection) || any;
    any = SelectPattern(*container, *selection) || any;
    if (any) {
      document_->ActiveView()->PartialRefresh(kRepaintPhases, nullptr, nullptr);
      Require(Cast<IDocumentDirty>(document_), "IDocumentDirty")->SetDirty();
    }
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
  for (TypeRow& row : types_) row.elements.clear();
  names_.clear();
  application_ = nullptr;
  document_ = nullptr;
  extension_ = nullptr;
}

}  // namespace tessarine
