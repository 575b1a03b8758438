// SPDX-License-Identifier: GPL-2.0-or-later
// Graphic elements counted, and their names: compared without regard to case, counted, matched against patterns.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "platform/map.h"

namespace tessarine {

/// What a plan says after what it counts.
inline constexpr const char* kOnlyPlanned = "\r\nPlanned only: nothing was changed.";

/// "1 graphic element", "2 graphic elements".
[[nodiscard]] std::string CountedElements(std::int32_t count);
/// How many there are; the walk begins anew.
[[nodiscard]] std::int32_t CountOf(IGraphicsContainer& container);

/// True when the whole name matches the pattern, whatever the case. "*" stands for any run of characters, "&" and "?"
/// for one character; everything else stands for itself.
[[nodiscard]] bool MatchesPattern(std::string_view name, std::string_view pattern);

/// Distinct names and how often each was met. Names that differ only in case are one, in the spelling met first.
class NameCounts {
 public:
  void Add(const std::string& name);
  [[nodiscard]] bool IsEmpty() const { return counts_.empty(); }
  /// Binary ascending.
  [[nodiscard]] std::vector<std::string> SortedNames() const;
  [[nodiscard]] std::int32_t CountOf(const std::string& name) const;

 private:
  struct Entry {
    std::string name;
    std::int32_t count = 0;
  };
  std::map<std::string, Entry> counts_;
};

}  // namespace tessarine
