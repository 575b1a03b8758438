// SPDX-License-Identifier: GPL-2.0-or-later
// The status window of the geometry calculator and of the wrap and planetary tools.
#pragma once

#include "support/progress_form.h"

namespace tessarine {

/// Its Stop button turns into a button that closes the window when a worker gives it another caption at the end.
class frmOrlProgressMeter final : public ProgressForm {
 public:
  frmOrlProgressMeter() : ProgressForm("frmOrlProgressMeter") {}

 protected:
  void cmdStop_Click() override;
};

}  // namespace tessarine
