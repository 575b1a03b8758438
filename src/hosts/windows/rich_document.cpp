// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/rich_document.h"

#include <QTextCursor>

#include "hosts/windows/qt_text.h"

namespace tessarine {
namespace {

Qt::Alignment AlignmentOf(RichParagraph::Alignment alignment) {
  switch (alignment) {
    case RichParagraph::Alignment::Center:
      return Qt::AlignHCenter;
    case RichParagraph::Alignment::Right:
      return Qt::AlignRight;
    default:
      return Qt::AlignLeft;
  }
}

QTextCharFormat FormatOf(const RichRun& run, const QString& font_family, double scale) {
  QTextCharFormat format;
  format.setFontFamily(font_family);
  format.setFontStyleHint(QFont::SansSerif);
  format.setFontPointSize(run.half_points / 2.0 * scale);
  format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
  format.setFontItalic(run.italic);
  format.setFontUnderline(run.underline);
  return format;
}

}  // namespace

void FillDocument(QTextDocument& document, const RichText& text, const QString& font_family, double scale) {
  document.clear();
  document.setUndoRedoEnabled(false);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  bool first = true;
  for (const RichParagraph& paragraph : text) {
    QTextBlockFormat block;
    block.setAlignment(AlignmentOf(paragraph.alignment));
    // A paragraph without text has the height of its neighbours.
    const QTextCharFormat format = FormatOf(
        paragraph.runs.empty() ? RichRun{"", false, false, false, 17} : paragraph.runs.front(), font_family, scale);
    if (first) {
      cursor.setBlockFormat(block);
      cursor.setBlockCharFormat(format);
    } else {
      cursor.insertBlock(block, format);
    }
    first = false;
    for (const RichRun& run : paragraph.runs) cursor.insertText(ToQt(run.text), FormatOf(run, font_family, scale));
  }
  cursor.endEditBlock();
}

}  // namespace tessarine
