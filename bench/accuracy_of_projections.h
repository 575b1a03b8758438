// SPDX-License-Identifier: GPL-2.0-or-later
// The table of docs/accuracy.md about polygons in projections: the bundled countries, measured in each of them and in
// longitude and latitude.
#pragma once

#include <span>
#include <string>

namespace tessarine::bench {

/// Of the given references, or of those of the page where none is given: with the names of the countries that measure
/// otherwise.
void PrintProjections(std::span<const std::string> references = {});

}  // namespace tessarine::bench
