// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/json_numbers.h"

#include <charconv>
#include <cstdint>
#include <fstream>
#include <string_view>
#include <system_error>
#include <vector>

namespace tessarine::qgis {
namespace {

constexpr std::size_t kBlock = 1 << 16;

/// Sees one character after the other.
class NumberWatch {
 public:
  /// True at the character after a whole number that is too wide.
  bool See(char character) {
    if (in_text_) {
      in_text_ = escaped_ || character != '"';
      escaped_ = !escaped_ && character == '\\';
      return false;
    }
    if (std::string_view("+-.0123456789eE").find(character) != std::string_view::npos) {
      if (number_.size() < kLongest) number_ += character;
      return false;
    }
    in_text_ = character == '"';
    escaped_ = false;
    return EndNumber();
  }
  bool EndNumber() {
    const bool whole = number_.find_first_of(".eE") == std::string::npos;
    std::int64_t value = 0;
    const auto read = std::from_chars(number_.data(), number_.data() + number_.size(), value);
    number_.clear();
    return whole && read.ec == std::errc::result_out_of_range;
  }

 private:
  static constexpr std::size_t kLongest = 400;  // a double that is written out whole

  bool in_text_ = false, escaped_ = false;
  std::string number_;
};

}  // namespace

bool HasWiderIntegers(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::vector<char> block(kBlock);
  NumberWatch watch;
  while (file.read(block.data(), static_cast<std::streamsize>(block.size())), file.gcount() > 0) {
    for (std::streamsize place = 0; place < file.gcount(); ++place) {
      if (watch.See(block[static_cast<std::size_t>(place)])) return true;
    }
  }
  return watch.EndNumber();
}

}  // namespace tessarine::qgis
