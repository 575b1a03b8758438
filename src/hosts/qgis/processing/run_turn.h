// SPDX-License-Identifier: GPL-2.0-or-later
// One run of the suite at a time: what the engine knows of open files is shared by the whole process.
#pragma once

#include <functional>

namespace tessarine::qgis {

/// A run's turn. Runs from the toolbox wait for theirs on their own threads; commands of the menus don't.
class RunTurn {
 public:
  /// Waits, and asks meanwhile whether to give up. Fault 5 on a thread that has a run at work already.
  explicit RunTurn(const std::function<bool()>& gives_up);
  /// Takes the turn only if nobody has it.
  RunTurn();
  ~RunTurn();
  RunTurn(const RunTurn&) = delete;
  RunTurn& operator=(const RunTurn&) = delete;

  /// False where it gave up, or others have it.
  [[nodiscard]] bool Taken() const { return taken_; }

 private:
  bool taken_ = false;
};

}  // namespace tessarine::qgis
