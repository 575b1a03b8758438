// SPDX-License-Identifier: GPL-2.0-or-later
#include "frame/frmAbout.h"

#include "platform/host.h"
#include "platform/report_heads.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"
#include "support/manual.h"

namespace tessarine {
namespace {

constexpr const char* kWebAddress = "https://halvorn.example/tessarine";
constexpr const char* kMailAddress = "mailto:tools@halvorn.example";
constexpr std::int32_t kRed = 0xC00000;
constexpr std::int32_t kBlue = 0x0000C0;

constexpr const char* kInformationKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const char* kInformationValue = "PATH";
constexpr const char* kSharedToolsKey = "SOFTWARE\\Microsoft\\Shared Tools Location";
constexpr const char* kSharedToolsValue = "MSINFO";
constexpr const char* kInformationProgram = "\\MSINFO32.EXE";
constexpr const char* kNoInformation = "System Information Is Unavailable At This Time";

constexpr const char* kAboutText =
    "About Tools for Tessarine "
    "Tools\\b0\\fs17\\par\r\n"
    "\\pard\\par\r\n"
    "This extension offers tools for the geometric attributes of vector features, and for selecting and naming "
    "graphic elements.\\par\r\n"
    "\\par\r\n"
    "It computes the true area and centroid of polygons on the sphere, which avoids the distortion of projections, and "
    "the true length of polylines on the spheroid by Vincenty's equations.\\par\r\n"
    "\\par\r\n"
    "It can also create a new shapefile, either empty or by converting graphics.\\par\r\n"
    "\\par\r\n"
    "Enjoy!\\par\r\n"
    "}";

std::string HexText(std::uint32_t number) {
  constexpr const char* kDigits = "0123456789ABCDEF";
  std::string text;
  do {
    text.insert(0, 1, kDigits[number & 15U]);
    number >>= 4U;
  } while (number != 0);
  return text;
}

// The path of the information tool; empty when the machine has none.
std::string InformationTool() {
  std::string path;
  if (GetKeyValue(kInformationKey, kInformationValue, path) && !path.empty()) return path;
  GetKeyValue(kSharedToolsKey, kSharedToolsValue, path);
  path += kInformationProgram;
  return aml_func_mod::FileExists(path) ? path : "";
}

}  // namespace

bool GetKeyValue(const std::string& key, const std::string& name, std::string& value) {
  return Trap("GetKeyValue", [&] {
    value = Host().Registry().QueryLocalMachine(key, name);
    if (!value.empty()) {
      if (value.back() == '\0') value.pop_back();
      return true;
    }
    const std::optional<std::uint32_t> number = Host().Registry().QueryLocalMachineNumber(key, name);
    if (number) value = HexText(*number);
    return number.has_value();
  });
}

frmAbout::frmAbout() : Form("frmAbout") {
  SetCaption(" About Tools for Tessarine Tools:");
  LayOut();
  lblVersion.SetBold(true);
  lblMaker.SetCaption("Halvorn");
  lblWeb.SetCaption("halvorn.example/tessarine");
  lblMail.SetCaption("tools@halvorn.example");
  MakeLink(lblWeb, kWebAddress, kBlue);
  MakeLink(lblMail, kMailAddress, kRed);
  imgBottomInset.MouseMove = [this] { Form_MouseMove(); };
  cmdOK.SetCaption("OK");
  cmdOK.Default = true;
  cmdOK.Cancel = true;
  cmdManual.SetCaption("&Manual");
  cmdSysInfo.SetCaption("&System Info...");
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdManual.Click = [this] { cmdManual_Click(); };
  cmdSysInfo.Click = [this] { cmdSysInfo_Click(); };
}

void frmAbout::LayOut() {
  SetSize(300, 220);
  SetMinimumSize(250, 160);
  lblVersion.Move(7, 7, 100, 9);
  Text1.Move(7, 20, 286, 136);
  Text1.SetBackColor(kWindowBackground);
  lblMaker.Move(7, 163, 40, 9);
  lblWeb.Move(57, 163, 110, 9);
  lblMail.Move(177, 163, 100, 9);
  imgBottomInset.SetResourceId(205);
  imgBottomInset.Move(7, 177, 286, 14);
  cmdManual.Move(7, 199, 56, 14);
  cmdSysInfo.Move(67, 199, 76, 14);
  cmdOK.Move(237, 199, 56, 14);
  imgCornerBars.Move(293, 213, 7, 7);
  imgCornerBars.SetResourceId(202);
  Control* const order[] = {&Text1, &cmdManual, &cmdSysInfo, &cmdOK};
  std::int32_t tab_index = 0;
  for (Control* control : order) control->SetTabIndex(tab_index++);
}

void frmAbout::MakeLink(Label& label, const char* address, std::int32_t hover_color) {
  label.SetToolTipText(address);
  label.MouseMove = [&label, hover_color] { label.SetForeColor(hover_color); };
  label.Click = [address] { Trap("lblContact_Click", [address] { Host().System().ShellExecute(address, ""); }); };
}

void frmAbout::Form_Load() {
  Trap("Form_Load", [this] {
    SetTopmost(true);
    MoveToUpperMiddle();
    anchors_.Hold({
        {lblVersion, enumStartSize, enumStartSize},
        {Text1, enumStartEnd, enumStartEnd},
        {lblMaker, enumStartSize, enumSizeEnd},
        {lblWeb, enumStartSize, enumSizeEnd},
        {lblMail, enumStartSize, enumSizeEnd},
        {imgBottomInset, enumStartEnd, enumSizeEnd},
        {cmdManual, enumStartSize, enumSizeEnd},
        {cmdSysInfo, enumStartSize, enumSizeEnd},
        {cmdOK, enumSizeEnd, enumSizeEnd},
        {imgCornerBars, enumSizeEnd, enumSizeEnd},
    });
    anchors_.SetForm(*this);
    lblVersion.SetCaption("Version " TESSARINE_VERSION);
    Text1.SetTextRTF(LargeReportHead() + kAboutText);
  });
}

void frmAbout::Form_Resize() {
  Trap("Form_Resize", [this] { anchors_.DoAnchors(); });
}

void frmAbout::Form_MouseMove() {
  Trap("Form_MouseMove", [this] {
    lblWeb.SetForeColor(kWindowText);
    lblMail.SetForeColor(kWindowText);
  });
}

void frmAbout::cmdOK_Click() {
  Trap("cmdOK_Click", [this] { Unload(); });
}

void frmAbout::cmdManual_Click() {
  Trap("cmdManual_Click", [] { MyGeneralOperations::OpenManual(); });
}

void frmAbout::cmdSysInfo_Click() {
  Trap("cmdSysInfo_Click", [] {
    const std::string path = InformationTool();
    if (path.empty()) {
      Host().MessageBox().Show(kNoInformation, "");
      return;
    }
    Host().System().ShellExecute(path, aml_func_mod::ReturnDir(path));
  });
}

}  // namespace tessarine
