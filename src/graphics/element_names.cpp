#include "graphics/element_names.h"

#include "support/QuickSort.h"

namespace tessarine {
namespace {

// The characters of UTF-8 text; a byte that begins none stands for itself.
std::u32string Characters(std::string_view text) {
  std::u32string characters;
  for (std::size_t at = 0; at < text.size();) {
    const auto lead = static_cast<unsigned char>(text[at++]);
    const std::size_t more = lead >= 0xF0U ? 3 : lead >= 0xE0U ? 2 : lead >= 0xC0U ? 1 : 0;
    char32_t character = more == 0 ? lead : lead & (0x3FU >> more);
    for (std::size_t left = more; left > 0 && at < text.size(); --left) {
      character = (character << 6U) | (static_cast<unsigned char>(text[at++]) & 0x3FU);
    }
    characters += character;
  }
  return characters;
}

// Capitals that lie a fixed distance from their small letters.
struct CapitalRange {
  char32_t first, last, distance;
};
constexpr CapitalRange kCapitals[] = {
    {U'A', U'Z', 32}, {0xC0, 0xD6, 32}, {0xD8, 0xDE, 32}, {0x391, 0x3A9, 32}, {0x400, 0x40F, 80}, {0x410, 0x42F, 32},
};
// Blocks in which each capital stands right ahead of its small letter, an even or an odd number first.
struct AlternatingRange {
  char32_t first, last;
};
constexpr AlternatingRange kAlternating[] = {{0x100, 0x137}, {0x139, 0x148},   {0x14A, 0x177},
                                             {0x179, 0x17E}, {0x460, 0x481},   {0x48A, 0x4BF},
                                             {0x4D0, 0x52F}, {0x1E00, 0x1E95}, {0x1EA0, 0x1EFF}};

char32_t Folded(char32_t character) {
  for (const CapitalRange& range : kCapitals) {
    if (character >= range.first && character <= range.last) return character + range.distance;
  }
  // The dotted capital and the dotless small I belong to no pair.
  if (character == 0x130 || character == 0x131) return character;
  for (const AlternatingRange& range : kAlternating) {
    if (character < range.first || character > range.last) continue;
    return (character - range.first) % 2 == 0 ? character + 1 : character;
  }
  return character;
}

std::u32string FoldedCharacters(std::string_view text) {
  std::u32string characters = Characters(text);
  for (char32_t& character : characters) character = Folded(character);
  return characters;
}

void AppendCharacter(char32_t character, std::string& text) {
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0U | (character >> 6U));
    text += static_cast<char>(0x80U | (character & 0x3FU));
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0U | (character >> 12U));
    text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
    text += static_cast<char>(0x80U | (character & 0x3FU));
  } else {
    text += static_cast<char>(0xF0U | (character >> 18U));
    text += static_cast<char>(0x80U | ((character >> 12U) & 0x3FU));
    text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
    text += static_cast<char>(0x80U | (character & 0x3FU));
  }
}

}  // namespace

std::string FoldedCase(std::string_view text) {
  std::string folded;
  for (const char32_t character : FoldedCharacters(text)) AppendCharacter(character, folded);
  return folded;
}

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  const std::u32string text = FoldedCharacters(name);
  const std::u32string wanted = FoldedCharacters(pattern);
  std::size_t at = 0, next = 0;
  // Behind the last "*": where the pattern goes on, and the first character that the "*" doesn't take.
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
