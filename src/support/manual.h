// SPDX-License-Identifier: GPL-2.0-or-later
// The manual, opened by every Manual and Help button.
#pragma once

#include <string>

namespace tessarine::MyGeneralOperations {

/// "Tessarine_Manual.pdf" in the program's folder.
[[nodiscard]] std::string ManualPath();
/// Opens the manual with the desktop's viewer, or says that it is missing.
void OpenManual();

}  // namespace tessarine::MyGeneralOperations
