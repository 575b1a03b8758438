// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/interrupt.h"

#include <unistd.h>

#include <csignal>
#include <string_view>

namespace tessarine {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};
constexpr std::string_view kAnswer = "\nStopping... Once more ends the program at once.\n";

volatile std::sig_atomic_t g_interrupted = 0;

// Whichever of the signals comes next ends the program.
extern "C" void OnInterrupt(int) {
  g_interrupted = 1;
  for (const int signal : kSignals) std::signal(signal, SIG_DFL);
  if (write(STDERR_FILENO, kAnswer.data(), kAnswer.size()) < 0) return;  // nobody is there to be told
}

}  // namespace

void CatchInterrupts() {
  if (WasInterrupted()) return;
  for (const int signal : kSignals) {
    struct sigaction action {};
    if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = OnInterrupt;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
  }
}

bool WasInterrupted() { return g_interrupted != 0; }

}  // namespace tessarine
