// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/output_form.h"

#include "platform/trap.h"
#include "support/MyGeneralOperations.h"
#include "support/manual.h"

namespace tessarine {

OutputForm::OutputForm(const std::string& name, MyGeneralOperations::OutputRow::Reader reader,
                       const std::string& manual)
    : Form(name), cmdManual(*this, manual), output_(txtOutput, reader) {
  cmdGetWorkspace.SetToolTipText("Browse for Output Folder...");
  cmdGetWorkspace.PictureId = 201;
  cmdManual.SetCaption("Manual");
  cmdOK.SetCaption("OK");
  cmdCancel.SetCaption("Cancel");
  cmdOK.Default = true;
  cmdCancel.Cancel = true;
  txtOutput.SetBackColor(kWindowBackground);

  txtOutput.Change = [this] { Trap("txtOutput_Change", [this] { output_.FollowText(); }); };
  cmdGetWorkspace.Click = [this] { Trap("cmdGetWorkspace_Click", [this] { cmdGetWorkspace_Click(); }); };
  cmdManual.Click = [event = manual + "_Click"] { Trap(event, [] { MyGeneralOperations::OpenManual(); }); };
  cmdOK.Click = [this] { Trap("cmdOK_Click", [this] { cmdOK_Click(); }); };
  cmdCancel.Click = [this] {
    Trap("cmdCancel_Click", [this] {
      extension_->ShouldContinue = false;
      ForgetChoices(*extension_);
      Unload();
    });
  };
}

void OutputForm::PlaceOutputRow(const LowerEdge& edge) {
  lblOutputName.Move(7, edge.top, edge.width - 34, 9);
  txtOutput.Move(7, edge.top + 11, edge.width - 34, 13);
  cmdGetWorkspace.Move(edge.width - 23, edge.top + 10, 16, 15);
  const double buttons = edge.top + edge.to_buttons;
  cmdManual.Move(7, buttons, 56, 14);
  cmdOK.Move(edge.width - 123, buttons, 56, 14);
  cmdCancel.Move(edge.width - 63, buttons, 56, 14);
  SetSize(edge.width, buttons + 21);
  SetMinimumSize(edge.least_width, edge.least_height);
}

void OutputForm::SetTabOrder(std::initializer_list<Control*> controls) {
  std::int32_t index = 0;
  for (Control* control : controls) control->SetTabIndex(index++);
  Control* const last[] = {&lblOutputName, &txtOutput, &cmdGetWorkspace, &cmdManual, &cmdOK, &cmdCancel};
  for (Control* control : last) control->SetTabIndex(index++);
}

void OutputForm::Form_Load() {
  Trap("Form_Load", [this] {
    SetTopmost(true);
    MoveToUpperMiddle();
    if (!extension_) extension_ = FindExtension(application_);
    anchors_.Hold({
        {lblOutputName, enumStartSize, enumSizeEnd},
        {txtOutput, enumStartEnd, enumSizeEnd},
        {cmdGetWorkspace, enumSizeEnd, enumSizeEnd},
        {cmdManual, enumStartSize, enumSizeEnd},
        {cmdOK, enumSizeEnd, enumSizeEnd},
        {cmdCancel, enumSizeEnd, enumSizeEnd},
    });
    anchors_.SetForm(*this);
  });
}

void OutputForm::Form_Resize() {
  Trap("Form_Resize", [this] { anchors_.DoAnchors(); });
}

void OutputForm::Form_Unload() {
  application_ = nullptr;
  extension_ = nullptr;
}

}  // namespace tessarine
