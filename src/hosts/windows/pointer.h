// SPDX-License-Identifier: GPL-2.0-or-later
// The hourglass.
#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace tessarine {

/// Takes the hourglass away while a dialog waits for the user.
class PointerPause {
 public:
  PointerPause() {
    if (QGuiApplication::overrideCursor() == nullptr) return;
    waiting_ = true;
    cursor_ = *QGuiApplication::overrideCursor();
    QGuiApplication::restoreOverrideCursor();
  }
  ~PointerPause() {
    if (waiting_) QGuiApplication::setOverrideCursor(cursor_);
  }
  PointerPause(const PointerPause&) = delete;
  PointerPause& operator=(const PointerPause&) = delete;

 private:
  bool waiting_ = false;
  QCursor cursor_;
};

}  // namespace tessarine
