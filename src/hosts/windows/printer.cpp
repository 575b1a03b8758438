// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/windows/printer.h"

#include <QAbstractTextDocumentLayout>
#include <QPrintDialog>
#include <QTextBlock>

#include "hosts/windows/qt_text.h"
#include "hosts/windows/rich_document.h"
#include "platform/fault.h"
#include "platform/rich_text.h"

namespace tessarine {
namespace {

constexpr double kTwipsPerInch = 1440.0;
constexpr double kTwipsPerPoint = 20.0;
constexpr const char* kPrintedFamily = "Arial";

// The lines from `first` on that fit into a height.
struct FittingLines {
  double top = 0.0, bottom = 0.0;
  int next = 0;
};

FittingLines FitLines(const QTextDocument& document, int first, double height) {
  FittingLines lines;
  lines.next = first;
  bool begun = false;
  for (QTextBlock block = document.findBlock(first); block.isValid(); block = block.next()) {
    const double block_top = document.documentLayout()->blockBoundingRect(block).top();
    for (int index = 0; index < block.layout()->lineCount(); ++index) {
      const QTextLine line = block.layout()->lineAt(index);
      const int end = block.position() + line.textStart() + line.textLength();
      const bool last = index + 1 == block.layout()->lineCount();
      if (!begun && !last && end <= first) continue;
      const double top = block_top + line.y();
      if (!begun) lines.top = lines.bottom = top;
      begun = true;
      if (top + line.height() - lines.top > height) return lines;
      lines.bottom = top + line.height();
      // A paragraph ends with a separator, which counts as a character of its last line.
      lines.next = last ? block.position() + block.length() : end;
    }
  }
  return lines;
}

}  // namespace

WindowPrinter::WindowPrinter(std::unique_ptr<QPrinter> printer) : printer_(std::move(printer)) {
  document_.setDocumentMargin(0);
}

double WindowPrinter::PageWidth() const { return printer_->pageLayout().fullRectPoints().width() * kTwipsPerPoint; }
double WindowPrinter::PageHeight() const { return printer_->pageLayout().fullRectPoints().height() * kTwipsPerPoint; }

// The painter's origin is the corner of what the device can print on.
double WindowPrinter::PhysicalOffsetX() const {
  return printer_->pageLayout().paintRectPoints().left() * kTwipsPerPoint;
}
double WindowPrinter::PhysicalOffsetY() const {
  return printer_->pageLayout().paintRectPoints().top() * kTwipsPerPoint;
}

void WindowPrinter::StartDocument(const std::string& title) {
  printer_->setDocName(ToQt(title));
  page_ = 1;
  sheet_begun_ = false;
  printer_->setCreator(QStringLiteral("Tessarine Tools"));
  if (!painter_.begin(printer_.get())) {
    const QString place = printer_->outputFileName().isEmpty() ? printer_->printerName() : printer_->outputFileName();
    Raise(kInvalidCall, "Can't print to '" + FromQt(place) + "'.");
  }
}

void WindowPrinter::LayOut(const std::string& rtf, double width) {
  if (rtf == rtf_ && width == width_) return;
  rtf_ = rtf;
  width_ = width;
  document_.documentLayout()->setPaintDevice(printer_.get());
  FillDocument(document_, ReadRtf(rtf), QLatin1String(kPrintedFamily), 1.0);
  document_.setTextWidth(width);
  text_ = document_.toPlainText();
}

std::int32_t WindowPrinter::FormatRange(const std::string& rtf, std::int32_t first, double left, double top,
                                        double right, double bottom) {
  const double across = printer_->logicalDpiX() / kTwipsPerInch, down = printer_->logicalDpiY() / kTwipsPerInch;
  LayOut(rtf, (right - left) * across);
  const FittingLines lines = FitLines(document_, IndexOfCharacter(text_, first), (bottom - top) * down);
  if (PageIsWanted()) Draw(lines.top, lines.bottom, left * across, top * down);
  return CharactersBefore(text_, lines.next);
}

// The user may have asked for some of the pages.
bool WindowPrinter::PageIsWanted() const {
  if (printer_->printRange() != QPrinter::PageRange || printer_->fromPage() == 0) return true;
  return page_ >= printer_->fromPage() && page_ <= printer_->toPage();
}

void WindowPrinter::Draw(double first_line, double end, double left, double top) {
  if (sheet_begun_) printer_->newPage();
  sheet_begun_ = true;
  painter_.save();
  painter_.translate(left, top - first_line);
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = QRectF(0, first_line, width_, end - first_line);
  context.palette.setColor(QPalette::Text, Qt::black);
  painter_.setClipRect(context.clip);
  document_.documentLayout()->draw(&painter_, context);
  painter_.restore();
}

void WindowPrinter::NewPage() { ++page_; }

void WindowPrinter::EndDocument() { painter_.end(); }

std::shared_ptr<IPrinter> ChooseWindowPrinter(QWidget* parent) {
  auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
  QPrintDialog dialog(printer.get(), parent);
  if (dialog.exec() != QDialog::Accepted) return nullptr;
  return std::make_shared<WindowPrinter>(std::move(printer));
}

}  // namespace tessarine
