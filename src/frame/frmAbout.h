// SPDX-License-Identifier: GPL-2.0-or-later
// What the suite is, its version, and the ways to the manual and to the operating system's information tool.
#pragma once

#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/form.h"
#include "support/AnchorObjectList.h"

namespace tessarine {

class frmAbout final : public Form {
 public:
  frmAbout();

  RichTextBox Text1{*this, "Text1"};
  Label lblVersion{*this, "lblVersion"};
  Label lblMaker{*this, "lblMaker"};
  Label lblWeb{*this, "lblWeb"};
  Label lblMail{*this, "lblMail"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdManual{*this, "cmdManual"};
  CommandButton cmdSysInfo{*this, "cmdSysInfo"};
  Image imgCornerBars{*this, "imgCornerBars"};
  Image imgBottomInset{*this, "imgBottomInset"};

  void SetArcApplication(const std::shared_ptr<IApplication>& application) { application_ = application; }

 protected:
  void Form_Load() override;
  void Form_Resize() override;
  void Form_MouseMove() override;

 private:
  void LayOut();
  void MakeLink(Label& label, const char* address, std::int32_t hover_color);
  void cmdOK_Click();
  void cmdManual_Click();
  void cmdSysInfo_Click();

  std::shared_ptr<IApplication> application_;
  AnchorObjectList anchors_;
};

/// Reads a value of the machine's registry as text: a text without its final null, a double word in hexadecimal
/// digits. False, and an empty text, when the key or the value isn't there.
bool GetKeyValue(const std::string& key, const std::string& name, std::string& value);

}  // namespace tessarine
