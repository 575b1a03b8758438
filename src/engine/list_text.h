// SPDX-License-Identifier: GPL-2.0-or-later
// Values of columns that hold several in a row.
#pragma once

#include <ogrsf_frmts.h>

#include <string>

namespace tessarine::engine {

/// The values of such a column in one row, as a text of JSON; empty where there are none.
[[nodiscard]] std::string ListText(const OGRFeature& feature, int index);

}  // namespace tessarine::engine
