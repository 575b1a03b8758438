// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/json_kinds.h"

#include <fstream>
#include <map>
#include <string_view>
#include <vector>

namespace tessarine::qgis {
namespace {

constexpr std::size_t kBlock = 1 << 16;

enum Kind : unsigned { kText = 1, kNumber = 2, kFlag = 4, kCompound = 8 };

/// Sees one character after the other.
class PropertyWatch {
 public:
  void See(char character) {
    if (in_text_) return SeeInText(character);
    switch (character) {
      case '"':
        in_text_ = true;
        text_.clear();
        return;
      case '{':
      case '[':
        return Enter(character == '{');
      case '}':
      case ']':
        in_word_ = false;
        if (!open_.empty()) open_.pop_back();
        return;
      case ',':
        in_word_ = false;
        if (!open_.empty()) open_.back().key_comes = open_.back().is_object;
        return;
      case ':':
      case ' ':
      case '\t':
      case '\r':
      case '\n':
        in_word_ = false;
        return;
      default:
        if (!in_word_) SeeWord(character);
        in_word_ = true;
    }
  }
  /// The first property with values of several kinds.
  [[nodiscard]] const std::string& Mixed() const { return mixed_; }

 private:
  struct Open {
    bool is_object = false;
    bool is_properties = false;  // of a feature
    bool is_within = false;      // one of its values
    bool key_comes = false;
    std::string key;
  };

  void SeeInText(char character) {
    const bool ends = character == '"' && !escaped_;
    escaped_ = character == '\\' && !escaped_;
    const bool is_key = !open_.empty() && open_.back().key_comes;
    if (!ends) {
      if (is_key) text_ += character;
      return;
    }
    in_text_ = false;
    if (!is_key) return Note(kText);
    open_.back().key = text_;
    open_.back().key_comes = false;
  }

  void Enter(bool is_object) {
    in_word_ = false;
    Note(kCompound);
    Open entered{is_object, false, false, is_object, {}};
    if (!open_.empty()) {
      const Open& outer = open_.back();
      entered.is_within = outer.is_properties || outer.is_within;
      entered.is_properties = is_object && outer.is_object && !entered.is_within && outer.key == "properties";
    }
    open_.push_back(std::move(entered));
  }

  void SeeWord(char first) {
    if (first == 'n') return;
    Note(first == 't' || first == 'f' ? kFlag : kNumber);
  }

  void Note(Kind kind) {
    if (open_.empty() || !open_.back().is_properties) return;
    unsigned& kinds = kinds_[open_.back().key];
    kinds |= kind;
    if ((kinds & (kinds - 1)) != 0 && mixed_.empty()) mixed_ = open_.back().key;
  }

  bool in_text_ = false, escaped_ = false, in_word_ = false;
  std::string text_, mixed_;
  std::vector<Open> open_;
  std::map<std::string, unsigned, std::less<>> kinds_;
};

}  // namespace

std::string MixedProperty(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<char> block(kBlock);
  PropertyWatch watch;
  while (file.read(block.data(), static_cast<std::streamsize>(block.size())), file.gcount() > 0) {
    for (const char character : std::string_view(block.data(), static_cast<std::size_t>(file.gcount()))) {
      watch.See(character);
    }
    if (!watch.Mixed().empty()) break;
  }
  return watch.Mixed();
}

}  // namespace tessarine::qgis
