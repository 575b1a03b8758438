// SPDX-License-Identifier: GPL-2.0-or-later
// What the plans of runs say of their output.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "conversion/field_transfer.h"
#include "outputs/output_place.h"

namespace tessarine {

/// Place, kind, fields and questions of a planned output, as RTF; the journal gets them, too. A fault where the run
/// would be refused: the output is one of its sources, or can't bear its name. `losses` are foretold, too. `extent` is
/// that of the shapes to come.
[[nodiscard]] std::string PlannedOutput(RunContext& context, const OutputPlace& place, esriGeometryType shape,
                                        const FieldTransfer& transfer, const Envelope& extent,
                                        std::vector<std::shared_ptr<IClass>> sources,
                                        const std::vector<std::string>& losses);

}  // namespace tessarine
