// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/frmReport_modal.h"

#include "platform/host.h"
#include "platform/trap.h"
#include "support/rtf_printing.h"

namespace tessarine {
namespace {

constexpr double kMarginTwips = 1440.0;

}  // namespace

frmReport_modal::frmReport_modal() : Form("frmReport_modal") {
  SetCaption(" Report");
  SetSize(330, 240);
  SetMinimumSize(290, 120);
  // The background box gives the rich text its white border.
  txtBackground.Move(7, 7, 316, 204);
  txtBackground.Locked = true;
  txtBackground.SetBackColor(kWindowBackground);
  txtReport.Move(11, 11, 308, 196);
  txtReport.SetBackColor(kWindowBackground);
  cmdCopy.SetCaption("&Copy to Clipboard");
  cmdCopy.Move(7, 219, 92, 14);
  cmdPrint.SetCaption("&Print");
  cmdPrint.Move(105, 219, 50, 14);
  cmdOK.SetCaption("&Exit");
  cmdOK.Move(273, 219, 50, 14);
  cmdOK.Default = true;
  cmdOK.Cancel = true;
  imgCornerBars.Move(323, 233, 7, 7);
  imgCornerBars.SetResourceId(202);
  txtReport.SetTabIndex(0);
  cmdCopy.SetTabIndex(1);
  cmdPrint.SetTabIndex(2);
  cmdOK.SetTabIndex(3);
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdPrint.Click = [this] { cmdPrint_Click(); };
  cmdCopy.Click = [this] { cmdCopy_Click(); };
}

void frmReport_modal::Form_Load() {
  Trap("Form_Load", [this] {
    SetTopmost(true);
    anchors_.Item(txtReport).SetAnchors(enumStartEnd, enumStartEnd);
    anchors_.Item(txtBackground).SetAnchors(enumStartEnd, enumStartEnd);
    anchors_.Item(cmdCopy).SetAnchors(enumNone, enumSizeEnd);
    anchors_.Item(cmdPrint).SetAnchors(enumNone, enumSizeEnd);
    anchors_.Item(cmdOK).SetAnchors(enumNone, enumSizeEnd);
    anchors_.Item(imgCornerBars).SetAnchors(enumSizeEnd, enumSizeEnd);
    anchors_.SetForm(*this);
  });
}

void frmReport_modal::Form_Resize() {
  Trap("Form_Resize", [this] { anchors_.DoAnchors(); });
}

void frmReport_modal::cmdOK_Click() {
  Trap("cmdOK_Click", [this] { Unload(); });
}

void frmReport_modal::cmdCopy_Click() {
  Trap("cmdCopy_Click", [this] {
    Host().Clipboard().Clear();
    Host().Clipboard().SetRichText(txtReport.TextRTF());
    cmdOK.SetFocus();
  });
}

void frmReport_modal::cmdPrint_Click() {
  Trap("cmdPrint_Click", [this] {
    const std::shared_ptr<IPrinter> printer = Host().ChoosePrinter();
    if (!printer) return;
    MyGeneralOperations::PrintRTF(txtReport.TextRTF(), *printer, kMarginTwips, kMarginTwips, kMarginTwips,
                                  kMarginTwips);
  });
}

void ShowReportWindow(const std::string& report) {
  frmReport_modal form;
  form.txtReport.SetTextRTF(report);
  form.ShowModal();
}

}  // namespace tessarine
