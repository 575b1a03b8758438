// SPDX-License-Identifier: GPL-2.0-or-later
// Lists and drop-down lists.
#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QStringListModel>
#include <algorithm>
#include <utility>

#include "hosts/windows/control_view.h"
#include "hosts/windows/form_window.h"
#include "hosts/windows/key_filter.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"

namespace tessarine {
namespace {

// Lists whose lines are texts of the form itself. Others list data, or say in their only line that there are none.
bool ShowsOwnTexts(const Control& list, const QStringList& lines) {
  if (list.Name() == "cboPole" || list.Name() == "lbxGraphics") return true;
  return lines.size() == 1 && (lines.front().startsWith(QLatin1String("<--")) || lines.front().startsWith('['));
}

template <class List>
QStringList LinesOf(const List& list) {
  QStringList lines;
  lines.reserve(list.ListCount());
  for (std::int32_t line = 0; line < list.ListCount(); ++line) lines << ToQt(list.List(line));
  if (ShowsOwnTexts(list, lines)) {
    std::ranges::transform(lines, lines.begin(), [](const QString& line) { return Translated(line); });
  }
  return lines;
}

/// A list with a choice of one, or of many where each click turns one line.
class ListBoxView final : public ControlView {
 public:
  ListBoxView(FormWindow& window, ListBox& list, QWidget& parent)
      : ControlView(window, list, new QListView(&parent)), list_(list), lines_(this) {
    View().setModel(&lines_);
    View().setEditTriggers(QAbstractItemView::NoEditTriggers);
    View().setUniformItemSizes(true);
    View().setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    connect(View().selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& selected, const QItemSelection& deselected) {
              Tell([&] { Chosen(selected, deselected); });
            });
    connect(&View(), &QListView::doubleClicked, this, [this] {
      Tell([this] {
        if (list_.DblClick) list_.DblClick();
      });
    });
    connect(View().verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int top) {
      top_ = top;
      Tell([&] { list_.SetTopIndex(top); });
    });
  }
  [[nodiscard]] bool TakesFocus() const override { return true; }
  [[nodiscard]] bool HoldsText() const override { return true; }

 private:
  [[nodiscard]] QListView& View() const { return *static_cast<QListView*>(Widget()); }

  void Chosen(const QItemSelection& selected, const QItemSelection& deselected) {
    if (!list_.MultiSelect) {
      if (selected.indexes().isEmpty()) {
        ShowChoiceAgain();
      } else {
        list_.SetListIndex(selected.indexes().first().row());
      }
      return;
    }
    for (const QModelIndex& index : deselected.indexes()) list_.SetSelected(index.row(), false);
    for (const QModelIndex& index : selected.indexes()) list_.SetSelected(index.row(), true);
  }

  // A click with Ctrl takes the mark away, and a list of one choice keeps it.
  void ShowChoiceAgain() {
    needs_update = true;
    QMetaObject::invokeMethod(
        this, [this] { Window().Flush(); }, Qt::QueuedConnection);
  }

  void UpdateContent() override {
    View().setSelectionMode(list_.MultiSelect ? QAbstractItemView::MultiSelection : QAbstractItemView::SingleSelection);
    const QStringList lines = LinesOf(list_);
    const bool other_lines = lines != lines_.stringList();
    if (other_lines) {
      lines_.setStringList(lines);
      top_ = 0;
    }
    UpdateSelection();
    if (list_.TopIndex() != top_ && list_.TopIndex() < list_.ListCount()) {
      top_ = list_.TopIndex();
      View().scrollTo(lines_.index(top_), QAbstractItemView::PositionAtTop);
    }
    // A choice made by code may lie out of sight.
    if (list_.ListIndex() == shown_index_ && !other_lines) return;
    shown_index_ = list_.ListIndex();
    if (shown_index_ >= 0) View().scrollTo(lines_.index(shown_index_));
  }

  void UpdateSelection() {
    QItemSelection wanted;
    for (std::int32_t line = 0; line < list_.ListCount(); ++line) {
      if (list_.Selected(line)) wanted.merge({lines_.index(line), lines_.index(line)}, QItemSelectionModel::Select);
    }
    QItemSelectionModel& selection = *View().selectionModel();
    if (list_.ListIndex() >= 0 && selection.currentIndex().row() != list_.ListIndex()) {
      selection.setCurrentIndex(lines_.index(list_.ListIndex()), QItemSelectionModel::NoUpdate);
    }
    if (selection.selection() != wanted) selection.select(wanted, QItemSelectionModel::ClearAndSelect);
  }

  ListBox& list_;
  QStringListModel lines_;
  std::int32_t top_ = 0, shown_index_ = -1;
};

class ComboView final : public ControlView {
 public:
  ComboView(FormWindow& window, ComboBox& combo, QWidget& parent)
      : ControlView(window, combo, new QComboBox(&parent)), combo_(combo) {
    Box().setInsertPolicy(QComboBox::NoInsert);
    connect(&Box(), QOverload<int>::of(&QComboBox::activated), this,
            [this](int line) { Tell([&] { combo_.SetListIndex(line); }); });
  }
  [[nodiscard]] bool TakesFocus() const override { return true; }
  [[nodiscard]] bool HoldsText() const override { return true; }

 private:
  [[nodiscard]] QComboBox& Box() const { return *static_cast<QComboBox*>(Widget()); }

  void MakeEditable() {
    Box().setEditable(true);
    // Completed text would come in past the key filter.
    Box().setCompleter(nullptr);
    connect(Box().lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { Edited(text); });
  }

  void Edited(const QString& text) {
    const bool typed = std::exchange(typed_, false);
    const QString kept = typed || !combo_.KeyPress ? text : Filtered(Compare(ToQt(combo_.Text()), text), text);
    caret_ = Box().lineEdit()->cursorPosition() - (text.size() - kept.size());
    needs_update = true;
    Tell([&] { combo_.SetText(FromQt(kept)); });
    Window().Flush();
  }

  // What comes in one piece goes through the key filter character by character.
  QString Filtered(const Replacement& change, const QString& text) const {
    QString kept;
    for (const QChar character : change.inserted) {
      std::int32_t key = character.unicode() < 0x80 ? character.unicode() : kBeyondAscii;
      Tell([&] { combo_.KeyPress(key); });
      if (key != 0) kept += character;
    }
    return text.left(change.start) + kept + text.mid(change.start + change.inserted.size());
  }

  void UpdateContent() override {
    if (!combo_.DropDownList && !Box().isEditable()) MakeEditable();
    const QStringList lines = LinesOf(combo_);
    if (lines != lines_) {
      lines_ = lines;
      Box().clear();
      Box().addItems(lines);
      const int content = Box().view()->sizeHintForColumn(0) + Box().view()->verticalScrollBar()->sizeHint().width();
      Box().view()->setMinimumWidth(qMax(Box().width(), qMin(content + 8, 3 * Box().width())));
    }
    if (Box().currentIndex() != combo_.ListIndex()) Box().setCurrentIndex(combo_.ListIndex());
    if (!Box().isEditable()) return;
    const QString text = ToQt(combo_.Text());
    if (Box().currentText() != text) Box().setEditText(text);
    // A text that is no line of the list comes in anew, with the caret at its end: it goes back to where the user
    // typed.
    if (const int caret = std::exchange(caret_, -1); caret >= 0) Box().lineEdit()->setCursorPosition(caret);
    // A name longer than the box shows its beginning, unless it is being typed.
    if (!Box().lineEdit()->hasFocus()) Box().lineEdit()->setCursorPosition(0);
  }

  bool RefusesKey(QKeyEvent& event) override {
    typed_ = false;
    std::int32_t key = KeyOf(event);
    if (key == 0 || !Box().isEditable()) return false;
    if (combo_.KeyPress) Tell([&] { combo_.KeyPress(key); });
    typed_ = key != 0;
    return key == 0;
  }

  ComboBox& combo_;
  int caret_ = -1;  // where an edit left it, until it is shown
  QStringList lines_;
  bool typed_ = false;
};

}  // namespace

std::unique_ptr<ControlView> MakeListView(FormWindow& window, ListBox& list, QWidget& parent) {
  return std::make_unique<ListBoxView>(window, list, parent);
}

std::unique_ptr<ControlView> MakeComboView(FormWindow& window, ComboBox& combo, QWidget& parent) {
  return std::make_unique<ComboView>(window, combo, parent);
}

}  // namespace tessarine
