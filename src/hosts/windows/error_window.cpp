// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/error_window.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <QWindow>

#include "hosts/windows/dialog_units.h"
#include "hosts/windows/readable_window.h"
#include "hosts/windows/translation.h"

namespace tessarine {

ErrorWindow::ErrorWindow(QWidget* parent) : QDialog(parent), text_(new QPlainTextEdit(this)) {
  setObjectName(QStringLiteral("ErrorDialog"));
  setWindowTitle(Translated("Unexpected Program Error"));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowModality(Qt::ApplicationModal);
  text_->setObjectName(QStringLiteral("txtError"));
  text_->setReadOnly(true);
  text_->setTabStopDistance(text_->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* buttons = new QDialogButtonBox(this);
  QPushButton* copy = buttons->addButton(Translated("&Copy to Clipboard"), QDialogButtonBox::ActionRole);
  QPushButton* close = buttons->addButton(Translated("C&lose"), QDialogButtonBox::RejectRole);
  copy->setObjectName(QStringLiteral("cmdCopy"));
  close->setObjectName(QStringLiteral("cmdClose"));
  close->setDefault(true);
  connect(copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(text_->toPlainText()); });
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(text_);
  layout->addWidget(buttons);
  resize(DialogUnits(font()).Size(330, 180));
  KeepReadable(*this);
}

void ErrorWindow::Add(const QString& report) {
  const bool first = text_->document()->isEmpty();
  text_->appendPlainText(first ? report.trimmed() : QStringLiteral("\n") + report.trimmed());
  if (first) text_->moveCursor(QTextCursor::Start);
}

// A window manager keeps a window above the one that it is transient for, also where the user clicks that one.
void ErrorWindow::OpenAbove(const QWidget* front) {
  winId();  // makes the window of the system
  windowHandle()->setTransientParent(front != nullptr ? front->window()->windowHandle() : nullptr);
  show();
  raise();
  activateWindow();
}

}  // namespace tessarine
