// SPDX-License-Identifier: GPL-2.0-or-later
// Boxes of rich text.
#include <QFontInfo>
#include <QTextEdit>

#include "hosts/windows/control_view.h"
#include "hosts/windows/form_window.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/rich_document.h"
#include "platform/rich_text.h"

namespace tessarine {
namespace {

// The size of a report's text; on a screen it becomes the size of the window's own font.
constexpr double kReportPoints = 8.5;

bool LiesOnABox(const RichTextBox& box) {
  for (const Control* other : box.Owner().Controls()) {
    if (dynamic_cast<const TextBox*>(other) == nullptr || &other->Container() != &box.Container()) continue;
    if (other->Left() <= box.Left() && other->Top() <= box.Top() &&
        other->Left() + other->Width() >= box.Left() + box.Width() &&
        other->Top() + other->Height() >= box.Top() + box.Height()) {
      return true;
    }
  }
  return false;
}

class RichTextView final : public ControlView {
 public:
  RichTextView(FormWindow& window, RichTextBox& box, QWidget& parent)
      : ControlView(window, box, new QTextEdit(&parent)), box_(box) {
    Edit().setTabChangesFocus(true);
    Edit().setAcceptRichText(false);
    // The box beneath gives the text its border.
    if (LiesOnABox(box)) Edit().setFrameShape(QFrame::NoFrame);
    connect(&Edit(), &QTextEdit::textChanged, this, [this] {
      Tell(
          [this] { box_.SetText(FromQt(Edit().toPlainText().replace(QStringLiteral("\n"), QStringLiteral("\r\n")))); });
    });
  }
  [[nodiscard]] bool TakesFocus() const override { return true; }
  [[nodiscard]] bool HoldsText() const override { return true; }

 private:
  [[nodiscard]] QTextEdit& Edit() const { return *static_cast<QTextEdit*>(Widget()); }

  void UpdateContent() override {
    // A caret would promise that one can type here.
    Edit().setCursorWidth(box_.Locked ? 0 : 1);
    Edit().setTextInteractionFlags(box_.Locked ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                               : Qt::TextInteractionFlags(Qt::TextEditorInteraction));
    const QFont font = Window().font();
    if (box_.TextRTF() != shown_rtf_ || font != shown_font_) {
      // The user's own typing stands already.
      if (box_.Locked || LinesToQt(box_.Text()) != Edit().toPlainText() || font != shown_font_) {
        FillDocument(*Edit().document(), ReadRtf(box_.TextRTF()), font.family(),
                     QFontInfo(font).pointSizeF() / kReportPoints);
      }
      shown_rtf_ = box_.TextRTF();
      shown_font_ = font;
      if (box_.Locked) start_ = -1;
    }
    if (box_.SelStart() == start_) return;
    start_ = box_.SelStart();
    QTextCursor cursor = Edit().textCursor();
    cursor.setPosition(IndexOfCharacter(Edit().toPlainText(), start_));
    Edit().setTextCursor(cursor);
    Edit().ensureCursorVisible();
  }

  RichTextBox& box_;
  std::string shown_rtf_;
  QFont shown_font_;
  std::int32_t start_ = 0;
};

}  // namespace

std::unique_ptr<ControlView> MakeRichTextView(FormWindow& window, RichTextBox& box, QWidget& parent) {
  return std::make_unique<RichTextView>(window, box, parent);
}

}  // namespace tessarine
