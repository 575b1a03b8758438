// SPDX-License-Identifier: GPL-2.0-or-later
// A class that holds some rows of another, for tools that take all rows of a layer.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/data.h"

namespace tessarine {

/// Reads the rows with these identifiers, all of which are there. It can't be written to.
[[nodiscard]] std::shared_ptr<IFeatureClass> SelectedClass(const std::shared_ptr<IFeatureClass>& features,
                                                           std::vector<std::int64_t> oids);

}  // namespace tessarine
