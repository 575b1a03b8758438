// SPDX-License-Identifier: GPL-2.0-or-later
// Ctrl-C, and the signals that a system sends to end a program: the first asks the run to stop, the second ends the
// program.
#pragma once

namespace tessarine {

/// From now on SIGINT, SIGTERM and SIGHUP are answered with a line on standard error and remembered; the one after it
/// has the system's own effect again. A signal that the program was started to ignore, as by nohup, stays ignored.
void CatchInterrupts();

/// True once a signal was caught, and from then on.
[[nodiscard]] bool WasInterrupted();

}  // namespace tessarine
