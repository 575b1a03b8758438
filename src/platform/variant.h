// SPDX-License-Identifier: GPL-2.0-or-later
// One value of any kind that a field, a list or a stream may hold.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

#include "platform/date.h"
#include "platform/fault.h"
#include "platform/object.h"

namespace tessarine {

/// The value of a field that has none. It differs from an empty variant, which was never assigned.
struct Null {
  bool operator==(const Null&) const = default;
};

class Variant {
 public:
  enum class Kind { Empty, Null, Boolean, Short, Long, LongLong, Single, Double, String, Date, Object };

  Variant() = default;
  Variant(Null value) : value_(value) {}                           // NOLINT(google-explicit-constructor)
  Variant(bool value) : value_(value) {}                           // NOLINT
  Variant(std::int16_t value) : value_(value) {}                   // NOLINT
  Variant(std::int32_t value) : value_(value) {}                   // NOLINT
  Variant(std::int64_t value) : value_(value) {}                   // NOLINT
  Variant(float value) : value_(value) {}                          // NOLINT
  Variant(double value) : value_(value) {}                         // NOLINT
  Variant(std::string value) : value_(std::move(value)) {}         // NOLINT
  Variant(std::string_view value) : value_(std::string(value)) {}  // NOLINT
  Variant(const char* value) : value_(std::string(value)) {}       // NOLINT
  Variant(tessarine::Date value) : value_(value) {}                // NOLINT
  template <class T>
  Variant(std::shared_ptr<T> value) : value_(ObjectRef(std::move(value))) {}  // NOLINT

  [[nodiscard]] Kind kind() const { return static_cast<Kind>(value_.index()); }
  [[nodiscard]] bool IsEmpty() const { return kind() == Kind::Empty; }
  [[nodiscard]] bool IsNull() const { return kind() == Kind::Null; }
  /// True for numbers, flags and text that reads as a number.
  [[nodiscard]] bool IsNumeric() const;

  // Conversions. Empty reads as False, 0 and ""; Null and what can't be read raise fault 13, a number that
  // doesn't fit raises fault 6. Numbers become whole by rounding halves to even.
  [[nodiscard]] bool AsBoolean() const;
  [[nodiscard]] std::int16_t AsShort() const;
  [[nodiscard]] std::int32_t AsLong() const;
  /// Exact for whole numbers, and for text that reads as one.
  [[nodiscard]] std::int64_t AsLongLong() const;
  [[nodiscard]] float AsSingle() const;
  /// The nearest double: whole numbers beyond 2^53 may lose their last digits.
  [[nodiscard]] double AsDouble() const;
  [[nodiscard]] std::string AsText() const;
  [[nodiscard]] tessarine::Date AsDate() const;
  /// The text without a copy; only for `Kind::String`.
  [[nodiscard]] const std::string& Text() const;

  /// The object as a `T`; null when the variant holds no object or one of another class.
  template <class T>
  [[nodiscard]] std::shared_ptr<T> AsObject() const {
    const auto* object = std::get_if<ObjectRef>(&value_);
    return object != nullptr ? Cast<T>(*object) : nullptr;
  }

  bool operator==(const Variant&) const = default;

 private:
  std::variant<std::monostate, tessarine::Null, bool, std::int16_t, std::int32_t, std::int64_t, float, double,
               std::string, tessarine::Date, ObjectRef>
      value_;
};

}  // namespace tessarine
