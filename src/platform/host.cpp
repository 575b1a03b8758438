#include "platform/host.h"

#include <chrono>
#include <utility>

#include "platform/fault.h"
#include "platform/running_journal.h"

namespace tessarine {
namespace {

IHost* g_host = nullptr;

}  // namespace

double IClock::SteadySeconds() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

IHost& Host() {
  if (g_host == nullptr) Raise(kObjectNotSet, "No host serves this process.");
  return *g_host;
}

IHost* SetHost(IHost* host) { return std::exchange(g_host, host); }

RunJournal* RunningJournal() { return g_host == nullptr ? nullptr : &g_host->Journal(); }

bool StopRequested() { return g_host != nullptr && g_host->StopRequested(); }

}  // namespace tessarine
