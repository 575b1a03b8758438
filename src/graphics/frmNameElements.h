// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog that gives one name to all or to the selected graphic elements of the map.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/form.h"
#include "support/AnchorObjectList.h"

namespace tessarine {

/// Groups are named as wholes. The document isn't marked as changed.
class frmNameElements final : public Form {
 public:
  frmNameElements();

  Label lblName{*this, "lblName"};
  TextBox txtName{*this, "txtName"};
  OptionButton optAll{*this, "optAll"};
  OptionButton optSel{*this, "optSel"};
  CommandButton cmdManual{*this, "cmdManual"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  void SetArcApplication(const std::shared_ptr<IApplication>& application);

 protected:
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;

 private:
  void LayOut();
  void cmdOK_Click();
  void cmdCancel_Click();
  void cmdManual_Click();

  std::shared_ptr<IApplication> application_;
  std::shared_ptr<IMxDocument> document_;
  AnchorObjectList anchors_;
};

}  // namespace tessarine
