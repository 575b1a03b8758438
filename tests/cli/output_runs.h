// SPDX-License-Identifier: GPL-2.0-or-later
// Runs that make an output in any format.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "cli/copied_data.h"

namespace tessarine::testing {

class OutputRuns : public Copies {
 protected:
  ProgramOutcome Centroids(const std::string& output, const std::vector<std::string>& more = {}) const {
    std::vector<std::string> arguments = {"centroids", Data("countries.shp"), "--fields", "name", "-q", "-o", output};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunTessarine(arguments);
  }
  static std::int64_t CountOf(const std::string& path, const std::string& layer) {
    const auto data = OpenData(path);
    OGRLayer* rows = data == nullptr ? nullptr : data->GetLayerByName(layer.c_str());
    return rows == nullptr ? -1 : rows->GetFeatureCount();
  }
};

}  // namespace tessarine::testing
