// SPDX-License-Identifier: GPL-2.0-or-later
// Printing rich text page by page through Qt, to a device or into a PDF file.
#pragma once

#include <QPainter>
#include <QPrinter>
#include <QTextDocument>
#include <memory>
#include <string>

#include "platform/host.h"

namespace tessarine {

/// Prints the pages that were asked for, all of them unless the device was given a range.
class WindowPrinter final : public IPrinter {
 public:
  explicit WindowPrinter(std::unique_ptr<QPrinter> printer);

  [[nodiscard]] double PageWidth() const override;
  [[nodiscard]] double PageHeight() const override;
  [[nodiscard]] double PhysicalOffsetX() const override;
  [[nodiscard]] double PhysicalOffsetY() const override;
  /// Fault 5 when the device or the file can't be opened.
  void StartDocument(const std::string& title) override;
  std::int32_t FormatRange(const std::string& rtf, std::int32_t first, double left, double top, double right,
                           double bottom) override;
  void NewPage() override;
  void EndDocument() override;

 private:
  void LayOut(const std::string& rtf, double width);
  [[nodiscard]] bool PageIsWanted() const;
  /// Draws the lines between two heights of the document with their corner at a place of the sheet.
  void Draw(double first_line, double end, double left, double top);

  std::unique_ptr<QPrinter> printer_;
  QPainter painter_;
  int page_ = 1;
  bool sheet_begun_ = false;
  // The text of the pages so far, laid out once for all of them.
  std::string rtf_;
  double width_ = -1.0;
  QTextDocument document_;
  QString text_;
};

/// Shows the printer dialog, whose printers include a PDF file; null when the user cancelled it.
[[nodiscard]] std::shared_ptr<IPrinter> ChooseWindowPrinter(QWidget* parent);

}  // namespace tessarine
