// SPDX-License-Identifier: GPL-2.0-or-later
// Damages the texts of a corpus, always in the same order.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace tessarine::testing {

/// All files of a folder, by name.
inline std::vector<std::string> TextsOf(const std::filesystem::path& folder) {
  std::set<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) paths.insert(entry.path());
  std::vector<std::string> texts;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    texts.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return texts;
}

class Mutator {
 public:
  /// `telling` are pieces that mean something to the reader.
  Mutator(std::vector<std::string> corpus, std::vector<std::string> telling)
      : corpus_(std::move(corpus)), telling_(std::move(telling)) {}

  std::string Next() {
    std::string text = corpus_[Below(corpus_.size())];
    for (std::size_t count = 1 + Below(3); count > 0; --count) Mutate(text);
    return text;
  }

 private:
  std::size_t Below(std::size_t bound) { return bound == 0 ? 0 : random_() % bound; }

  void Mutate(std::string& text) {
    const std::size_t at = Below(text.size() + 1);
    switch (Below(9)) {
      case 0:
        text.insert(at, telling_[Below(telling_.size())]);
        return;
      case 1:
        text.erase(at, 1 + Below(12));
        return;
      case 2:
        if (at < text.size()) text[at] = static_cast<char>(random_() & 0xFFU);
        return;
      case 3: {
        const std::string piece = text.substr(at, Below(80));
        text.insert(Below(text.size() + 1), piece);
        return;
      }
      case 4: {
        // One value in place of another keeps the text readable more often than a cut anywhere.
        const std::size_t digit = text.find_first_of("0123456789", at);
        if (digit != std::string::npos) text.replace(digit, 1, telling_[Below(telling_.size())]);
        return;
      }
      case 5:
        text.resize(at);
        return;
      case 6:
        text += corpus_[Below(corpus_.size())].substr(0, Below(60));
        return;
      default: {
        // A number stays a number.
        const std::size_t digit = text.find_first_of("0123456789", at);
        if (digit != std::string::npos) text[digit] = static_cast<char>('0' + Below(10));
      }
    }
  }

  std::vector<std::string> corpus_, telling_;
  std::mt19937 random_{20260314};
};

}  // namespace tessarine::testing
