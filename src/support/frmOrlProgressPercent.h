// SPDX-License-Identifier: GPL-2.0-or-later
// The status window of the conversion tools.
#pragma once

#include "support/progress_form.h"

namespace tessarine {

class frmOrlProgressPercent final : public ProgressForm {
 public:
  frmOrlProgressPercent() : ProgressForm("frmOrlProgressPercent") {}
};

}  // namespace tessarine
