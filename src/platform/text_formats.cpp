// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/text_formats.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "platform/fault.h"

namespace tessarine {
namespace {

constexpr int kSignificantDigits = 15;
constexpr std::array kMonths = {"January", "February", "March",     "April",   "May",      "June",
                                "July",    "August",   "September", "October", "November", "December"};
constexpr std::array kWeekdays = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};

// A decimal number: 0.digits x 10^exponent, without zeros at either end; no digits for 0.
struct Decimal {
  bool negative = false;
  std::string digits;
  int exponent = 0;
};

// Rounds the decimal to `count` digits, halves away from zero.
void RoundDigits(Decimal& number, int count) {
  if (count >= static_cast<int>(number.digits.size())) return;
  if (count < 0) {
    number.digits.clear();
    return;
  }
  const bool up = number.digits[static_cast<std::size_t>(count)] >= '5';
  number.digits.resize(static_cast<std::size_t>(count));
  if (up) {
    std::size_t place = number.digits.size();
    while (place > 0 && number.digits[place - 1] == '9') number.digits[--place] = '0';
    if (place > 0) {
      ++number.digits[place - 1];
    } else {
      number.digits.insert(number.digits.begin(), '1');
      ++number.exponent;
    }
  }
  while (!number.digits.empty() && number.digits.back() == '0') number.digits.pop_back();
}

// The 15 significant digits under which numbers are shown.
Decimal ToDecimal(double value) {
  Decimal number;
  number.negative = std::signbit(value);
  if (value == 0.0) return number;
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::fabs(value),
                                 std::chars_format::scientific, kSignificantDigits - 1)
                       .ptr;
  const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const std::size_t mark = text.find('e');
  number.digits = text[0];
  number.digits += text.substr(2, mark - 2);
  number.exponent = std::atoi(std::string(text.substr(mark + 1)).c_str()) + 1;
  while (!number.digits.empty() && number.digits.back() == '0') number.digits.pop_back();
  return number;
}

std::string WholePart(const Decimal& number) {
  if (number.digits.empty() || number.exponent <= 0) return "0";
  std::string whole = number.digits.substr(0, static_cast<std::size_t>(number.exponent));
  whole.resize(static_cast<std::size_t>(number.exponent), '0');
  return whole;
}

// The digits after the point, without trailing zeros.
std::string Fraction(const Decimal& number) {
  if (number.exponent < 0) return std::string(static_cast<std::size_t>(-number.exponent), '0') + number.digits;
  const auto whole = static_cast<std::size_t>(number.exponent);
  return whole < number.digits.size() ? number.digits.substr(whole) : "";
}

std::string WithThousands(std::string whole) {
  for (auto place = static_cast<std::ptrdiff_t>(whole.size()) - 3; place > 0; place -= 3) {
    whole.insert(static_cast<std::size_t>(place), 1, ',');
  }
  return whole;
}

// The plain form of a number text: digits, a point, an exponent; empty when the text is no number.
std::string PlainNumber(std::string_view text) {
  const std::string trimmed = Trim(text);
  std::string plain;
  std::size_t at = 0;
  const auto peek = [&] { return at < trimmed.size() ? trimmed[at] : '\0'; };
  const auto digit = [&] { return peek() >= '0' && peek() <= '9'; };
  if (peek() == '-' || peek() == '+') {
    if (peek() == '-') plain += '-';
    ++at;
    while (peek() == ' ') ++at;
  }
  bool digits = false;
  for (; digit() || (digits && peek() == ','); ++at) {
    if (digit()) plain += peek();
    digits = true;
  }
  if (peek() == '.') {
    plain += digits ? "." : "0.";
    for (++at; digit(); ++at) {
      plain += peek();
      digits = true;
    }
  }
  if (!digits) return "";
  if (peek() == 'e' || peek() == 'E') {
    plain += 'e';
    ++at;
    if (peek() == '-' || peek() == '+') {
      if (peek() == '-') plain += '-';
      ++at;
    }
    if (!digit()) return "";
    for (; digit(); ++at) plain += peek();
  }
  return at == trimmed.size() ? plain : "";
}

// Whether a plain number's first digit that isn't 0 stands after the point, its power of ten counted in.
bool IsBelowOne(std::string_view plain) {
  const std::size_t mark = std::min(plain.find('e'), plain.size());
  const std::size_t point = std::min(plain.find('.'), mark);
  const std::size_t first = std::min(plain.find_first_of("123456789"), mark);
  const std::ptrdiff_t places = static_cast<std::ptrdiff_t>(point) - static_cast<std::ptrdiff_t>(first);
  std::int64_t power = 0;
  const std::string_view digits = plain.substr(std::min(mark + 1, plain.size()));
  if (std::from_chars(digits.data(), digits.data() + digits.size(), power).ec == std::errc::result_out_of_range) {
    return digits.front() == '-';
  }
  return places + power <= 0;
}

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

char LowerLetter(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string NumberText(double value) {
  Decimal number = ToDecimal(value);
  if (number.digits.empty()) return "0";
  const std::string sign = number.negative ? "-" : "";
  const int places = static_cast<int>(number.digits.size()) - number.exponent;
  if (number.exponent > kSignificantDigits || places > kSignificantDigits) {
    std::string text = sign + number.digits.substr(0, 1);
    if (number.digits.size() > 1) text += "." + number.digits.substr(1);
    const int exponent = number.exponent - 1;
    return text + "E" + (exponent < 0 ? "-" : "+") + TwoDigits(std::abs(exponent));
  }
  const std::string fraction = Fraction(number);
  return sign + WholePart(number) + (fraction.empty() ? "" : "." + fraction);
}

std::string ExactNumberText(double value) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  return {buffer.data(), end};
}

std::string FixedText(double value, int decimals, bool thousands) {
  Decimal number = ToDecimal(value);
  RoundDigits(number, number.exponent + decimals);
  std::string whole = WholePart(number);
  if (thousands) whole = WithThousands(whole);
  std::string fraction = number.digits.empty() ? "" : Fraction(number);
  fraction.resize(static_cast<std::size_t>(decimals), '0');
  const std::string sign = number.negative && !number.digits.empty() ? "-" : "";
  return sign + whole + (decimals > 0 ? "." + fraction : "");
}

std::string TwoDigits(std::int64_t value) {
  const std::string text = std::to_string(value);
  if (value < 0) return value > -10 ? "-0" + text.substr(1) : text;
  return value < 10 ? "0" + text : text;
}

bool IsNumericText(std::string_view text) { return !PlainNumber(text).empty(); }

double ToNumber(std::string_view text) {
  const std::string plain = PlainNumber(text);
  if (plain.empty()) Raise(kTypeMismatch, "'" + std::string(text) + "' is not a number.");
  double value = 0.0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
  if (error == std::errc::result_out_of_range) {
    if (IsBelowOne(plain)) return 0.0;
    Raise(kOverflow, "'" + std::string(text) + "' is too large a number.");
  }
  return value;
}

std::string ShortDate(Date date) {
  const DateParts parts = Split(date);
  return std::to_string(parts.month) + "/" + std::to_string(parts.day) + "/" + std::to_string(parts.year);
}

std::string LongTime(Date date) {
  const DateParts parts = Split(date);
  const int hour = parts.hour % 12 == 0 ? 12 : parts.hour % 12;
  return std::to_string(hour) + ":" + TwoDigits(parts.minute) + ":" + TwoDigits(parts.second) +
         (parts.hour < 12 ? " AM" : " PM");
}

std::string LongDate(Date date) {
  const DateParts parts = Split(date);
  return std::string(kWeekdays[static_cast<std::size_t>(parts.weekday)]) + ", " +
         kMonths[static_cast<std::size_t>(parts.month - 1)] + " " + TwoDigits(parts.day) + ", " +
         std::to_string(parts.year);
}

std::string LowerCase(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(), LowerLetter);
  return result;
}

bool EqualsIgnoringCase(std::string_view first, std::string_view second) {
  return std::ranges::equal(first, second, {}, LowerLetter, LowerLetter);
}

bool EndsWithIgnoringCase(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && EqualsIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

std::string Replace(std::string_view text, std::string_view find, std::string_view replacement) {
  if (find.empty()) return std::string(text);
  std::string result;
  std::size_t from = 0;
  for (std::size_t at = text.find(find); at != std::string_view::npos; at = text.find(find, from)) {
    result += text.substr(from, at - from);
    result += replacement;
    from = at + find.size();
  }
  result += text.substr(from);
  return result;
}

std::string Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return std::string(text);
}

}  // namespace tessarine
