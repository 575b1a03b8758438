// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessarine::QuickSort {

/// Sorts the elements from `first` to `last` in place, in ascending binary order. Equal texts may change places.
void StringsAscending(std::vector<std::string>& array, std::int32_t first, std::int32_t last);

}  // namespace tessarine::QuickSort
