// SPDX-License-Identifier: GPL-2.0-or-later
// How exactly a format writes numbers.
#pragma once

#include "outputs/formats.h"

namespace tessarine::engine {

/// So many significant digits tell every double from its neighbours.
inline constexpr int kAllDigits = 17;

/// How many significant digits this machine's driver keeps of a double, tried once in memory; `kAllDigits` where it
/// keeps it as it is, and where that can't be tried, as with servers.
[[nodiscard]] int KeptDigits(const Format& format);

}  // namespace tessarine::engine
