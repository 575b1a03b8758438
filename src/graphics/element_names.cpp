// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/element_names.h"

#include "platform/letter_case.h"
#include "support/QuickSort.h"

namespace tessarine {

std::string CountedElements(std::int32_t count) {
  return std::to_string(count) + (count == 1 ? " graphic element" : " graphic elements");
}

std::int32_t CountOf(IGraphicsContainer& container) {
  std::int32_t count = 0;
  container.Reset();
  while (container.Next()) ++count;
  return count;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  const std::u32string text = FoldedCharacters(name);
  const std::u32string wanted = FoldedCharacters(pattern);
  std::size_t at = 0, next = 0;
  // After the last "*": where the pattern goes on, and the first character that the "*" doesn't take.
  std::size_t resume = std::u32string::npos, taken = 0;
  while (at < text.size()) {
    if (next < wanted.size() && wanted[next] == U'*') {
      resume = ++next;
      taken = at;
    } else if (next < wanted.size() && (wanted[next] == U'&' || wanted[next] == U'?' || wanted[next] == text[at])) {
      ++next;
      ++at;
    } else if (resume != std::u32string::npos) {
      next = resume;
      at = ++taken;
    } else {
      return false;
    }
  }
  while (next < wanted.size() && wanted[next] == U'*') ++next;
  return next == wanted.size();
}

void NameCounts::Add(const std::string& name) {
  Entry& entry = counts_[FoldedCase(name)];
  if (entry.count++ == 0) entry.name = name;
}

std::vector<std::string> NameCounts::SortedNames() const {
  std::vector<std::string> names;
  for (const auto& [key, entry] : counts_) names.push_back(entry.name);
  QuickSort::StringsAscending(names, 0, static_cast<std::int32_t>(names.size()) - 1);
  return names;
}

std::int32_t NameCounts::CountOf(const std::string& name) const {
  const auto found = counts_.find(FoldedCase(name));
  return found == counts_.end() ? 0 : found->second.count;
}

}  // namespace tessarine
