// SPDX-License-Identifier: GPL-2.0-or-later
// Printing of rich text, page by page. All measures are twips, 1440 to the inch.
#pragma once

#include <cstdint>
#include <string>

#include "platform/host.h"

namespace tessarine::MyGeneralOperations {

/// The text area of a page: the sheet less the margins, each less what the device can't print on anyway.
struct PrintArea {
  double left, top, right, bottom;

  [[nodiscard]] double LineWidth() const { return right - left; }
  [[nodiscard]] double PageHeight() const { return bottom - top; }
};

/// Matches a text to a printer: the width of its lines and the height of its pages.
[[nodiscard]] PrintArea WYSIWYG_RTF(const IPrinter& printer, double left, double right, double top, double bottom);

/// Prints the text on as many pages as it takes.
void PrintRTF(const std::string& rich_text, IPrinter& printer, double left, double right, double top, double bottom);

}  // namespace tessarine::MyGeneralOperations
