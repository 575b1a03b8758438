// SPDX-License-Identifier: GPL-2.0-or-later
// The worker of the geometry calculator: checks that the layer may be changed, makes the fields, measures every feature
// and writes the values into the attribute table, and tells in a report what it did.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "calculator/geometry_options.h"
#include "calculator/result_writing.h"
#include "platform/application.h"
#include "platform/run_context.h"
#include "platform/run_scope.h"
#include "session/clsExtension.h"
#include "support/progress_text.h"

namespace tessarine::modCalcGeometry {

using MyGeneralOperations::CalcTimeLeft;

/// Runs the calculation that `options` describes, a list as `GeometryOptions` lays it out, and returns the report: rich
/// text, or one plain sentence when the layer can't be changed. Attributes alone are written, row by row; what was
/// written when a run stops or fails stays, and so do new fields. The two flags have no effect.
[[nodiscard]] std::string CalcGeometry(const std::shared_ptr<VarArray>& options,
                                       const std::shared_ptr<IApplication>& application, bool show_progress = true,
                                       bool quiet = false);

/// The same within a context.
[[nodiscard]] std::string CalcGeometry(RunContext& context, const std::shared_ptr<VarArray>& options,
                                       const std::shared_ptr<IApplication>& application);
/// The same as the last part of a run that has begun, as one that made its copy before.
[[nodiscard]] std::string CalcGeometry(RunScope& scope, const std::shared_ptr<VarArray>& options,
                                       const std::shared_ptr<IApplication>& application);
/// The report of what it would do; nothing is written.
[[nodiscard]] std::string PlanGeometry(RunContext& context, const std::shared_ptr<VarArray>& options,
                                       const std::shared_ptr<IApplication>& application);

// The record loops, one for each shape. Each returns what the report tells of problems, empty when there were none. A
// measure that fails costs its own values; its fault is reported under the routine's name, once for all records. The
// last argument has no effect.
[[nodiscard]] std::string CalcGeometryPoint(const std::shared_ptr<VarArray>& options,
                                            const std::shared_ptr<IApplication>& application,
                                            const FieldIndexes& indexes, std::int32_t& record_count, bool show_progress,
                                            bool unused = false);
[[nodiscard]] std::string CalcGeometryMultipoint(const std::shared_ptr<VarArray>& options,
                                                 const std::shared_ptr<IApplication>& application,
                                                 const FieldIndexes& indexes, std::int32_t& record_count,
                                                 bool show_progress, bool unused = false);
[[nodiscard]] std::string CalcGeometryPolyline(const std::shared_ptr<VarArray>& options,
                                               const std::shared_ptr<IApplication>& application,
                                               const FieldIndexes& indexes, std::int32_t& record_count,
                                               bool show_progress, bool unused = false);
[[nodiscard]] std::string CalcGeometryPolygon(const std::shared_ptr<VarArray>& options,
                                              const std::shared_ptr<IApplication>& application,
                                              const FieldIndexes& indexes, std::int32_t& record_count,
                                              bool show_progress, bool unused = false);

/// True when rows of the class may be written outside an edit session and the class isn't kept in versions.
[[nodiscard]] bool CanEditWOEditSession(const std::shared_ptr<IFeatureClass>& features);

/// The suite's extension.
[[nodiscard]] std::shared_ptr<clsExtension> GetExtension(const std::shared_ptr<IApplication>& application);

}  // namespace tessarine::modCalcGeometry
