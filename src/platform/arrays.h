// SPDX-License-Identifier: GPL-2.0-or-later
// The ordered lists of the suite. Indexes run from 0; one outside the list raises fault 5.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/fault.h"
#include "platform/object.h"
#include "platform/variant.h"

namespace tessarine {

template <class T>
class ListOf : public virtual Object {
 public:
  ListOf() = default;
  ListOf(std::initializer_list<T> items) : items_(items) {}

  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  [[nodiscard]] const T& Element(std::int32_t index) const { return items_[Checked(index)]; }
  void SetElement(std::int32_t index, T value) { items_[Checked(index)] = std::move(value); }
  void Add(T value) { items_.push_back(std::move(value)); }

  [[nodiscard]] auto begin() const { return items_.begin(); }
  [[nodiscard]] auto end() const { return items_.end(); }

 private:
  [[nodiscard]] std::size_t Checked(std::int32_t index) const {
    if (index < 0 || index >= Count()) {
      Raise(kInvalidCall,
            "There is no element " + std::to_string(index) + " in a list of " + std::to_string(Count()) + ".");
    }
    return static_cast<std::size_t>(index);
  }

  std::vector<T> items_;
};

/// Numbers, texts, flags and object references side by side, as dialogs hand their choices to runs.
class VarArray final : public ListOf<Variant> {
 public:
  using ListOf::ListOf;
};
class StrArray final : public ListOf<std::string> {
 public:
  using ListOf::ListOf;
};
class LongArray final : public ListOf<std::int32_t> {
 public:
  using ListOf::ListOf;
};
class DoubleArray final : public ListOf<double> {
 public:
  using ListOf::ListOf;
};

}  // namespace tessarine
