// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>

#include "platform/report_heads.h"
#include "platform/rich_text.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

template <class WriteRun>
std::string Join(const RichText& text, WriteRun&& write_run) {
  std::string result;
  bool first = true;
  for (const RichParagraph& paragraph : text) {
    if (!first) result += '\n';
    first = false;
    for (const RichRun& run : paragraph.runs) result += write_run(run);
  }
  return result;
}

// The next code point of UTF-8 text; a damaged byte counts as Latin-1.
std::uint32_t NextCode(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
  const unsigned char lead = byte(at);
  const int extra = lead >= 0xF0 && lead < 0xF5 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC2 ? 1 : 0;
  if (lead < 0x80 || extra == 0 || lead >= 0xF5 || at + static_cast<std::size_t>(extra) >= text.size()) {
    ++at;
    return lead;
  }
  std::uint32_t code = lead & (0x3FU >> static_cast<unsigned>(extra));
  for (int index = 1; index <= extra; ++index) {
    const unsigned char next = byte(at + static_cast<std::size_t>(index));
    if ((next & 0xC0U) != 0x80U) {
      ++at;
      return lead;
    }
    code = code << 6U | (next & 0x3FU);
  }
  at += static_cast<std::size_t>(extra) + 1;
  return code;
}

std::string UnicodeWord(std::uint32_t unit) {
  const int number = unit < 0x8000 ? static_cast<int>(unit) : static_cast<int>(unit) - 0x10000;
  return "\\u" + std::to_string(number) + "?";
}

const char* AlignmentWord(RichParagraph::Alignment alignment) {
  switch (alignment) {
    case RichParagraph::Alignment::Center:
      return "center";
    case RichParagraph::Alignment::Right:
      return "right";
    default:
      return "left";
  }
}

std::string HtmlRun(const RichRun& run) {
  std::string html =
      "<span style=\"font-size: " + NumberText(run.half_points / 2.0) + "pt\">" + EscapeHtml(run.text) + "</span>";
  if (run.underline) html = "<u>" + html + "</u>";
  if (run.italic) html = "<i>" + html + "</i>";
  if (run.bold) html = "<b>" + html + "</b>";
  return html;
}

}  // namespace

std::string ToPlainText(const RichText& text) {
  return Join(text, [](const RichRun& run) { return run.text; });
}

std::string ToTerminalText(const RichText& text) {
  return Join(text, [](const RichRun& run) {
    const std::string on =
        std::string(run.bold ? "\033[1m" : "") + (run.italic ? "\033[3m" : "") + (run.underline ? "\033[4m" : "");
    return on.empty() ? run.text : on + run.text + "\033[0m";
  });
}

std::string ToHtml(const RichText& text, std::string_view title) {
  std::string html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
                     EscapeHtml(title) +
                     "</title>\n<style>body { font-family: Arial, sans-serif; } "
                     "p { margin: 0; min-height: 1em; white-space: pre-wrap; }</style>\n</head>\n<body>\n";
  for (const RichParagraph& paragraph : text) {
    html += "<p style=\"text-align: " + std::string(AlignmentWord(paragraph.alignment)) + "\">";
    for (const RichRun& run : paragraph.runs) html += HtmlRun(run);
    html += "</p>\n";
  }
  return html + "</body>\n</html>\n";
}

std::string PlainTextToRtf(std::string_view text) {
  std::string body = EscapeRtf(Replace(text, "\r\n", "\n"));
  return RtfHead() + "\\uc1\\pard\\f0\\fs17 " + Replace(body, "\n", "\\par\r\n") + "}";
}

std::string EscapeRtf(std::string_view text) {
  std::string escaped;
  for (std::size_t at = 0; at < text.size();) {
    const std::uint32_t code = NextCode(text, at);
    if (code == '\\' || code == '{' || code == '}') escaped += '\\';
    if (code < 0x80) {
      escaped += static_cast<char>(code);
    } else if (code < 0x10000) {
      escaped += UnicodeWord(code);
    } else {
      escaped += UnicodeWord(0xD800 + ((code - 0x10000) >> 10U)) + UnicodeWord(0xDC00 + (code & 0x3FFU));
    }
  }
  return escaped;
}

std::string EscapeHtml(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

}  // namespace tessarine
