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

  /// Puts a report behind those that stand, and shows the window. It blocks the other windows, not the caller.
  void Add(const QString& report);

 protected:
  /// The next fault begins a new text.
  void hideEvent(QHideEvent* event) override;

 private:
  QPlainTextEdit* text_;
};

}  // namespace tessarine
