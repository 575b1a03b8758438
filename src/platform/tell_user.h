// SPDX-License-Identifier: GPL-2.0-or-later
// What routines below a run have to tell the user.
#pragma once

#include <string>

namespace tessarine {

/// Tells it through the context of the run that the thread is at, or else by a message box of the process's host; fault
/// 91 where there is neither.
void TellUser(const std::string& text, const std::string& title);

}  // namespace tessarine
