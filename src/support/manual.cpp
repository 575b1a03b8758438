// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/manual.h"

#include "platform/at_hand.h"
#include "platform/host.h"
#include "support/MyGeneralOperations.h"

namespace tessarine::MyGeneralOperations {

std::string ManualPath() { return SystemAtHand().ProgramFolder() + "\\Tessarine_Manual.pdf"; }

void OpenManual() { OpenDoc(ManualPath()); }

}  // namespace tessarine::MyGeneralOperations
