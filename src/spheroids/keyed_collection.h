// SPDX-License-Identifier: GPL-2.0-or-later
// An ordered collection with a text key for each item. Keys compare without regard to the case of A to Z.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/fault.h"
#include "platform/object.h"
#include "platform/text_formats.h"
#include "platform/variant.h"

namespace tessarine {

class KeyedCollection final : public virtual Object {
 public:
  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  [[nodiscard]] bool Contains(std::string_view key) const { return places_.contains(LowerCase(key)); }

  /// Fault 5 when the key is taken.
  void Add(Variant item, std::string_view key) {
    if (!places_.emplace(LowerCase(key), items_.size()).second) {
      Raise(kInvalidCall, "The collection has an item '" + std::string(key) + "' already.");
    }
    items_.push_back(std::move(item));
  }

  /// Fault 5 when there is no such key.
  [[nodiscard]] const Variant& Item(std::string_view key) const {
    const auto place = places_.find(LowerCase(key));
    if (place == places_.end()) Raise(kInvalidCall, "The collection has no item '" + std::string(key) + "'.");
    return items_[place->second];
  }

  [[nodiscard]] auto begin() const { return items_.begin(); }
  [[nodiscard]] auto end() const { return items_.end(); }

 private:
  std::vector<Variant> items_;
  std::unordered_map<std::string, std::size_t> places_;
};

}  // namespace tessarine
