// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog that shows what a run did.
#pragma once

#include <string>

#include "platform/form.h"
#include "support/AnchorObjectList.h"

namespace tessarine {

/// The caller puts the report into `txtReport` and shows the form modally.
class frmReport_modal final : public Form {
 public:
  frmReport_modal();

  TextBox txtBackground{*this, "txtBackground"};
  RichTextBox txtReport{*this, "txtReport"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdPrint{*this, "cmdPrint"};
  CommandButton cmdCopy{*this, "cmdCopy"};
  Image imgCornerBars{*this, "imgCornerBars"};

 protected:
  void Form_Load() override;
  void Form_Resize() override;

 private:
  void cmdOK_Click();
  void cmdPrint_Click();
  void cmdCopy_Click();

  AnchorObjectList anchors_;
};

/// Shows the report, and waits until the user closes it.
void ShowReportWindow(const std::string& report);

}  // namespace tessarine
