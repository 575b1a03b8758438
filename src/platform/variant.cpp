// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/variant.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/calendar.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

template <class... Visitors>
struct Overloaded : Visitors... {
  using Visitors::operator()...;
};
template <class... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

[[noreturn]] void RaiseMismatch() { Raise(kTypeMismatch, "Type mismatch."); }

double RoundHalfEven(double value) {
  const double whole = std::floor(value);
  const double rest = value - whole;
  if (rest != 0.5) return std::floor(value + 0.5);
  return std::fmod(whole, 2.0) == 0.0 ? whole : whole + 1.0;
}

std::string ShortestSingle(float value) {
  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  return {buffer.data(), end};
}

template <class Whole>
[[noreturn]] void RaiseTooLarge(const std::string& value) {
  Raise(kOverflow,
        "Overflow: " + value + " doesn't fit a whole number of " + std::to_string(sizeof(Whole) * 8) + " bits.");
}

template <class Whole>
Whole ToWhole(double value) {
  const double rounded = RoundHalfEven(value);
  // The greatest number of 64 bits is no double, the one above it is.
  const double end = std::ldexp(1.0, std::numeric_limits<Whole>::digits);
  if (!(rounded >= -end && rounded < end)) RaiseTooLarge<Whole>(NumberText(value));
  return static_cast<Whole>(rounded);
}

template <class Whole>
Whole ToWhole(std::int64_t value) {
  if (!std::in_range<Whole>(value)) RaiseTooLarge<Whole>(std::to_string(value));
  return static_cast<Whole>(value);
}

}  // namespace

bool Variant::IsNumeric() const {
  switch (kind()) {
    case Kind::Boolean:
    case Kind::Short:
    case Kind::Long:
    case Kind::LongLong:
    case Kind::Single:
    case Kind::Double:
      return true;
    case Kind::String:
      return IsNumericText(Text());
    default:
      return false;
  }
}

double Variant::AsDouble() const {
  return std::visit(
      Overloaded{
          [](std::monostate) { return 0.0; }, [](tessarine::Null) -> double { RaiseMismatch(); },
          [](bool value) { return value ? -1.0 : 0.0; }, [](std::int16_t value) { return static_cast<double>(value); },
          [](std::int32_t value) { return static_cast<double>(value); },
          [](std::int64_t value) { return static_cast<double>(value); },
          [](float value) { return static_cast<double>(value); }, [](double value) { return value; },
          [](const std::string& value) { return ToNumber(value); }, [](tessarine::Date value) { return value.serial; },
          [](const ObjectRef&) -> double { RaiseMismatch(); }},
      value_);
}

bool Variant::AsBoolean() const {
  if (const auto* flag = std::get_if<bool>(&value_)) return *flag;
  if (kind() == Kind::String) {
    if (EqualsIgnoringCase(Text(), "True")) return true;
    if (EqualsIgnoringCase(Text(), "False")) return false;
  }
  return AsDouble() != 0.0;
}

std::int16_t Variant::AsShort() const {
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) return ToWhole<std::int16_t>(*whole);
  return ToWhole<std::int16_t>(AsDouble());
}

std::int32_t Variant::AsLong() const {
  if (const auto* whole = std::get_if<std::int32_t>(&value_)) return *whole;
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) return ToWhole<std::int32_t>(*whole);
  return ToWhole<std::int32_t>(AsDouble());
}

std::int64_t Variant::AsLongLong() const {
  if (const auto* whole = std::get_if<std::int64_t>(&value_)) return *whole;
  if (const auto* text = std::get_if<std::string>(&value_)) {
    std::int64_t whole = 0;
    const auto end = std::from_chars(text->data(), text->data() + text->size(), whole);
    if (end.ec == std::errc() && end.ptr == text->data() + text->size()) return whole;
  }
  return ToWhole<std::int64_t>(AsDouble());
}

float Variant::AsSingle() const {
  const double value = AsDouble();
  if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max())) Raise(kOverflow, "Overflow.");
  return static_cast<float>(value);
}

std::string Variant::AsText() const {
  return std::visit(
      Overloaded{[](std::monostate) { return std::string(); }, [](tessarine::Null) -> std::string { RaiseMismatch(); },
                 [](bool value) { return std::string(value ? "True" : "False"); },
                 [](std::int16_t value) { return std::to_string(value); },
                 [](std::int32_t value) { return std::to_string(value); },
                 [](std::int64_t value) { return std::to_string(value); },
                 // The shortest decimal that names the single is the one that a person typed.
                 [](float value) { return NumberText(ToNumber(ShortestSingle(value))); },
                 [](double value) { return NumberText(value); }, [](const std::string& value) { return value; },
                 [](tessarine::Date value) {
                   return IsImpossible(value) ? std::string() : ShortDate(value) + " " + LongTime(value);
                 },
                 [](const ObjectRef&) -> std::string { RaiseMismatch(); }},
      value_);
}

tessarine::Date Variant::AsDate() const {
  if (const auto* date = std::get_if<tessarine::Date>(&value_)) return *date;
  return {AsDouble()};
}

const std::string& Variant::Text() const {
  const auto* text = std::get_if<std::string>(&value_);
  if (text == nullptr) RaiseMismatch();
  return *text;
}

}  // namespace tessarine
