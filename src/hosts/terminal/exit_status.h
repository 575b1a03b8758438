// SPDX-License-Identifier: GPL-2.0-or-later
// What the program's exit status says.
#pragma once

namespace tessarine {

enum class ExitStatus : int {
  Done = 0,
  Failed = 1,   ///< the run failed, or was stopped; what was written stays
  Refused = 2,  ///< the arguments, or the rules of a dialog, refused
};

}  // namespace tessarine
