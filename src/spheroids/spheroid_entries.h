// SPDX-License-Identifier: GPL-2.0-or-later
// The sources of the catalogue, read into plain entries: the custom file and the two tables of platform spheroids.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/spatial_reference.h"

namespace tessarine::USGS_Functions {

struct SpheroidEntry {
  std::string name;  ///< unique within its list
  double semi_major_axis = 0.0, semi_minor_axis = 0.0;
  std::string text;                          ///< the remark of a custom line, or the constant's name
  std::string code;                          ///< empty for a custom spheroid
  std::shared_ptr<const Spheroid> spheroid;  ///< null for a custom spheroid
};

/// A number of metres as a user writes it; empty for a text that is no number or too large for a double.
[[nodiscard]] std::optional<double> AxisFromText(std::string_view text);

/// "spheroids.dat" in the program's folder.
[[nodiscard]] std::string CustomSpheroidFile();

/// The spheroids of a custom file's text, in its order: one on each line, as name, semi-major axis, semi-minor axis
/// and remark, parted by commas that nothing protects. Other lines are passed over. Lines end with a carriage return,
/// a line feed or both.
[[nodiscard]] std::vector<SpheroidEntry> ReadCustomSpheroids(std::string_view text);

/// The same from the file. Fault 76 when there is no such file, 5 when it holds no spheroid.
[[nodiscard]] std::vector<SpheroidEntry> ReadCustomSpheroidFile(const std::string& path);

/// The spheroids of a table as `ESRIPlanetString` gives it, without those whose code the platform doesn't know.
[[nodiscard]] std::vector<SpheroidEntry> ReadSpheroidTable(std::string_view table);

}  // namespace tessarine::USGS_Functions
