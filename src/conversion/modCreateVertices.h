// The eight conversions of a layer's features into a new feature class. All are one run; what makes each of them is
// its row in the table of runs and its step for each feature.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "conversion/conversion_runs.h"
#include "frame/clsExtension.h"
#include "platform/application.h"

namespace tessarine::modCreateVertices {

/// Carries the run out and returns its report as RTF.
///
/// Reads all records of the layer, or the selected ones, in the order of the data. Features without a shape are passed
/// over. The output takes the spatial reference of the input; a layer of it is added to the focus map. `fields` are
/// fields of the input class and may be none. `path` is the full backslash path of the output; its kind and feature
/// dataset come from the extension. A run that the user stops leaves what was written and says so. A fault ends the
/// run: the report tells of it, the fault report is shown, and what was flushed stays.
[[nodiscard]] std::string RunConversion(const ConversionRun& run, const std::shared_ptr<IFeatureLayer>& layer,
                                        const std::shared_ptr<VarArray>& fields, bool all_records,
                                        const std::string& path, const std::shared_ptr<IApplication>& application,
                                        const std::shared_ptr<clsExtension>& extension, bool show_progress);

/// What such a run would do, as a report: nothing is written.
[[nodiscard]] std::string PlanConversion(const ConversionRun& run, const std::shared_ptr<IFeatureLayer>& layer,
                                         const std::shared_ptr<VarArray>& fields, bool all_records,
                                         const std::string& path, const std::shared_ptr<IApplication>& application,
                                         const std::shared_ptr<clsExtension>& extension);

/// One point for each vertex, with `Uniq_ID`, `X_Coord` and `Y_Coord`; the last argument is read by nobody.
[[nodiscard]] std::string ConvertToVertices(const std::shared_ptr<IFeatureLayer>& layer,
                                            const std::shared_ptr<VarArray>& fields, bool all_records,
                                            const std::string& path, const std::shared_ptr<IApplication>& application,
                                            const std::shared_ptr<clsExtension>& extension, bool show_progress,
                                            bool reserved);

/// The status text of a run: lead-in, record, share done and the estimated time left.
[[nodiscard]] std::string CalcTimeLeft(const std::string& prefix, Date start, std::int32_t done, std::int32_t total);

}  // namespace tessarine::modCreateVertices
