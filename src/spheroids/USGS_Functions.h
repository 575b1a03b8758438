// SPDX-License-Identifier: GPL-2.0-or-later
// The named spheroids that the spheroid dialogs offer: custom ones from a text file, planets and moons, and common
// ones of Earth. Names and codes stand here; the axes come from the platform.
#pragma once

#include <memory>
#include <string>

#include "platform/arrays.h"
#include "platform/spatial_reference.h"
#include "spheroids/spheroid_lists.h"

namespace tessarine::USGS_Functions {

/// All three lists, read anew at each call: six entries, which `SpheroidLists` names. The custom entries are null
/// when the custom file is missing. A custom file without a single valid line is a fault; like any other fault it is
/// reported, and the result is null.
[[nodiscard]] std::shared_ptr<VarArray> GetSpheroids();

/// One line for each spheroid, ended by carriage return and line feed: the constant's name, the code and the display
/// name, parted by blanks. 71 lines for planets and moons, 56 for Earth.
[[nodiscard]] std::string ESRIPlanetString();
[[nodiscard]] std::string ESRICommonEarthString();

/// The spheroid of a code that comes as text; null when the text is no code or the platform doesn't know it, which
/// is normal and not reported.
[[nodiscard]] std::shared_ptr<const Spheroid> SpheroidFromCode(const SpatialReferenceEnvironment& factory,
                                                               const std::string& code);

}  // namespace tessarine::USGS_Functions
