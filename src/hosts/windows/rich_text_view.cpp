// SPDX-License-Identifier: GPL-2.0-or-later
// Boxes of rich text.
#include <QFontInfo>
#include <QTextEdit>
#include <string_view>

#include "hosts/windows/control_view.h"
#include "hosts/windows/form_window.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/rich_document.h"
#include "hosts/windows/text_pattern.h"
#include "hosts/windows/translation.h"
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

// What a text begins with that was set as plain text.
const std::string& HeadOfPlainText() {
  static const std::string head = [] {
    std::string rtf = PlainTextToRtf("");
    rtf.pop_back();
    return rtf;
  }();
  return head;
}

// A report stays as it is written, here as at the terminal: its title stands in the middle, or it is plain text. What
// can be typed into is the user's.
bool ShowsOwnTexts(const RichTextBox& box, const RichText& text) {
  if (!box.Locked || box.Name() != "txtReport") return box.Locked;
  const bool has_title = !text.empty() && text.front().alignment == RichParagraph::Alignment::Center;
  return !has_title && box.TextRTF().starts_with("{\\rtf");
}

// The suite's own texts by their runs.
RichText InLanguage(RichText text, const RichTextBox& box) {
  if (!ShowsOwnTexts(box, text)) return text;
  for (RichParagraph& paragraph : text) {
    for (RichRun& run : paragraph.runs) {
      const QString whole = ToQt(run.text);
      const QString translated = Translated(whole);
      if (translated != whole) run.text = FromQt(InBlanksOf(whole, translated.trimmed()));
    }
  }
  return text;
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
        const double scale = QFontInfo(font).pointSizeF() / kReportPoints;
        if (font != shown_font_ || !AppendWhatIsNew(scale)) {
          FillDocument(*Edit().document(), Shown(), font.family(), scale);
        }
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

  [[nodiscard]] RichText Shown() const { return InLanguage(ReadRtf(box_.TextRTF()), box_); }

  // A log grows line by line: what stands is left alone. False where the text isn't the shown one with more after it.
  bool AppendWhatIsNew(double scale) {
    const std::string& head = HeadOfPlainText();
    const std::string& rtf = box_.TextRTF();
    if (!shown_rtf_.starts_with(head) || !rtf.starts_with(head)) return false;
    const std::string_view shown(shown_rtf_.data(), shown_rtf_.size() - 1);  // without the end of the group
    if (shown.size() == head.size() || !rtf.starts_with(shown)) return false;
    const AppendedTo place = shown.ends_with("\\par\r\n") ? AppendedTo::NewLine : AppendedTo::LastLine;
    AppendToDocument(*Edit().document(), InLanguage(ReadRtf(head + rtf.substr(shown.size())), box_), place,
                     Window().font().family(), scale);
    return true;
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
