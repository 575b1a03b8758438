// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/host.h"

#include <chrono>
#include <utility>

#include "platform/at_hand.h"
#include "platform/fault.h"
#include "platform/running_journal.h"
#include "platform/tell_user.h"
#include "platform/thread_host.h"

namespace tessarine {
namespace {

IHost* g_host = nullptr;
thread_local IHost* t_host = nullptr;
thread_local RunContext* t_running = nullptr;

// Null where nobody serves.
IHost* ServingHost() { return t_host != nullptr ? t_host : g_host; }

}  // namespace

double IClock::SteadySeconds() const {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

IHost& Host() {
  IHost* const host = ServingHost();
  if (host == nullptr) Raise(kObjectNotSet, "No host serves this process.");
  return *host;
}

IHost* SetHost(IHost* host) { return std::exchange(g_host, host); }

void IHost::Tell(const std::string& text, const std::string& title) { MessageBox().Show(text, title); }

bool IHost::Ask(RunQuestion, const std::string& text, const std::string& title) {
  return MessageBox().Show(text, title, MessageButtons::YesNo) == MessageAnswer::Yes;
}

RunContext HostContext() {
  IHost& host = Host();
  return {host.Clock(), host, host, host.Journal(), host.Jobs()};
}

ThreadHostScope::ThreadHostScope(IHost& host) : before_(std::exchange(t_host, &host)) {}
ThreadHostScope::~ThreadHostScope() { t_host = before_; }

RunContext* RunningContext() { return t_running; }

RunningContextScope::RunningContextScope(RunContext& run) : before_(std::exchange(t_running, &run)) {}
RunningContextScope::~RunningContextScope() { t_running = before_; }

RunJournal* RunningJournal() {
  if (t_running != nullptr) return &t_running->journal;
  IHost* const host = ServingHost();
  return host == nullptr ? nullptr : &host->Journal();
}

IOperatingSystem& SystemAtHand() { return t_running != nullptr ? t_running->services.System() : Host().System(); }

const IClock& ClockAtHand() { return t_running != nullptr ? t_running->clock : Host().Clock(); }

IRunFeedback& FeedbackAtHand() { return t_running != nullptr ? t_running->feedback : Host(); }

void TellUser(const std::string& text, const std::string& title) { FeedbackAtHand().Tell(text, title); }

bool StopRequested() {
  if (t_running != nullptr) return t_running->feedback.StopRequested();
  const IHost* const host = ServingHost();
  return host != nullptr && host->StopRequested();
}

}  // namespace tessarine
