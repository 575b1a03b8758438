// SPDX-License-Identifier: GPL-2.0-or-later
// Reading JSON of a document with errors that name the place.
#pragma once

#include <limits>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>

#include "platform/fault.h"
#include "platform/geometry_types.h"

namespace tessarine {

/// A value in a document and the way to it, as "map.layers[2].name".
class JsonPlace {
 public:
  JsonPlace(const nlohmann::json& value, std::string path) : value_(&value), path_(std::move(path)) {}

  [[nodiscard]] const nlohmann::json& Value() const { return *value_; }
  [[nodiscard]] const std::string& Path() const { return path_; }
  [[noreturn]] void Fail(const std::string& expected) const {
    Raise(kInvalidCall, Called() + " must be " + expected + ".");
  }

  [[nodiscard]] bool Has(const char* key) const { return value_->is_object() && value_->contains(key); }
  [[nodiscard]] JsonPlace Member(const char* key) const {
    if (!value_->is_object()) Fail("an object");
    const auto found = value_->find(key);
    if (found == value_->end()) Raise(kInvalidCall, Called() + " has no '" + std::string(key) + "'.");
    return {*found, path_.empty() ? key : path_ + "." + key};
  }
  [[nodiscard]] JsonPlace Item(std::size_t index) const {
    if (!value_->is_array() || index >= value_->size()) Fail("a list of more than " + std::to_string(index) + " items");
    return {(*value_)[index], path_ + "[" + std::to_string(index) + "]"};
  }
  [[nodiscard]] std::size_t Count() const {
    if (!value_->is_array()) Fail("a list");
    return value_->size();
  }
  template <class Visit>
  void ForEach(Visit&& visit) const {
    for (std::size_t index = 0; index < Count(); ++index) visit(Item(index));
  }

  [[nodiscard]] double Number() const {
    if (!value_->is_number()) Fail("a number");
    return value_->get<double>();
  }
  [[nodiscard]] std::int64_t Whole() const {
    constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (!value_->is_number_integer()) Fail("a whole number");
    if (value_->is_number_unsigned() && value_->get<std::uint64_t>() > kLargest) Fail("a whole number of 64 bits");
    return value_->get<std::int64_t>();
  }
  [[nodiscard]] std::string Text() const {
    if (!value_->is_string()) Fail("a text");
    return value_->get<std::string>();
  }
  [[nodiscard]] bool Flag() const {
    if (!value_->is_boolean()) Fail("true or false");
    return value_->get<bool>();
  }
  [[nodiscard]] XY Pair() const {
    if (Count() != 2) Fail("a pair of numbers");
    return {Item(0).Number(), Item(1).Number()};
  }

  // Members that may be missing.
  [[nodiscard]] std::string TextOr(const char* key, const std::string& otherwise) const {
    return Has(key) ? Member(key).Text() : otherwise;
  }
  [[nodiscard]] bool FlagOr(const char* key, bool otherwise) const { return Has(key) ? Member(key).Flag() : otherwise; }

 private:
  // The document itself has no way to it.
  [[nodiscard]] std::string Called() const { return path_.empty() ? "It" : "'" + path_ + "'"; }

  const nlohmann::json* value_;
  std::string path_;
};

}  // namespace tessarine
