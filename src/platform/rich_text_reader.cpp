// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

#include "platform/rich_text.h"

namespace tessarine {
namespace {

// Code page 1252 from 0x80 to 0x9F; the rest of it is Latin-1.
constexpr std::array<std::uint32_t, 32> kWindows1252 = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                        0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void AppendUtf8(std::string& text, std::uint32_t code) {
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0U | code >> 6U);
    text += static_cast<char>(0x80U | (code & 0x3FU));
  } else if (code < 0x10000) {
    text += static_cast<char>(0xE0U | code >> 12U);
    text += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
    text += static_cast<char>(0x80U | (code & 0x3FU));
  } else {
    text += static_cast<char>(0xF0U | code >> 18U);
    text += static_cast<char>(0x80U | (code >> 12U & 0x3FU));
    text += static_cast<char>(0x80U | (code >> 6U & 0x3FU));
    text += static_cast<char>(0x80U | (code & 0x3FU));
  }
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

class RtfReader {
 public:
  explicit RtfReader(std::string_view rtf) : rtf_(rtf) {}

  RichText Read() {
    while (at_ < rtf_.size()) ReadOne();
    EndRun();
    if (!paragraph_.runs.empty()) EndParagraph();
    return std::move(text_);
  }

 private:
  struct State {
    RichRun format;
    bool passed_over = false;
    int substitute_count = 1;
  };

  void ReadOne() {
    const char c = rtf_[at_++];
    switch (c) {
      case '{':
        groups_.push_back(state_);
        if (rtf_.substr(at_, 2) == "\\*") state_.passed_over = true;
        return;
      case '}':
        if (groups_.empty()) return;
        EndRun();
        state_ = groups_.back();
        groups_.pop_back();
        return;
      case '\\':
        ReadControl();
        return;
      case '\r':
      case '\n':
        return;
      default:
        PutByte(c);
    }
  }

  void ReadControl() {
    if (at_ == rtf_.size()) return;
    if (IsLetter(rtf_[at_])) {
      ReadWord();
      return;
    }
    const char symbol = rtf_[at_++];
    switch (symbol) {
      case '\\':
      case '{':
      case '}':
        PutByte(symbol);
        return;
      case '~':
        Put(0xA0);
        return;
      case '_':
        PutByte('-');
        return;
      case '\'':
        ReadHex();
        return;
      case '\r':
      case '\n':
        EndRun();
        EndParagraph();
        return;
      default:
        return;
    }
  }

  void ReadHex() {
    const int high = at_ < rtf_.size() ? HexDigit(rtf_[at_]) : -1;
    const int low = at_ + 1 < rtf_.size() ? HexDigit(rtf_[at_ + 1]) : -1;
    if (high < 0 || low < 0) return;
    at_ += 2;
    const auto code = static_cast<std::uint32_t>(high * 16 + low);
    Put(code >= 0x80 && code < 0xA0 ? kWindows1252[code - 0x80] : code);
  }

  void ReadWord() {
    const std::size_t start = at_;
    while (at_ < rtf_.size() && IsLetter(rtf_[at_])) ++at_;
    const std::string_view word = rtf_.substr(start, at_ - start);
    std::string number;
    if (at_ < rtf_.size() && rtf_[at_] == '-') number += rtf_[at_++];
    while (at_ < rtf_.size() && IsDigit(rtf_[at_]) && number.size() < 9) number += rtf_[at_++];
    const bool has_number = !number.empty() && number != "-";
    if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;
    Apply(word, has_number, has_number ? std::atoi(number.c_str()) : 0);
  }

  void Apply(std::string_view word, bool has_number, int number) {
    const bool on = !has_number || number != 0;
    if (word == "fonttbl" || word == "colortbl" || word == "stylesheet" || word == "info" || word == "pict") {
      state_.passed_over = true;
    } else if (word == "par" || word == "line") {
      if (state_.passed_over) return;
      EndRun();
      EndParagraph();
    } else if (word == "pard" || word == "ql") {
      Align(RichParagraph::Alignment::Left);
    } else if (word == "qc") {
      Align(RichParagraph::Alignment::Center);
    } else if (word == "qr") {
      Align(RichParagraph::Alignment::Right);
    } else if (word == "tab") {
      PutByte('\t');
    } else if (word == "u") {
      PutUnicode(number);
    } else if (word == "uc") {
      state_.substitute_count = number;
    } else {
      ApplyFormat(word, on, has_number, number);
    }
  }

  void ApplyFormat(std::string_view word, bool on, bool has_number, int number) {
    RichRun format = state_.format;
    if (word == "b") {
      format.bold = on;
    } else if (word == "i") {
      format.italic = on;
    } else if (word == "ul" || word == "ulnone") {
      format.underline = word == "ul" && on;
    } else if (word == "fs" && has_number && number > 0) {
      format.half_points = number;
    } else if (word == "plain") {
      format = RichRun();
    } else {
      return;
    }
    EndRun();
    state_.format = format;
  }

  void Align(RichParagraph::Alignment alignment) {
    if (!state_.passed_over) paragraph_.alignment = alignment;
  }

  // A character by its number, then its substitutes for readers that know no such number.
  void PutUnicode(int number) {
    const auto unit = static_cast<std::uint32_t>(number) & 0xFFFFU;
    if (unit >= 0xD800 && unit < 0xDC00) {
      high_surrogate_ = unit;
    } else if (unit >= 0xDC00 && unit < 0xE000) {
      if (high_surrogate_ != 0) Put(0x10000 + ((high_surrogate_ - 0xD800) << 10U) + (unit - 0xDC00));
      high_surrogate_ = 0;
    } else {
      Put(unit);
    }
    for (int count = 0; count < state_.substitute_count && at_ < rtf_.size(); ++count) {
      if (rtf_[at_] == '\\' && at_ + 1 < rtf_.size() && rtf_[at_ + 1] == '\'') {
        at_ = std::min(rtf_.size(), at_ + 4);
      } else if (rtf_[at_] != '\\' && rtf_[at_] != '{' && rtf_[at_] != '}') {
        ++at_;
      }
    }
  }

  void Put(std::uint32_t code) {
    if (!state_.passed_over) AppendUtf8(pending_, code);
  }
  void PutByte(char c) {
    if (!state_.passed_over) pending_ += c;
  }

  void EndRun() {
    if (pending_.empty()) return;
    RichRun run = state_.format;
    run.text = std::move(pending_);
    pending_.clear();
    paragraph_.runs.push_back(std::move(run));
  }

  void EndParagraph() {
    const auto alignment = paragraph_.alignment;
    text_.push_back(std::move(paragraph_));
    paragraph_ = {};
    paragraph_.alignment = alignment;
  }

  std::string_view rtf_;
  std::size_t at_ = 0;
  State state_;
  std::vector<State> groups_;
  std::uint32_t high_surrogate_ = 0;
  std::string pending_;
  RichParagraph paragraph_;
  RichText text_;
};

// In the size of a report's text: some reports are plain.
RichText ReadPlain(std::string_view text) {
  constexpr std::int32_t kReportHalfPoints = 17;
  RichText paragraphs;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    RichParagraph paragraph;
    if (!line.empty()) paragraph.runs.push_back({.text = std::string(line), .half_points = kReportHalfPoints});
    paragraphs.push_back(std::move(paragraph));
    text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
  }
  return paragraphs;
}

}  // namespace

RichText ReadRtf(std::string_view rtf) { return rtf.starts_with("{\\rtf") ? RtfReader(rtf).Read() : ReadPlain(rtf); }

}  // namespace tessarine
