// SPDX-License-Identifier: GPL-2.0-or-later
// The loop over the records of a calculation.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "calculator/result_writing.h"
#include "platform/application.h"
#include "platform/arrays.h"
#include "platform/run_context.h"

namespace tessarine::modCalcGeometry {

/// Measures the records and writes their values. Returns what the report tells of problems, empty when there were none.
/// A measure that fails costs its own values; its fault is reported under `routine`, once for all records.
[[nodiscard]] std::string RunLoop(RunContext& context, const char* routine, const std::shared_ptr<VarArray>& options,
                                  const std::shared_ptr<IApplication>& application, const FieldIndexes& indexes,
                                  std::int32_t& record_count, bool show_progress);

}  // namespace tessarine::modCalcGeometry
