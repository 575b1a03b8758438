// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/topology_stop.h"

#include <geos_c.h>

#include "platform/host.h"

namespace tessarine {

void LetStopsEndTopology() {
  (void)GEOS_interruptRegisterCallback([] {
    if (StopRequested()) GEOS_interruptRequest();
  });
}

}  // namespace tessarine
