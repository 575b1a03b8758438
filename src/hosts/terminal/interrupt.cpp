#include "hosts/terminal/interrupt.h"

#include <csignal>

namespace tessarine {
namespace {

volatile std::sig_atomic_t g_interrupted = 0;

extern "C" void OnInterrupt(int) { g_interrupted = 1; }

}  // namespace

void CatchInterrupt() {
  struct sigaction action {};
  action.sa_handler = OnInterrupt;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  sigaction(SIGINT, &action, nullptr);
}

bool TakeInterrupt() {
  if (g_interrupted == 0) return false;
  g_interrupted = 0;
  return true;
}

}  // namespace tessarine
