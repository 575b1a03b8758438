// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/readable_window.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>

#include "hosts/windows/colors.h"
#include "platform/form.h"

namespace tessarine {
namespace {

QString SheetFor(const QWidget& window) {
  if (qApp->styleSheet().isEmpty()) return {};
  const QPalette palette = window.palette();
  const QColor ground = palette.color(QPalette::Window), box = BoxColorOn(ground);
  const QColor text = TextColorOn(ground, kWindowText, palette), box_text = TextColorOn(box, kWindowText, palette);
  return QStringLiteral(
             "QLabel, QCheckBox, QRadioButton { color: %1 } QHeaderView::section { color: %1; background-color: %2 } "
             "QLineEdit, QComboBox, QAbstractItemView, QPlainTextEdit { color: %3; background-color: %4; "
             "selection-color: %4; selection-background-color: %3 }")
      .arg(text.name(), ground.name(), box_text.name(), box.name());
}

// A style sheet gives what stands in an empty box the colour of typed text, and without one it is pale.
void DimPlaceholder(QWidget& box) {
  box.ensurePolished();
  QPalette palette = box.palette();
  palette.setColor(QPalette::PlaceholderText,
                   DimTextOn(palette.color(QPalette::Base), palette.color(QPalette::Active, QPalette::Text)));
  box.setPalette(palette);
}

class ReadableWindow final : public QObject {
 public:
  explicit ReadableWindow(QWidget& window) : QObject(&window), window_(window) {
    window.installEventFilter(this);
    Apply();
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Show || event->type() == QEvent::StyleChange) Apply();
    return false;
  }

 private:
  // A sheet of the window's own is a change of style, too.
  void Apply() {
    window_.ensurePolished();
    const QString sheet = SheetFor(window_);
    if (sheet != window_.styleSheet()) window_.setStyleSheet(sheet);
    for (QLineEdit* box : window_.findChildren<QLineEdit*>()) DimPlaceholder(*box);
  }

  QWidget& window_;
};

}  // namespace

void KeepReadable(QWidget& window) { new ReadableWindow(window); }  // the window owns it

}  // namespace tessarine
