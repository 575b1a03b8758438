// SPDX-License-Identifier: GPL-2.0-or-later
// The spheroid dialog of the geometry calculator: it also asks in which kind of latitudes the data are.
#pragma once

#include "spheroids/frmSpheroidOptions.h"

namespace tessarine {

/// Like `frmSpheroidOptions`; OK also leaves `CurrentSpheroidGeocentric`.
class frmSpheroidOptionsExt final : public frmSpheroidOptions {
 public:
  frmSpheroidOptionsExt();

  Label lblCentricVsGraphic{*this, "lblCentricVsGraphic"};
  OptionButton optGraphic{*this, "optGraphic"};
  OptionButton optCentric{*this, "optCentric"};
  CommandButton cmdHelp{*this, "cmdHelp"};

 protected:
  void Form_Load() override;
  void LeaveAnswer(clsExtension& extension) const override;

 private:
  void cmdHelp_Click();
};

}  // namespace tessarine
