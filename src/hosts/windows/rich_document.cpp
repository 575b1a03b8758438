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

// Texts of reports are of 8, 8.5 and 9 points, whichever tool wrote them, and look alike.
double PointsOf(const RichRun& run) {
  constexpr std::int32_t kSmallest = 16, kUsual = 17, kLargest = 18;
  const bool usual = run.half_points >= kSmallest && run.half_points <= kLargest;
  return (usual ? kUsual : run.half_points) / 2.0;
}

QTextCharFormat FormatOf(const RichRun& run, const QString& font_family, double scale) {
  QTextCharFormat format;
  format.setFontFamily(font_family);
  format.setFontStyleHint(QFont::SansSerif);
  format.setFontPointSize(PointsOf(run) * scale);
  format.setFontWeight(run.bold ? QFont::Bold : QFont::Normal);
  format.setFontItalic(run.italic);
  format.setFontUnderline(run.underline);
  return format;
}

// The first paragraph goes where the cursor stands, or into a block of its own.
void Insert(QTextCursor& cursor, const RichText& text, AppendedTo place, const QString& font_family, double scale) {
  bool goes_on = place == AppendedTo::LastLine;
  for (const RichParagraph& paragraph : text) {
    QTextBlockFormat block;
    block.setAlignment(AlignmentOf(paragraph.alignment));
    // A paragraph without text has the height of its neighbours.
    const QTextCharFormat format = FormatOf(
        paragraph.runs.empty() ? RichRun{"", false, false, false, 17} : paragraph.runs.front(), font_family, scale);
    if (goes_on && cursor.atStart()) {
      cursor.setBlockFormat(block);
      cursor.setBlockCharFormat(format);
    } else if (!goes_on) {
      cursor.insertBlock(block, format);
    }
    goes_on = false;
    for (const RichRun& run : paragraph.runs) cursor.insertText(ToQt(run.text), FormatOf(run, font_family, scale));
  }
}

}  // namespace

void FillDocument(QTextDocument& document, const RichText& text, const QString& font_family, double scale) {
  document.clear();
  document.setUndoRedoEnabled(false);
  QTextCursor cursor(&document);
  cursor.beginEditBlock();
  Insert(cursor, text, AppendedTo::LastLine, font_family, scale);
  cursor.endEditBlock();
}

void AppendToDocument(QTextDocument& document, const RichText& text, AppendedTo place, const QString& font_family,
                      double scale) {
  QTextCursor cursor(&document);
  cursor.movePosition(QTextCursor::End);
  cursor.beginEditBlock();
  Insert(cursor, text, place, font_family, scale);
  cursor.endEditBlock();
}

}  // namespace tessarine
