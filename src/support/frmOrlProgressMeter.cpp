// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/frmOrlProgressMeter.h"

#include "platform/trap.h"

namespace tessarine {

void frmOrlProgressMeter::cmdStop_Click() {
  Trap("cmdStop_Click", [this] {
    if (cmdStop.Caption() == "Stop") {
      Stop();
    } else {
      Unload();
    }
  });
}

}  // namespace tessarine
