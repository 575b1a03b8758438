// What the plans of runs say of their output.
#pragma once

#include <string>
#include <string_view>

#include "conversion/field_transfer.h"
#include "conversion/output_target.h"

namespace tessarine {

/// Place, kind, fields and questions of a planned output, as RTF. The journal gets them too.
[[nodiscard]] std::string PlannedOutput(const std::string& path, const OutputTarget& target,
                                        std::string_view shape_word, const FieldTransfer& transfer);

}  // namespace tessarine
