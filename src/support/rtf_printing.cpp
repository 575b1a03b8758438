// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/rtf_printing.h"

#include "platform/rich_text.h"
#include "platform/trap.h"

namespace tessarine::MyGeneralOperations {
namespace {

std::int32_t CharacterCount(const std::string& text) {
  std::int32_t count = 0;
  for (const char c : text) count += (static_cast<unsigned char>(c) & 0xC0U) != 0x80U ? 1 : 0;
  return count;
}

}  // namespace

PrintArea WYSIWYG_RTF(const IPrinter& printer, double left, double right, double top, double bottom) {
  return Trap("WYSIWYG_RTF", [&] {
    const double x_offset = printer.PhysicalOffsetX();
    const double y_offset = printer.PhysicalOffsetY();
    return PrintArea{left - x_offset, top - y_offset, printer.PageWidth() - right - x_offset,
                     printer.PageHeight() - bottom - y_offset};
  });
}

void PrintRTF(const std::string& rich_text, IPrinter& printer, double left, double right, double top, double bottom) {
  Trap("PrintRTF", [&] {
    const PrintArea area = WYSIWYG_RTF(printer, left, right, top, bottom);
    const std::int32_t length = CharacterCount(ToPlainText(ReadRtf(rich_text)));
    printer.StartDocument("Report");
    for (std::int32_t next = 0;;) {
      const std::int32_t first = next;
      next = printer.FormatRange(rich_text, first, area.left, area.top, area.right, area.bottom);
      if (next >= length) break;
      // A page too small for a single line would never end.
      if (next <= first) Raise(kInvalidCall, "The page is too small for the text.");
      printer.NewPage();
    }
    printer.EndDocument();
  });
}

}  // namespace tessarine::MyGeneralOperations
