// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/run_turn.h"

#include <chrono>
#include <mutex>

#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

constexpr auto kLookInterval = std::chrono::milliseconds(100);

std::timed_mutex g_turn;
thread_local bool t_has_turn = false;

}  // namespace

RunTurn::RunTurn(const std::function<bool()>& gives_up) {
  if (t_has_turn) Raise(kInvalidCall, "Another run of the suite is at work on this thread: wait for its end.");
  while (!taken_ && !gives_up()) taken_ = g_turn.try_lock_for(kLookInterval);
  t_has_turn = taken_;
}

RunTurn::RunTurn() : taken_(!t_has_turn && g_turn.try_lock()) { t_has_turn = t_has_turn || taken_; }

RunTurn::~RunTurn() {
  if (!taken_) return;
  t_has_turn = false;
  g_turn.unlock();
}

}  // namespace tessarine::qgis
