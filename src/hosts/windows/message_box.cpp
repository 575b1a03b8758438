// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/message_box.h"

#include <QMessageBox>
#include <QPushButton>
#include <vector>

#include "hosts/windows/pointer.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/readable_window.h"
#include "hosts/windows/translation.h"

namespace tessarine {
namespace {

struct AnswerButton {
  MessageAnswer answer;
  const char* name;
  const char* caption;
  QMessageBox::ButtonRole role;
};

// The last is what Escape returns.
std::vector<AnswerButton> ButtonsOf(MessageButtons buttons) {
  const AnswerButton ok{MessageAnswer::Ok, "cmdOK", "OK", QMessageBox::AcceptRole};
  switch (buttons) {
    case MessageButtons::OkCancel:
      return {ok, {MessageAnswer::Cancel, "cmdCancel", "Cancel", QMessageBox::RejectRole}};
    case MessageButtons::YesNo:
      return {{MessageAnswer::Yes, "cmdYes", "&Yes", QMessageBox::YesRole},
              {MessageAnswer::No, "cmdNo", "&No", QMessageBox::NoRole}};
    default:
      return {ok};
  }
}

}  // namespace

MessageAnswer ShowMessageBox(QWidget* parent, const std::string& text, const std::string& title, MessageButtons buttons,
                             MessageIcon icon) {
  const PointerPause pause;
  QMessageBox box(parent);
  box.setObjectName(QStringLiteral("MessageBox"));
  box.setWindowTitle(title.empty() ? QStringLiteral("Tessarine Tools") : Translated(ToQt(title).trimmed()));
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse);
  box.setText(Translated(LinesToQt(text)));
  if (icon == MessageIcon::Exclamation) {
    box.setIcon(QMessageBox::Warning);
  } else if (buttons != MessageButtons::Ok) {
    box.setIcon(QMessageBox::Question);
  }
  const std::vector<AnswerButton> answers = ButtonsOf(buttons);
  std::vector<QAbstractButton*> made;
  for (const AnswerButton& answer : answers) {
    QPushButton* button = box.addButton(Translated(answer.caption), answer.role);
    button->setObjectName(QLatin1String(answer.name));
    made.push_back(button);
  }
  // Who presses Enter without reading has agreed to nothing.
  box.setDefaultButton(static_cast<QPushButton*>(buttons == MessageButtons::YesNo ? made.back() : made.front()));
  box.setEscapeButton(made.back());
  KeepReadable(box);
  box.exec();
  for (std::size_t index = 0; index < made.size(); ++index) {
    if (box.clickedButton() == made[index]) return answers[index].answer;
  }
  return answers.back().answer;
}

}  // namespace tessarine
