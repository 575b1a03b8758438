// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/window_turns.h"

#include <QCoreApplication>
#include <QThread>

namespace tessarine::qgis {

void WindowTurns::Give() {
  constexpr auto kPatience = std::chrono::milliseconds(100);
  if (std::chrono::steady_clock::now() - last_ < kPatience) return;
  if (QCoreApplication::instance() == nullptr || QThread::currentThread() != QCoreApplication::instance()->thread()) {
    return;
  }
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  last_ = std::chrono::steady_clock::now();
}

}  // namespace tessarine::qgis
