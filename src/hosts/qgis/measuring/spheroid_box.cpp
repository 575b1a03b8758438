// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/measuring/spheroid_box.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStandardItemModel>
#include <algorithm>

#include "hosts/document/spheroid_names.h"
#include "hosts/qgis/spheroid_book.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"

namespace tessarine::qgis {
namespace {

constexpr int kRow = Qt::UserRole;

// Names and codes, each with the row of its spheroid.
QStandardItemModel* SearchedTexts(const std::vector<NamedSpheroid>& spheroids, QObject* parent) {
  auto* texts = new QStandardItemModel(parent);
  int row = 0;
  for (const NamedSpheroid& spheroid : spheroids) {
    const std::string code = CodeText(spheroid);
    auto* item = new QStandardItem(ToQt(code.empty() ? spheroid.name : spheroid.name + " (" + code + ")"));
    item->setData(++row, kRow);  // the first row is the project's
    texts->appendRow(item);
  }
  return texts;
}

}  // namespace

SpheroidBox::SpheroidBox(QWidget* parent) : QComboBox(parent), spheroids_(SpheroidsOfCatalog()) {
  // A name that is longer than the window isn't to widen it.
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  addItem(Translated("As the project"));
  for (const NamedSpheroid& spheroid : spheroids_) addItem(ToQt(spheroid.name));
  auto* completer = new QCompleter(SearchedTexts(spheroids_, this), this);
  completer->setFilterMode(Qt::MatchContains);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  completer->popup()->setObjectName(QStringLiteral("lstSpheroids"));
  // The box itself would look for the completion among its lines, which have no codes.
  lineEdit()->setCompleter(completer);
  const auto found = QOverload<const QModelIndex&>::of(&QCompleter::activated);
  connect(
      completer, found, this, [this](const QModelIndex& text) { Take(text.data(kRow).toInt()); }, Qt::QueuedConnection);
  completer->popup()->installEventFilter(this);
  lineEdit()->installEventFilter(this);
  connect(lineEdit(), &QLineEdit::editingFinished, this, [this] { TakeTyped(); });
}

std::optional<NamedSpheroid> SpheroidBox::Chosen() const {
  const int row = currentIndex() - 1;
  return row < 0 ? std::nullopt : std::optional(spheroids_.at(static_cast<std::size_t>(row)));
}

void SpheroidBox::Choose(const QString& name) {
  const auto found = std::ranges::find(spheroids_, FromQt(name), &NamedSpheroid::name);
  setCurrentIndex(found != spheroids_.end() ? static_cast<int>(found - spheroids_.begin()) + 1 : 0);
}

void SpheroidBox::NameFirst(const QString& name) { setItemText(0, Translated("As the project: %1").arg(name)); }

bool SpheroidBox::eventFilter(QObject* watched, QEvent* event) {
  auto* const found = lineEdit() != nullptr ? lineEdit()->completer()->popup() : nullptr;
  if (event->type() == QEvent::FocusOut && watched == lineEdit()) Leave(static_cast<QFocusEvent*>(event)->reason());
  if (event->type() != QEvent::KeyPress || watched != found) return QComboBox::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Escape) {
    found->hide();
    Take(currentIndex());
    return true;
  }
  if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
    Leave(Qt::TabFocusReason);
    return focusNextPrevChild(key == Qt::Key_Tab);
  }
  if ((key != Qt::Key_Return && key != Qt::Key_Enter) || found->currentIndex().isValid()) return false;
  found->hide();
  TakeTyped();
  return true;
}

// What stands in the box is what is measured on: the line that is marked in the list, or else what was typed.
void SpheroidBox::Leave(Qt::FocusReason reason) {
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
  auto* const found = lineEdit()->completer()->popup();
  const QModelIndex marked = found->isVisible() ? found->currentIndex() : QModelIndex();
  found->hide();
  if (marked.isValid()) {
    Take(marked.data(kRow).toInt());
  } else {
    TakeTyped();
  }
}

void SpheroidBox::Take(int row) {
  setCurrentIndex(row);
  setEditText(itemText(row));
}

void SpheroidBox::TakeTyped() {
  const QString typed = currentText().trimmed();
  QCompleter* const completer = lineEdit()->completer();
  if (typed == itemText(currentIndex()) || completer->popup()->isVisible()) return;
  const auto called =
      std::ranges::find_if(spheroids_, [&](const NamedSpheroid& one) { return IsCalled(one, FromQt(typed)); });
  completer->setCompletionPrefix(typed);
  const QModelIndex first = completer->completionModel()->index(0, 0);
  int row = currentIndex();
  if (called != spheroids_.end()) {
    row = static_cast<int>(called - spheroids_.begin()) + 1;
  } else if (!typed.isEmpty() && first.isValid()) {
    row = first.data(kRow).toInt();
  }
  Take(row);
}

}  // namespace tessarine::qgis
