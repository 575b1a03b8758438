// SPDX-License-Identifier: GPL-2.0-or-later
// Spheroids of the catalogue as people call them: by a name or by a code.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/spheroid_catalog.h"

namespace tessarine {

/// The catalogue of the suite.
[[nodiscard]] std::shared_ptr<ISpheroidCatalog> SpheroidCatalog();

/// The lists in the order in which a name is looked up.
inline constexpr SpheroidList kSpheroidLists[] = {SpheroidList::Custom, SpheroidList::Planets, SpheroidList::Earth};

/// True where the text is the spheroid's name, in which case, blanks, hyphens and underscores don't count, or its code:
/// "7030", "EPSG:7030", "ESRI:107905".
[[nodiscard]] bool IsCalled(const NamedSpheroid& spheroid, std::string_view text);

/// "EPSG:7030"; empty for a custom one, which has no code.
[[nodiscard]] std::string CodeText(const NamedSpheroid& spheroid);

/// Why nothing can be computed on a spheroid; empty where both axes are above 0. A custom file may hold any numbers.
[[nodiscard]] std::string WhyUnusable(const NamedSpheroid& spheroid);

/// Names like the text, the nearest first, up to five: those that hold it or that it holds, and those a few letters
/// away.
[[nodiscard]] std::vector<std::string> NearSpheroidNames(const std::string& text,
                                                         const std::vector<NamedSpheroid>& spheroids);
/// " Near are 'Mars 2000', 'Mars (IAU) 2000'.", or empty where no name is near.
[[nodiscard]] std::string NearSpheroidsText(const std::string& text, const std::vector<NamedSpheroid>& spheroids);

}  // namespace tessarine
