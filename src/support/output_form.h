// SPDX-License-Identifier: GPL-2.0-or-later
// What dialogs share that name an output at their lower edge: its row, and the buttons below it.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/form.h"
#include "session/clsExtension.h"
#include "support/AnchorObjectList.h"
#include "support/output_row.h"

namespace tessarine {

class OutputForm : public Form {
 public:
  Label lblOutputName{*this, "lblOutputName"};
  TextBox txtOutput{*this, "txtOutput"};
  CommandButton cmdGetWorkspace{*this, "cmdGetWorkspace"};
  CommandButton cmdManual;
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};

 protected:
  /// `manual` is what the dialog calls the button that opens the manual.
  OutputForm(const std::string& name, MyGeneralOperations::OutputRow::Reader reader,
             const std::string& manual = "cmdManual");

  /// Opens above other windows and holds the row and the buttons at the lower edge.
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;

  virtual void cmdOK_Click() = 0;
  virtual void cmdGetWorkspace_Click() { output_.Browse(); }
  /// Takes back what an earlier OK left for the run; the go-ahead is taken back already.
  virtual void ForgetChoices(clsExtension&) {}

  /// The height of the row, how far below it the buttons are, and the sizes of the form, in its own units.
  struct LowerEdge {
    double top, width, least_width, least_height;
    double to_buttons = 32;
  };
  /// Places the row, the buttons below it, and the lower edge of the form.
  void PlaceOutputRow(const LowerEdge& edge);
  /// These controls, then the row and the buttons.
  void SetTabOrder(std::initializer_list<Control*> controls);

  std::shared_ptr<IApplication> application_;
  std::shared_ptr<clsExtension> extension_;
  MyGeneralOperations::OutputRow output_;
  AnchorObjectList anchors_;
};

}  // namespace tessarine
