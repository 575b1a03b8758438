// Ctrl-C: the first asks the run to stop, the second ends the program.
#pragma once

namespace tessarine {

/// Catches the next interrupt; the one after it has the system's own effect again.
void CatchInterrupt();
/// True once, after an interrupt was caught.
[[nodiscard]] bool TakeInterrupt();

}  // namespace tessarine
