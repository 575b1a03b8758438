// SPDX-License-Identifier: GPL-2.0-or-later
// The eight conversions of a layer's features into a new feature class. All are one run; what makes each of them is
// its row in the table of runs and its step for each feature.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "conversion/conversion_runs.h"
#include "outputs/output_place.h"
#include "platform/application.h"
#include "platform/run_context.h"
#include "session/clsExtension.h"

namespace tessarine::modCreateVertices {

/// What is chosen for such a run.
struct ConversionChoices {
  std::shared_ptr<IFeatureLayer> layer;
  std::shared_ptr<VarArray> fields;  ///< of the layer, to carry over; it may hold none
  bool all_records = true;           ///< or the selected ones alone
  OutputPlace output;
};

/// Whether a progress dialog comes up, where the run isn't one that joins all features.
enum class ProgressShown : bool { No, Yes };

/// Carries the run out and returns its report as RTF.
///
/// Reads all records of the layer, or the selected ones, in the order of the data. Features without a shape are passed
/// over; so are those that meet a fault, which the report and the fault report tell of. The output takes the spatial
/// reference of the input; a layer of it is added to the focus map. A run that the user stops leaves what was written
/// and says so. A source that can't be read on or an output that can't be
/// written on ends the run: the report tells of it, the fault report is shown, and what was flushed stays.
[[nodiscard]] std::string RunConversion(RunContext& context, const ConversionRun& run, const ConversionChoices& choices,
                                        const std::shared_ptr<IApplication>& application, ProgressShown progress);

/// What such a run would do, as a report: nothing is written.
[[nodiscard]] std::string PlanConversion(RunContext& context, const ConversionRun& run,
                                         const ConversionChoices& choices);

/// The signature of the eight workers. `path` is the full backslash path of the output; its kind and feature dataset
/// are those that the extension remembers. The last argument is a part of the published face alone: nothing depends on
/// it.
using ConversionWorker = std::string(const std::shared_ptr<IFeatureLayer>& layer,
                                     const std::shared_ptr<VarArray>& fields, bool all_records, const std::string& path,
                                     const std::shared_ptr<IApplication>& application,
                                     const std::shared_ptr<clsExtension>& extension, bool show_progress, bool reserved);

/// One point for each vertex, with `Uniq_ID`, `X_Coord` and `Y_Coord`.
[[nodiscard]] ConversionWorker ConvertToVertices;
/// One point inside each polygon, with the same fields.
[[nodiscard]] ConversionWorker ConvertToLabelPoints;
/// One point for each feature: centre of gravity, middle of the length, or mean; it may lie outside a polygon.
[[nodiscard]] ConversionWorker ConvertToCentroids;
/// The same on the curved body; `X_Coord` is longitude and `Y_Coord` latitude in degrees. Without a known reference
/// nothing is written and the report says so.
[[nodiscard]] ConversionWorker ConvertToSphericalCentroid;
/// One polygon for each polyline, its parts closed to rings, with `Area`. A line that bounds nothing gives a record
/// without a shape.
[[nodiscard]] ConversionWorker PolylinesToPolygons;
/// One polyline for each polygon, with the `Length` of all its boundaries.
[[nodiscard]] ConversionWorker PolygonsToPolylines;
/// One feature for each part, with coordinates, `Length` or `Area`.
[[nodiscard]] ConversionWorker SplitMultipart;
/// One feature for all, with `Count`, `Length` or `Area` and the attributes of the first.
[[nodiscard]] ConversionWorker JoinFeatures;

/// The status text of a run: lead-in, record, share done and the estimated time left.
[[nodiscard]] std::string CalcTimeLeft(const std::string& prefix, Date start, std::int32_t done, std::int32_t total);

}  // namespace tessarine::modCreateVertices
