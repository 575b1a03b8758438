// SPDX-License-Identifier: GPL-2.0-or-later
// What tells of the machine.
#pragma once

#include <string>

namespace tessarine {

/// The path of the system information program of this distribution; without one, that of a text that is written anew
/// with what the system, the processor, the memory and the toolkit are. Empty when that can't be written.
[[nodiscard]] std::string SystemInformationPath();

}  // namespace tessarine
