// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/frmMessageBox.h"

#include "platform/trap.h"

namespace tessarine {

frmMessageBox::frmMessageBox() : Form("frmMessageBox") {
  SetCaption(" Message");
  SetSize(240, 130);
  SetMinimumSize(160, 90);
  txtMessage.Move(7, 7, 226, 94);
  txtMessage.Locked = true;
  txtMessage.MultiLine = true;
  cmdYes.SetCaption("&Yes");
  cmdYes.Move(127, 109, 50, 14);
  cmdNo.SetCaption("&No");
  cmdNo.Move(183, 109, 50, 14);
  // Who presses Enter without reading has agreed to nothing.
  cmdNo.Default = true;
  cmdNo.Cancel = true;
  imgCornerBars.Move(233, 123, 7, 7);
  imgCornerBars.SetResourceId(202);
  txtMessage.SetTabIndex(0);
  cmdYes.SetTabIndex(1);
  cmdNo.SetTabIndex(2);
  cmdYes.Click = [this] { cmdYes_Click(); };
  cmdNo.Click = [this] { cmdNo_Click(); };
}

void frmMessageBox::SetArcApplication(const std::shared_ptr<IApplication>& application) {
  Trap("ArcApplication", [&] {
    application_ = application;
    extension_ = FindExtension(application_);
    Require(extension_, "clsExtension")->ShouldContinue = false;
  });
}

void frmMessageBox::Form_Load() {
  Trap("Form_Load", [this] {
    SetTopmost(true);
    MoveToUpperMiddle();
    anchors_.Item(txtMessage).SetAnchors(enumStartEnd, enumStartEnd);
    anchors_.Item(cmdYes).SetAnchors(enumSizeEnd, enumSizeEnd);
    anchors_.Item(cmdNo).SetAnchors(enumSizeEnd, enumSizeEnd);
    anchors_.Item(imgCornerBars).SetAnchors(enumSizeEnd, enumSizeEnd);
    anchors_.SetForm(*this);
  });
}

void frmMessageBox::Form_Resize() {
  Trap("Form_Resize", [this] { anchors_.DoAnchors(); });
}

void frmMessageBox::cmdYes_Click() {
  Trap("cmdYes_Click", [this] {
    Require(extension_, "clsExtension")->ShouldContinue = true;
    Unload();
  });
}

void frmMessageBox::cmdNo_Click() {
  Trap("cmdNo_Click", [this] {
    Require(extension_, "clsExtension")->ShouldContinue = false;
    Unload();
  });
}

}  // namespace tessarine
