// SPDX-License-Identifier: GPL-2.0-or-later
// Names that nothing else bears yet.
#pragma once

#include <cstddef>
#include <string>
#include <utility>

namespace tessarine {

/// The name itself, or else the first of `numbered(2)`, `numbered(3)` and so on that isn't taken. A first number of 1
/// begins with that.
template <class Name, class Numbered, class Taken>
[[nodiscard]] Name FirstFree(Name name, Numbered&& numbered, Taken&& taken, int first = 2) {
  for (int number = first; taken(std::as_const(name)); ++number) name = numbered(number);
  return name;
}

/// "Roads", "Roads_2", "Roads_3" and so on.
template <class Taken>
[[nodiscard]] std::string FirstFree(const std::string& name, Taken&& taken) {
  return FirstFree(
      name, [&](int number) { return name + "_" + std::to_string(number); }, taken);
}

/// "Moon", "Moon (2)", "Moon (3)" and so on: for people to read.
template <class Taken>
[[nodiscard]] std::string FirstFreeTitle(const std::string& name, Taken&& taken) {
  return FirstFree(
      name, [&](int number) { return name + " (" + std::to_string(number) + ")"; }, taken);
}

/// "Unique_ID", "Unique_ID2" and so on; what is too long gives way to the number, counted in bytes.
template <class Taken>
[[nodiscard]] std::string FirstFreeWithin(std::size_t longest, const std::string& name, Taken&& taken) {
  const auto numbered = [&](int number) {
    const std::string digits = std::to_string(number);
    return name.substr(0, longest - digits.size()) + digits;
  };
  return FirstFree(name, numbered, taken);
}

/// "Shape", "Shape_", "Shape__" and so on.
template <class Taken>
[[nodiscard]] std::string FirstFreeOfOwn(const std::string& name, Taken&& taken) {
  constexpr int kFirst = 1;
  const auto lengthened = [&](int number) { return name + std::string(static_cast<std::size_t>(number), '_'); };
  return FirstFree(name, lengthened, taken, kFirst);
}

}  // namespace tessarine
