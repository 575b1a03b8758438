// SPDX-License-Identifier: GPL-2.0-or-later
// The face of the dialog: captions, rectangles, colours, tab order and anchors.
#include "calculator/frmGeometry.h"

#include "platform/host.h"
#include "platform/report_heads.h"
#include "platform/trap.h"

namespace tessarine {
namespace {

constexpr std::int32_t kOddRow = 0xE2DED6;
constexpr std::int32_t kEvenRow = 0xEBE7DF;
constexpr std::int32_t kForm = 0xD4D0C8;

constexpr const char* kHelp =
    "\\viewkind4\\uc1\\pard\\f0\\fs16 This function will calculate a "
    "number of geometric attributes of points, multipoints, polygons and polylines and add them to your "
    "feature attribute table.  You may add the attributes to existing fields or create new fields.  "
    "Please refer to the manual for descriptions of the geometric measures. "
    "\\b Important:\\b0   This function will modify your feature class!  If you are concerned about this, "
    "please make a backup copy of your data before running this function.\\fs20\\par\r\n"
    "}";

constexpr double kFirstRow = 114.0;
constexpr double kRowHeight = 15.0;

}  // namespace

frmGeometry::frmGeometry()
    : Form("frmGeometry"),
      boxes_{&chk1, &chk2, &chk3, &chk4, &chk5, &chk6, &chk7, &chk8, &chk9, &chk10, &chk11},
      combos_{&cbx11, &cbx12, &cbx21, &cbx22, &cbx31, &cbx32, &cbx41,  &cbx42, &cbx51,
              &cbx52, &cbx61, &cbx62, &cbx71, &cbx81, &cbx91, &cbx101, &cbx111} {
  SetCaption(" Calculate Geometry");
  lbSelFeatureType.SetCaption("Selected Feature Class and Characteristics");
  lblSelGeometry.SetCaption("Select &Geometry:");
  lblFields.SetCaption("Enter name for new &field, or select existing field:");
  lblSpheroidOptions.SetCaption("Spheroid Parameters:");
  optAll.SetCaption("Calculate All Records");
  optSel.SetCaption("Only Selected Records");
  cmdAdvanced.SetCaption("&Advanced");
  cmdManual.SetCaption("&Manual");
  cmdOK.SetCaption("OK");
  cmdCancel.SetCaption("Cancel");
  cmdOK.Default = true;
  cmdCancel.Cancel = true;
  LayOut();
  ConnectEvents();
}

void frmGeometry::LayOut() {
  SetSize(420, 326);
  SetMinimumSize(380, 310);
  imgLayers.SetResourceId(203);
  imgLayers.Move(7, 6, 10, 10);
  lbSelFeatureType.Move(20, 7, 240, 9);
  lbxLayers.Move(7, 18, 200, 58);
  txtMessage.Move(213, 18, 200, 58);
  optAll.Move(7, 81, 200, 11);
  optSel.Move(213, 81, 200, 11);
  imgOptions.SetResourceId(204);
  imgOptions.Move(7, 99, 10, 10);
  lblSelGeometry.Move(20, 100, 115, 9);
  lblFields.Move(141, 100, 272, 9);
  for (std::int32_t id = 1; id <= kOptionCount; ++id) {
    const double top = kFirstRow + kRowHeight * (id - 1);
    boxes_[static_cast<std::size_t>(id - 1)]->Move(7, top, 130, 13);
    ComboOf(id, 0)->Move(141, top, 134, 13);
    if (ComboBox* second = ComboOf(id, 1)) second->Move(279, top, 134, 13);
  }
  Line1.Move(7, 283, 406, 1);
  lblSpheroidOptions.Move(7, 288, 406, 9);
  cmdAdvanced.Move(7, 304, 56, 14);
  cmdManual.Move(67, 304, 56, 14);
  cmdOK.Move(297, 304, 56, 14);
  cmdCancel.Move(357, 304, 56, 14);
  lbxLayers.SetBackColor(kWindowBackground);

  std::vector<Control*> order = {&lbSelFeatureType, &lbxLayers, &txtMessage, &optAll, &optSel, &lblSelGeometry};
  for (std::int32_t id = 1; id <= kOptionCount; ++id) {
    order.push_back(boxes_[static_cast<std::size_t>(id - 1)]);
    // The caption's mnemonic leads to the first combo box.
    if (id == 1) order.push_back(&lblFields);
    order.push_back(ComboOf(id, 0));
    if (ComboBox* second = ComboOf(id, 1)) order.push_back(second);
  }
  for (Control* control :
       std::initializer_list<Control*>{&lblSpheroidOptions, &cmdAdvanced, &cmdManual, &cmdOK, &cmdCancel}) {
    order.push_back(control);
  }
  std::int32_t tab_index = 0;
  for (Control* control : order) control->SetTabIndex(tab_index++);
}

void frmGeometry::AnchorControls() {
  anchors_.Hold({
      {imgLayers, enumStartSize, enumStartSize},
      {lbSelFeatureType, enumStartSize, enumStartSize},
      {lbxLayers, enumNone, enumStartEnd},
      {txtMessage, enumNone, enumStartEnd},
      {optAll, enumNone, enumSizeEnd},
      {optSel, enumNone, enumSizeEnd},
      {imgOptions, enumStartSize, enumSizeEnd},
      {lblSelGeometry, enumStartSize, enumSizeEnd},
      {lblFields, enumNone, enumSizeEnd},
      {Line1, enumStartEnd, enumSizeEnd},
      {cmdAdvanced, enumStartSize, enumSizeEnd},
      {lblSpheroidOptions, enumStartEnd, enumSizeEnd},
      {cmdManual, enumStartSize, enumSizeEnd},
      {cmdOK, enumSizeEnd, enumSizeEnd},
      {cmdCancel, enumSizeEnd, enumSizeEnd},
  });
  for (CheckBox* box : boxes_) anchors_.Item(*box).SetAnchors(enumNone, enumSizeEnd);
  for (ComboBox* combo : combos_) anchors_.Item(*combo).SetAnchors(enumNone, enumSizeEnd);
  anchors_.SetForm(*this);
}

void frmGeometry::Form_Load() {
  Trap("Form_Load", [this] {
    SetTopmost(true);
    MoveTo(Host().Forms().ScreenWidth() / 2 - Width() / 2, Host().Forms().ScreenHeight() / 3 - Height() / 2);
    if (!extension_) extension_ = FindExtension(application_);
    SetBackColor(kForm);
    for (std::size_t index = 0; index < boxes_.size(); ++index) {
      boxes_[index]->SetBackColor(index % 2 == 0 ? kOddRow : kEvenRow);
    }
    txtMessage.SetTextRTF(RtfHead() + std::string(kRtfGenerator) + kHelp);
    AnchorControls();
  });
}

void frmGeometry::Form_Resize() {
  Trap("Form_Resize", [this] { anchors_.DoAnchors(); });
}

}  // namespace tessarine
