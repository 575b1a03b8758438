// SPDX-License-Identifier: GPL-2.0-or-later
// The run that the planetary tools share: every feature of a class goes, with its attributes and a new shape, into a
// new class.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "planetary/planetary_lists.h"
#include "planetary/rewrite_reports.h"
#include "platform/application.h"
#include "platform/run_context.h"
#include "session/clsExtension.h"
#include "shapes/short_steps.h"

namespace tessarine {

/// The new shape of a feature, and what its report has to say about it.
struct RewrittenShape {
  GeometryRef shape = nullptr;    ///< null stores the feature without a shape
  std::string problem{};          ///< plain text; empty when there is none
  bool stopped = false;           ///< the user ended the run; there is no shape
  RewrittenMeasure measure = {};  ///< how much there was and is, where the run keeps account of it
  MyGeometricOperations::ShortSteps steps = {};
};

using MyGeometricOperations::KeepGoing;

/// The record that a shape belongs to.
struct RewrittenRecord {
  std::int64_t oid;
  RunJournal& journal;
  const KeepGoing& keep_going;  ///< what long work asks
};

/// Takes a private copy of a shape that isn't empty. Copies of it may work at the same time.
using ShapeRewrite = std::function<RewrittenShape(const GeometryRef& shape, const RewrittenRecord& record)>;

struct FeatureRewrite {
  std::string_view worker;
  std::string_view conversion;          ///< as "Wrap to Boundary"
  std::string_view title;               ///< of the report
  std::vector<ReportSection> sections;  ///< what the report says of the choices
  std::shared_ptr<IFeatureLayer> layer;
  OutputDescription output;
  ShapeRewrite rewrite;
  std::optional<RunSpheroid> spheroid = std::nullopt;  ///< that the shapes are computed on
};

/// Carries the run out and returns its report as RTF.
///
/// Takes the whole class of the layer in the order of the data: neither a selection nor a definition query limits it.
/// Features without a shape are written as they are and reported. A layer of the output is added to the document. A run
/// that the user stops keeps what was written, adds its layer as a partial one and says so. A feature that meets a
/// fault is written without a shape and reported; so is one whose shape the output can't hold. A source that can't be
/// read on or an output that can't be written on ends the run: the report tells of it, and the fault report is shown.
[[nodiscard]] std::string RewriteFeatures(RunContext& context, const FeatureRewrite& run,
                                          const std::shared_ptr<IApplication>& application,
                                          const std::shared_ptr<IMxDocument>& document, bool show_progress);

/// What such a run would read, make and ask, as a report: nothing is written.
[[nodiscard]] std::string PlanRewrite(RunContext& context, const FeatureRewrite& run);

}  // namespace tessarine
