// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/QuickSort.h"

#include <utility>

#include "platform/fault.h"
#include "platform/trap.h"

namespace tessarine::QuickSort {
namespace {

void Sort(std::vector<std::string>& array, std::int32_t first, std::int32_t last) {
  const auto at = [&](std::int32_t index) -> std::string& { return array.at(static_cast<std::size_t>(index)); };
  std::int32_t low = first, high = last;
  const std::string pivot = at((first + last) / 2);
  while (low <= high) {
    while (at(low) < pivot) ++low;
    while (pivot < at(high)) --high;
    if (low <= high) std::swap(at(low++), at(high--));
  }
  if (first < high) Sort(array, first, high);
  if (low < last) Sort(array, low, last);
}

}  // namespace

void StringsAscending(std::vector<std::string>& array, std::int32_t first, std::int32_t last) {
  TrapHelper("StringsAscending", [&] {
    if (first >= last) return;
    if (first < 0 || static_cast<std::size_t>(last) >= array.size()) {
      Raise(kInvalidCall, "The range to sort lies outside the list.");
    }
    Sort(array, first, last);
  });
}

}  // namespace tessarine::QuickSort
