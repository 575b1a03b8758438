// SPDX-License-Identifier: GPL-2.0-or-later
// What is worked on where the program's windows live leaves them no turn of their own.
#pragma once

#include <chrono>

namespace tessarine::qgis {

/// Lets windows be drawn and timers ring while an edit in place is at work on their thread. What the user does
/// meanwhile waits: it might change the layer.
class WindowTurns {
 public:
  /// Call it often: windows have their turn ten times a second. Does nothing on another thread than that of the
  /// windows.
  void Give();

 private:
  std::chrono::steady_clock::time_point last_ = std::chrono::steady_clock::now();
};

}  // namespace tessarine::qgis
