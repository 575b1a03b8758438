// SPDX-License-Identifier: GPL-2.0-or-later
// A Yes and No dialog with a long text that can be resized.
#pragma once

#include <memory>

#include "platform/form.h"
#include "session/clsExtension.h"
#include "support/AnchorObjectList.h"

namespace tessarine {

/// The caller sets the text of `txtMessage` and shows the form modally; the choice is `ShouldContinue` of the
/// extension.
class frmMessageBox final : public Form {
 public:
  frmMessageBox();

  TextBox txtMessage{*this, "txtMessage"};
  CommandButton cmdYes{*this, "cmdYes"};
  CommandButton cmdNo{*this, "cmdNo"};
  Image imgCornerBars{*this, "imgCornerBars"};

  void SetArcApplication(const std::shared_ptr<IApplication>& application);

 protected:
  void Form_Load() override;
  void Form_Resize() override;

 private:
  void cmdYes_Click();
  void cmdNo_Click();

  std::shared_ptr<IApplication> application_;
  std::shared_ptr<clsExtension> extension_;
  AnchorObjectList anchors_;
};

}  // namespace tessarine
