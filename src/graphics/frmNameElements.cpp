// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/frmNameElements.h"

#include "graphics/element_naming.h"
#include "platform/host.h"
#include "platform/trap.h"
#include "support/manual.h"

namespace tessarine {

frmNameElements::frmNameElements() : Form("frmNameElements") {
  SetCaption(" Name Graphic Elements:");
  lblName.SetCaption("&Name:");
  optAll.SetCaption("Name All Graphics");
  optSel.SetCaption("Name Selected Graphics");
  cmdManual.SetCaption("Manual");
  cmdOK.SetCaption("OK");
  cmdOK.Default = true;
  cmdCancel.SetCaption("Cancel");
  cmdCancel.Cancel = true;
  LayOut();
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdManual.Click = [this] { cmdManual_Click(); };
}

void frmNameElements::LayOut() {
  SetSize(220, 83);
  SetMinimumSize(200, 83);
  lblName.Move(7, 9, 26, 9);
  txtName.Move(37, 7, 176, 13);
  txtName.SetBackColor(kWindowBackground);
  optAll.Move(7, 27, 206, 11);
  optSel.Move(7, 41, 206, 11);
  cmdManual.Move(7, 62, 56, 14);
  cmdOK.Move(97, 62, 56, 14);
  cmdCancel.Move(157, 62, 56, 14);
  Control* const order[] = {&lblName, &txtName, &optAll, &optSel, &cmdManual, &cmdOK, &cmdCancel};
  std::int32_t tab_index = 0;
  for (Control* control : order) control->SetTabIndex(tab_index++);
}

void frmNameElements::SetArcApplication(const std::shared_ptr<IApplication>& application) {
  Trap("ArcApplication", [&] {
    application_ = application;
    document_ = Cast<IMxDocument>(application_->Document());
    const ElementCounts counts = CountElements(*document_);
    optSel.SetCaption("Name Selected Graphics (n = " + std::to_string(counts.selected) + ")");
    optAll.SetCaption("Name All Graphics (n = " + std::to_string(counts.all) + ")");
    optSel.SetEnabled(counts.selected > 0);
    (counts.selected > 0 ? optSel : optAll).SetValue(true);
  });
}

void frmNameElements::cmdOK_Click() {
  Trap("cmdOK_Click", [this] {
    Arguments arguments;
    arguments.Set("name", txtName.Text());
    arguments.Set(optSel.Value() ? "selected" : "all", true);
    if (const auto asked = ObjectionToNaming(arguments, *document_)) {
      const MessageAnswer answer = Host().MessageBox().Show(asked->text, asked->title, MessageButtons::OkCancel);
      if (answer != MessageAnswer::Ok) return;
    }
    NameElements(arguments, *document_);
    Unload();
  });
}

void frmNameElements::cmdCancel_Click() {
  Trap("cmdCancel_Click", [this] { Unload(); });
}

void frmNameElements::cmdManual_Click() {
  Trap("cmdManual_Click", [] { MyGeneralOperations::OpenManual(); });
}

void frmNameElements::Form_Load() {
  Trap("Form_Load", [this] {
    SetTopmost(true);
    MoveToUpperMiddle();
    anchors_.Hold({
        {lblName, enumStartSize, enumStartSize},
        {txtName, enumStartEnd, enumStartSize},
        {optAll, enumStartEnd, enumStartSize},
        {optSel, enumStartEnd, enumStartSize},
        {cmdManual, enumStartSize, enumSizeEnd},
        {cmdOK, enumSizeEnd, enumSizeEnd},
        {cmdCancel, enumSizeEnd, enumSizeEnd},
    });
    anchors_.SetForm(*this);
  });
}

void frmNameElements::Form_Resize() {
  Trap("Form_Resize", [this] { anchors_.DoAnchors(); });
}

void frmNameElements::Form_Unload() {
  application_ = nullptr;
  document_ = nullptr;
}

}  // namespace tessarine
