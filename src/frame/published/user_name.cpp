// SPDX-License-Identifier: GPL-2.0-or-later
// The name of the user at the machine.
#include "platform/at_hand.h"
#include "platform/host.h"
#include "platform/trap.h"
#include "support/aml_func_mod.h"

namespace tessarine::aml_func_mod {

std::string GetTheUserName() {
  return TrapHelper("GetTheUserName",
                    [] { return BasicTrimAvenue(SystemAtHand().UserName(), "", std::string(1, '\0')); });
}

}  // namespace tessarine::aml_func_mod
