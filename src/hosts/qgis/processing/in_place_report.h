// SPDX-License-Identifier: GPL-2.0-or-later
// The report of a run whose shapes went back to the layer that they came from.
#pragma once

#include <cstddef>
#include <string>

namespace tessarine::qgis {

/// The tool's report, as RTF, with the edited layer and what was changed in it where it tells of its output, which was
/// a working copy. A report without such a section, as of a run that failed, stays as it is.
[[nodiscard]] std::string InPlaceReport(const std::string& report, const std::string& layer, std::size_t moved,
                                        std::size_t kept);

}  // namespace tessarine::qgis
