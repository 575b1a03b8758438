// SPDX-License-Identifier: GPL-2.0-or-later
// The window in which fault reports collect until the user closes it.
#pragma once

#include <QDialog>
#include <QString>

class QPlainTextEdit;

namespace tessarine {

class ErrorWindow final : public QDialog {
 public:
  explicit ErrorWindow(QWidget* parent);

  /// Shows the window above `front`, the one that the user has before him, if any; it stays where that one closes.
  void OpenAbove(const QWidget* front);
  /// Puts a report after those that stand. The window blocks the others, not the caller.
  void Add(const QString& report);

 private:
  QPlainTextEdit* text_;
};

}  // namespace tessarine
