// What all runs of this folder do with their data: open the input, create the output, show the result.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "conversion/output_target.h"
#include "platform/application.h"
#include "platform/arrays.h"
#include "platform/data.h"

namespace tessarine {

struct RunInput {
  std::shared_ptr<IFeatureClass> features;
  std::shared_ptr<IFeatureCursor> cursor;
  std::int32_t count = 0;
};

/// All records of the layer, or the selected ones, in the order of the data.
[[nodiscard]] RunInput OpenInput(const std::shared_ptr<IFeatureLayer>& layer, bool all_records);

/// Creates the output class; the target ends as what was used. A fault when there is none.
[[nodiscard]] std::shared_ptr<IFeatureClass> CreateRunOutput(OutputTarget& target, esriGeometryType shape_type,
                                                             const SpatialReferenceRef& reference,
                                                             const Envelope& extent,
                                                             const std::shared_ptr<VarArray>& fields,
                                                             std::string_view name_prompt);

/// Where the output lies, as it was made.
[[nodiscard]] std::string WrittenPath(const OutputTarget& target, const IFeatureClass& output);

/// Adds a layer of the output to the focus map.
void AddResultLayer(const std::shared_ptr<IFeatureClass>& output, const std::string& name, const IMxDocument& document);

}  // namespace tessarine
