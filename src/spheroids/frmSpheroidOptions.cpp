// SPDX-License-Identifier: GPL-2.0-or-later
#include "spheroids/frmSpheroidOptions.h"

#include "platform/text_formats.h"
#include "platform/trap.h"
#include "spheroids/USGS_Functions.h"
#include "spheroids/spheroid_entries.h"
#include "support/MyGeneralOperations.h"
#include "support/QuickSort.h"
#include "support/aml_func_mod.h"
#include "support/manual.h"

namespace tessarine {
namespace {

constexpr const char* kMissingFile = "<-- Missing 'Spheroids.dat' file -->";
constexpr const char* kCurrentSpheroid = "Current Spheroid = ";
constexpr double kNoAxis = -999.0;
constexpr int kAxisDecimals = 13;

std::string AxisText(double axis) {
  const std::string text = aml_func_mod::BasicTrimAvenue(FixedText(axis, kAxisDecimals), "", "0");
  return aml_func_mod::BasicTrimAvenue(text, "", ".");
}

// A name inside a caption, where a single "&" would mark a mnemonic.
std::string InCaption(const std::string& name) { return Replace(name, "&", "&&"); }

}  // namespace

frmSpheroidOptions::frmSpheroidOptions() : frmSpheroidOptions("frmSpheroidOptions") {}

frmSpheroidOptions::frmSpheroidOptions(std::string name) : Form(std::move(name)) {
  SetCaption(" Spheroid Parameters:");
  lblUSGS.SetCaption("&Custom Spheroids [from ..\\install_dir\\spheroid.dat:]");
  lblESRIPlanetary.SetCaption("ESRI &Planetary Spheroids:");
  lblESRIEarth.SetCaption("ESRI &Earth Spheroids (Common):");
  for (CommandButton* load : {&cmdLoadUSGS, &cmdLoadESRIPlanetary, &cmdLoadESRIEarth}) load->SetCaption("Load");
  lblMajor.SetCaption("Semi-M&ajor (Equatorial) Radius =");
  lblMinor.SetCaption("Semi-M&inor (Polar) Radius =");
  for (Label* unit : {&lblM1, &lblM2}) unit->SetCaption("Meters");
  cmdOK.SetCaption("OK");
  cmdCancel.SetCaption("Cancel");
  cmdManual.SetCaption("Manual");
  cmdOK.SetEnabled(false);
  cmdOK.Default = true;
  cmdCancel.Cancel = true;
  ConnectEvents();
  LayOut();
}

void frmSpheroidOptions::ConnectEvents() {
  cmdLoadUSGS.Click = [this] { Trap("cmdLoadUSGS_Click", [this] { LoadFrom(custom_, cbxUSGS); }); };
  cmdLoadESRIPlanetary.Click = [this] {
    Trap("cmdLoadESRIPlanetary_Click", [this] { LoadFrom(planets_, cbxESRIPlanets); });
  };
  cmdLoadESRIEarth.Click = [this] { Trap("cmdLoadESRIEarth_Click", [this] { LoadFrom(earth_, cbxESRIEarth); }); };
  cmdLoadCurrent.Click = [this] { cmdLoadCurrent_Click(); };
  txtMajor.Change = [this] { txtMajor_Change(); };
  txtMinor.Change = [this] { txtMinor_Change(); };
  for (TextBox* box : {&txtMajor, &txtMinor}) {
    box->Numeric = true;
    box->KeyPress = [box](std::int32_t& key) { MyGeneralOperations::CheckNumericRealPositive(key, *box); };
  }
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdManual.Click = [] { Trap("cmdManual_Click", [] { MyGeneralOperations::OpenManual(); }); };
}

void frmSpheroidOptions::LayOut() {
  struct ListRow {
    Label& label;
    ComboBox& combo;
    CommandButton& load;
    double top;
  };
  for (const ListRow& row :
       {ListRow{lblUSGS, cbxUSGS, cmdLoadUSGS, 7}, ListRow{lblESRIPlanetary, cbxESRIPlanets, cmdLoadESRIPlanetary, 37},
        ListRow{lblESRIEarth, cbxESRIEarth, cmdLoadESRIEarth, 67}}) {
    row.label.Move(7, row.top, 286, 9);
    row.combo.Move(7, row.top + 10, 226, 14);
    row.load.Move(237, row.top + 10, 56, 14);
    row.combo.DropDownList = true;
    row.combo.SetBackColor(kWindowBackground);
  }
  cmdLoadCurrent.Move(7, 99, 286, 14);
  lblCurrent.Move(7, 121, 286, 9);
  lblCurrent.SetBold(true);
  lblMajor.Move(7, 137, 130, 9);
  txtMajor.Move(141, 135, 112, 13);
  lblM1.Move(257, 137, 36, 9);
  lblMinor.Move(7, 154, 130, 9);
  txtMinor.Move(141, 152, 112, 13);
  lblM2.Move(257, 154, 36, 9);
  for (TextBox* box : {&txtMajor, &txtMinor}) box->SetBackColor(kWindowBackground);
  PlaceButtons(177);

  std::int32_t tab_index = 0;
  Control* const tab_order[] = {
      &lblUSGS,      &cbxUSGS,      &cmdLoadUSGS,      &lblESRIPlanetary, &cbxESRIPlanets, &cmdLoadESRIPlanetary,
      &lblESRIEarth, &cbxESRIEarth, &cmdLoadESRIEarth, &cmdLoadCurrent,   &lblCurrent,     &lblMajor,
      &txtMajor,     &lblM1,        &lblMinor,         &txtMinor,         &lblM2,          &cmdManual,
      &cmdOK,        &cmdCancel};
  for (Control* control : tab_order) control->SetTabIndex(tab_index++);
}

void frmSpheroidOptions::PlaceButtons(double top) {
  cmdManual.Move(7, top, 56, 14);
  cmdOK.Move(177, top, 56, 14);
  cmdCancel.Move(237, top, 56, 14);
  SetSize(300, top + 21);
  SetMinimumSize(300, top + 21);
}

void frmSpheroidOptions::SetArcApplication(const std::shared_ptr<VarArray>& input) {
  Trap("ArcApplication", [&] {
    const SpheroidDialogInput given(Require(input, "dialog input"));
    extension_ = Require(given.Extension(), "clsExtension");
    // From here on nothing but OK counts, even when the lists fail.
    extension_->CurrentSpheroidCanceled = true;
    received_ = {given.Name(), given.SemiMajorAxis(), given.SemiMinorAxis()};
    cmdLoadCurrent.SetCaption("Load '" + InCaption(received_.name) + "' Parameters");
    listening_ = false;
    working_ = received_;
    lblCurrent.SetCaption(kCurrentSpheroid + InCaption(working_.name));
    txtMajor.SetText(AxisText(working_.semi_major_axis));
    txtMinor.SetText(AxisText(working_.semi_minor_axis));

    const SpheroidLists lists(Require(USGS_Functions::GetSpheroids(), "GetSpheroids"));
    custom_ = lists.Custom();
    planets_ = lists.Planets();
    earth_ = lists.Earth();
    FillCustomList();
    FillList(cbxESRIPlanets, *planets_.names);
    FillList(cbxESRIEarth, *earth_.names);
    listening_ = true;
    CheckOK();
  });
}

void frmSpheroidOptions::FillCustomList() {
  const bool there = custom_.rows != nullptr;
  cbxUSGS.SetEnabled(there);
  cbxUSGS.SetBackColor(there ? kWindowBackground : kButtonFace);
  FillList(cbxUSGS, there ? *custom_.names : StrArray{kMissingFile});
}

void frmSpheroidOptions::FillList(ComboBox& combo, const StrArray& names) {
  std::vector<std::string> sorted(names.begin(), names.end());
  QuickSort::StringsAscending(sorted, 0, static_cast<std::int32_t>(sorted.size()) - 1);
  combo.Clear();
  for (std::string& name : sorted) combo.AddItem(std::move(name));
  if (combo.ListCount() > 0) combo.SetListIndex(0);
}

void frmSpheroidOptions::LoadFrom(const SpheroidNames& list, const ComboBox& combo) {
  const SpheroidRow row = list.Row(combo.Text());
  Show({row.Name(), row.SemiMajorAxis(), row.SemiMinorAxis()});
}

void frmSpheroidOptions::cmdLoadCurrent_Click() {
  Trap("cmdLoadCurrent_Click", [this] { Show(received_); });
}

void frmSpheroidOptions::Show(const Parameters& parameters) {
  lblCurrent.SetCaption(kCurrentSpheroid + InCaption(parameters.name));
  working_ = parameters;
  listening_ = false;
  txtMajor.SetText(AxisText(working_.semi_major_axis));
  txtMinor.SetText(AxisText(working_.semi_minor_axis));
  listening_ = true;
  CheckOK();
}

void frmSpheroidOptions::txtMajor_Change() {
  Trap("txtMajor_Change", [this] { TakeTypedAxis(txtMajor, working_.semi_major_axis); });
}

void frmSpheroidOptions::txtMinor_Change() {
  Trap("txtMinor_Change", [this] { TakeTypedAxis(txtMinor, working_.semi_minor_axis); });
}

void frmSpheroidOptions::TakeTypedAxis(const TextBox& box, double& axis) {
  if (!listening_) return;
  lblCurrent.SetCaption(std::string(kCurrentSpheroid) + "<-- CUSTOM -->");
  working_.name = "Custom Spheroid";
  axis = USGS_Functions::AxisFromText(box.Text()).value_or(kNoAxis);
  CheckOK();
}

void frmSpheroidOptions::CheckOK() {
  cmdOK.SetEnabled(working_.semi_major_axis > 0.0 && working_.semi_minor_axis > 0.0);
}

void frmSpheroidOptions::LeaveAnswer(clsExtension& extension) const {
  extension.CurrentSpheroidCanceled = false;
  extension.CurrentSpheroidName = working_.name;
  extension.CurrentSpheroidMajorAxis = working_.semi_major_axis;
  extension.CurrentSpheroidMinorAxis = working_.semi_minor_axis;
}

void frmSpheroidOptions::cmdOK_Click() {
  Trap("cmdOK_Click", [this] {
    LeaveAnswer(*Require(extension_, "clsExtension"));
    Unload();
  });
}

void frmSpheroidOptions::cmdCancel_Click() {
  Trap("cmdCancel_Click", [this] {
    if (extension_) extension_->CurrentSpheroidCanceled = true;
    Unload();
  });
}

void frmSpheroidOptions::Form_Load() {
  Trap("Form_Load", [this] {
    SetTopmost(true);
    MoveToUpperMiddle();
    // Only the width follows the form; height that is left over stays above the buttons.
    Control* const stretched[] = {&lblUSGS,      &cbxUSGS,        &lblESRIPlanetary, &cbxESRIPlanets, &lblESRIEarth,
                                  &cbxESRIEarth, &cmdLoadCurrent, &lblCurrent,       &txtMajor,       &txtMinor};
    Control* const at_right[] = {&cmdLoadUSGS, &cmdLoadESRIPlanetary, &cmdLoadESRIEarth, &lblM1, &lblM2};
    Control* const at_left[] = {&lblMajor, &lblMinor};
    for (Control* control : stretched) anchors_.Item(*control).SetAnchors(enumStartEnd, enumStartSize);
    for (Control* control : at_right) anchors_.Item(*control).SetAnchors(enumSizeEnd, enumStartSize);
    for (Control* control : at_left) anchors_.Item(*control).SetAnchors(enumStartSize, enumStartSize);
    anchors_.Item(cmdManual).SetAnchors(enumStartSize, enumSizeEnd);
    anchors_.Item(cmdOK).SetAnchors(enumSizeEnd, enumSizeEnd);
    anchors_.Item(cmdCancel).SetAnchors(enumSizeEnd, enumSizeEnd);
    anchors_.SetForm(*this);
  });
}

void frmSpheroidOptions::Form_Resize() {
  Trap("Form_Resize", [this] { anchors_.DoAnchors(); });
}

void frmSpheroidOptions::Form_Unload() {
  extension_ = nullptr;
  custom_ = planets_ = earth_ = {};
}

}  // namespace tessarine
