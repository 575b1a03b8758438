// SPDX-License-Identifier: GPL-2.0-or-later
// Labels and boxes of plain text.
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyle>
#include <functional>
#include <utility>

#include "hosts/windows/control_view.h"
#include "hosts/windows/form_window.h"
#include "hosts/windows/key_filter.h"
#include "hosts/windows/mnemonics.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/paths.h"

namespace tessarine {
namespace {

/// A label that wraps where it is tall enough for it, and else ends in dots and tells all in its tool tip.
class CaptionLabel final : public QLabel {
 public:
  using QLabel::QLabel;
  std::function<void()> clicked;
  bool right_aligned = false;

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (clicked && event->button() == Qt::LeftButton && rect().contains(event->pos())) clicked();
  }
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const bool one_line = height() < 2 * fontMetrics().lineSpacing();
    const int flags = int{Qt::TextShowMnemonic} | int{right_aligned ? Qt::AlignRight : Qt::AlignLeft} |
                      (one_line ? int{Qt::AlignVCenter} : int{Qt::AlignTop} | int{Qt::TextWordWrap});
    const QString shown =
        one_line ? fontMetrics().elidedText(text(), Qt::ElideRight, width(), Qt::TextShowMnemonic) : text();
    style()->drawItemText(&painter, rect(), flags, palette(), isEnabled(), shown, QPalette::WindowText);
  }
};

class LabelView final : public ControlView {
 public:
  LabelView(FormWindow& window, Label& label, QWidget& parent)
      : ControlView(window, label, new CaptionLabel(&parent)), label_(label) {
    Text().clicked = [this] {
      Tell([this] {
        if (label_.Click) label_.Click();
      });
    };
  }

 private:
  [[nodiscard]] CaptionLabel& Text() const { return *static_cast<CaptionLabel*>(Widget()); }
  void UpdateContent() override {
    QFont font = Window().font();
    font.setBold(label_.Bold());
    font.setUnderline(static_cast<bool>(label_.Click));
    if (font != Text().font()) Text().setFont(font);
    if (label_.Click) Text().setCursor(Qt::PointingHandCursor);
    Text().right_aligned = label_.RightAligned;
    const QString caption = Window().CaptionOf(label_);
    if (caption != Text().text()) Text().setText(caption);
    const QString whole = WithoutMnemonic(caption).replace(QStringLiteral("&&"), QStringLiteral("&"));
    if (label_.ToolTipText().empty() && Text().fontMetrics().horizontalAdvance(whole) > Text().width()) {
      Text().setToolTip(whole);
    }
  }

  Label& label_;
};

// The boxes that hold a path, in every form under this name. A person sees and types native paths.
bool HoldsPath(const TextBox& box) { return box.Name() == "txtOutput"; }

/// One line, typed and pasted through the box's key filter.
class LineView final : public ControlView {
 public:
  LineView(FormWindow& window, TextBox& box, QWidget& parent)
      : ControlView(window, box, new QLineEdit(&parent)), box_(box) {
    connect(&Edit(), &QLineEdit::textEdited, this, [this](const QString& text) { Edited(text); });
  }
  [[nodiscard]] bool TakesFocus() const override { return true; }
  [[nodiscard]] bool HoldsText() const override { return true; }

 private:
  [[nodiscard]] QLineEdit& Edit() const { return *static_cast<QLineEdit*>(Widget()); }

  void UpdateContent() override {
    Edit().setReadOnly(box_.Locked);
    const QString text = Shown();
    const bool other_text = text != Edit().text();
    if (other_text) Edit().setText(text);
    if (!other_text && box_.SelStart() == start_ && box_.SelLength() == length_) return;
    start_ = box_.SelStart();
    length_ = box_.SelLength();
    const int from = IndexOfCharacter(text, start_);
    const int to = IndexOfCharacter(text, start_ + length_);
    Edit().setCursorPosition(from);
    if (to > from) Edit().setSelection(from, to - from);
  }

  [[nodiscard]] QString Shown() const { return ToQt(HoldsPath(box_) ? ToNativePath(box_.Text()) : box_.Text()); }
  [[nodiscard]] std::string Typed(const QString& text) const {
    // A backslash that is typed counts as a separator too.
    return HoldsPath(box_) ? FromNativePath(ToNativePath(FromQt(text))) : FromQt(text);
  }

  void TakeSelection() {
    const QString text = Edit().text();
    const bool selected = Edit().hasSelectedText();
    const int from = selected ? Edit().selectionStart() : Edit().cursorPosition();
    const int to = selected ? Edit().selectionEnd() : from;
    start_ = CharactersBefore(text, from);
    length_ = CharactersBefore(text, to) - start_;
    box_.SetSelStart(start_);
    box_.SetSelLength(length_);
  }

  bool RefusesKey(QKeyEvent& event) override {
    typed_ = false;
    std::int32_t key = KeyOf(event);
    if (key == 0) return false;
    TakeSelection();
    if (box_.Numeric && key == ',') {
      Tell([&] { box_.Type("."); });
      return true;
    }
    if (box_.KeyPress) Tell([&] { box_.KeyPress(key); });
    typed_ = key != 0;
    return key == 0;
  }

  void Edited(const QString& text) {
    // What comes in one piece, from the clipboard or an input method, is typed for the filter's sake.
    const Replacement change = Compare(Shown(), text);
    const bool typed = std::exchange(typed_, false);
    const QString inserted = box_.Numeric ? WithDecimalPoint(change.inserted) : change.inserted;
    if ((box_.KeyPress || box_.Numeric) && !typed && !inserted.isEmpty()) {
      const QString before = Shown();
      box_.SetSelStart(CharactersBefore(before, change.start));
      box_.SetSelLength(CharactersBefore(before.mid(change.start), change.removed));
      Tell([&] { box_.Type(Typed(inserted)); });
      return;
    }
    TakeSelection();
    Tell([&] { box_.SetText(Typed(text)); });
  }

  TextBox& box_;
  std::int32_t start_ = 0, length_ = 0;
  bool typed_ = false;
};

/// Several lines.
class TextView final : public ControlView {
 public:
  TextView(FormWindow& window, TextBox& box, QWidget& parent)
      : ControlView(window, box, new QPlainTextEdit(&parent)), box_(box) {
    Edit().setTabChangesFocus(true);
    connect(&Edit(), &QPlainTextEdit::textChanged, this, [this] {
      Tell(
          [this] { box_.SetText(FromQt(Edit().toPlainText().replace(QStringLiteral("\n"), QStringLiteral("\r\n")))); });
    });
  }
  [[nodiscard]] bool TakesFocus() const override { return true; }
  [[nodiscard]] bool HoldsText() const override { return true; }

 private:
  [[nodiscard]] QPlainTextEdit& Edit() const { return *static_cast<QPlainTextEdit*>(Widget()); }

  void UpdateContent() override {
    Edit().setReadOnly(box_.Locked);
    // A caret would promise that one can type here.
    Edit().setCursorWidth(box_.Locked ? 0 : 1);
    Edit().setTextInteractionFlags(box_.Locked ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                               : Qt::TextInteractionFlags(Qt::TextEditorInteraction));
    const QString text = box_.Locked ? Translated(LinesToQt(box_.Text())) : LinesToQt(box_.Text());
    if (text != Edit().toPlainText()) Edit().setPlainText(text);
  }

  bool RefusesKey(QKeyEvent& event) override {
    std::int32_t key = KeyOf(event);
    if (key == 0 || !box_.KeyPress) return false;
    Tell([&] { box_.KeyPress(key); });
    return key == 0;
  }

  TextBox& box_;
};

}  // namespace

std::unique_ptr<ControlView> MakeLabelView(FormWindow& window, Label& label, QWidget& parent) {
  return std::make_unique<LabelView>(window, label, parent);
}

std::unique_ptr<ControlView> MakeTextBoxView(FormWindow& window, TextBox& box, QWidget& parent) {
  // A locked box taller than a line is a sheet behind others.
  if (box.MultiLine || (box.Locked && box.Text().empty() && box.TabIndex() < 0)) {
    return std::make_unique<TextView>(window, box, parent);
  }
  return std::make_unique<LineView>(window, box, parent);
}

}  // namespace tessarine
