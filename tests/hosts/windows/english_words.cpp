// SPDX-License-Identifier: GPL-2.0-or-later
#include "tests/hosts/windows/english_words.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTextEdit>

#include "hosts/windows/translation_file.h"

namespace tessarine::testing {
namespace {

QStringList WordsOf(QString text) {
  static const QRegularExpression named(QStringLiteral("'[^']*'|\"[^\"]*\"|\\S*[/\\\\.]\\S+"));
  static const QRegularExpression word(QStringLiteral("\\p{L}{2,}"));
  text.remove(named);
  text.remove(QLatin1Char('&'));  // of a mnemonic
  QStringList words;
  for (auto found = word.globalMatch(text); found.hasNext();) words << found.next().captured().toLower();
  return words;
}

void AddLines(const QAbstractItemModel& model, const QModelIndex& root, QStringList& texts) {
  for (int row = 0; row < model.rowCount(root); ++row) {
    for (int column = 0; column < model.columnCount(root); ++column) {
      const QModelIndex index = model.index(row, column, root);
      texts << index.data().toString() << index.data(Qt::ToolTipRole).toString();
    }
  }
}

void AddHeads(const QHeaderView& view, QStringList& texts) {
  for (int section = 0; section < view.count(); ++section) {
    texts << view.model()->headerData(section, view.orientation()).toString();
  }
}

void AddOwn(const QWidget& widget, QStringList& texts) {
  texts << widget.toolTip();
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) texts << label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) texts << button->text();
  if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) texts << group->title();
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) texts << line->text() << line->placeholderText();
  if (const auto* box = qobject_cast<const QPlainTextEdit*>(&widget)) texts << box->toPlainText();
  if (const auto* box = qobject_cast<const QTextEdit*>(&widget)) texts << box->toPlainText();
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) AddLines(*combo->model(), {}, texts);
  if (const auto* head = qobject_cast<const QHeaderView*>(&widget)) {
    if (head->isVisible()) AddHeads(*head, texts);
  } else if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget); view != nullptr && view->model()) {
    AddLines(*view->model(), {}, texts);
  }
}

}  // namespace

QStringList ShownTextsOf(const QWidget& window) {
  QStringList texts{window.windowTitle()};
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisibleTo(&window)) AddOwn(*widget, texts);
  }
  texts.removeDuplicates();
  return texts;
}

EnglishWords::EnglishWords() {
  QFile file(QStringLiteral(TESSARINE_SOURCE_DIR "/src/hosts/windows/translations/tessarine_de.ts"));
  if (!file.open(QIODevice::ReadOnly)) return;
  const QHash<QString, QString> translations = ReadTranslations(file);
  for (auto text = translations.cbegin(); text != translations.cend(); ++text) {
    for (const QString& word : WordsOf(text.key())) words_ << word;
  }
  for (const QString& translation : translations) {
    for (const QString& word : WordsOf(translation)) words_.remove(word);
  }
}

QStringList EnglishWords::In(const QStringList& texts) const {
  QStringList found;
  for (const QString& text : texts) {
    for (const QString& word : WordsOf(text)) {
      if (!words_.contains(word)) continue;
      found << text + QStringLiteral(" <- ") + word;
      break;
    }
  }
  return found;
}

}  // namespace tessarine::testing
