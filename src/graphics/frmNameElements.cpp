// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/frmNameElements.h"

#include "platform/host.h"
#include "platform/trap.h"
#include "support/manual.h"

namespace tessarine {
namespace {

template <class Elements>
void NameEach(Elements& elements, const std::string& name) {
  elements.Reset();
  while (const std::shared_ptr<IElement> element = elements.Next()) {
    const auto properties = Cast<IElementProperties>(element);
    Require(properties, "IElementProperties")->SetName(name);
  }
}

}  // namespace

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

std::shared_ptr<IGraphicsContainer> frmNameElements::Container() const {
  const auto container = Cast<IGraphicsContainer>(document_->FocusMap());
  return Require(container, "IGraphicsContainer");
}

std::shared_ptr<IGraphicsContainerSelect> frmNameElements::Selection() const {
  const auto selection = Cast<IGraphicsContainerSelect>(document_->FocusMap());
  return Require(selection, "IGraphicsContainerSelect");
}

void frmNameElements::SetArcApplication(const std::shared_ptr<IApplication>& application) {
  Trap("ArcApplication", [&] {
    application_ = application;
    document_ = Cast<IMxDocument>(application_->Document());
    selected_count_ = Selection()->ElementSelectionCount();
    optSel.SetCaption("Name Selected Graphics (n = " + std::to_string(selected_count_) + ")");
    const std::shared_ptr<IGraphicsContainer> container = Container();
    all_count_ = 0;
    container->Reset();
    while (container->Next()) ++all_count_;
    optAll.SetCaption("Name All Graphics (n = " + std::to_string(all_count_) + ")");
    optSel.SetEnabled(selected_count_ > 0);
    (selected_count_ > 0 ? optSel : optAll).SetValue(true);
  });
}

bool frmNameElements::ConfirmNoName() const {
  const std::string target =
      optAll.Value()
          ? std::to_string(all_count_) +
                " graphic elements will be\r\nassigned no name (i.e. they will be assigned the empty string for a "
                "name)."
          : std::to_string(selected_count_) +
                " selected graphic elements will\r\nbe assigned no name (i.e. they will be assigned the empty string "
                "for a name).";
  return Host().MessageBox().Show("Your 'Name' value is an empty string, so your " + target +
                                      "\r\nAny existing name will be removed.\r\n\r\nPlease click 'OK' to confirm this "
                                      "action, or 'Cancel' to exit without making changes...",
                                  "Confirm Action:", MessageButtons::OkCancel) == MessageAnswer::Ok;
}

void frmNameElements::cmdOK_Click() {
  Trap("cmdOK_Click", [this] {
    const std::string name = txtName.Text();
    if (name.empty() && !ConfirmNoName()) return;
    if (optAll.Value()) NameEach(*Container(), name);
    if (optSel.Value()) NameEach(*Selection()->SelectedElements(), name);
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
