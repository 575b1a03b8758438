// SPDX-License-Identifier: GPL-2.0-or-later
// The place that -o names.
#pragma once

#include <string>

#include "hosts/terminal/terminal_host.h"
#include "outputs/output_place.h"

namespace tessarine {

/// Reads "x.shp", "folder", "x.gdb/name", "x.gdb/dataset/name", "x.mdb/name". Raises `Refusal` for anything else.
[[nodiscard]] OutputPlace ParseOutputPlace(const std::string& text);

/// Refuses a geodatabase that is there but can't be opened.
void RefuseBrokenContainer(const OutputPlace& place);

/// Makes the place ready for a run: a file geodatabase that isn't there, and a new feature dataset with the given
/// reference, are promised; the first class makes them.
class PreparedPlace {
 public:
  PreparedPlace(const OutputPlace& place, const SpatialReferenceRef& reference, TerminalSystem& system);

  /// What the browse dialog answers for it.
  [[nodiscard]] BrowsePlace Browse() const;

 private:
  OutputPlace place_;
};

}  // namespace tessarine
