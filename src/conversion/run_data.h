// SPDX-License-Identifier: GPL-2.0-or-later
// What all runs of this folder do with their data: open the input, create the output, show the result.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "outputs/output_place.h"
#include "platform/application.h"
#include "platform/arrays.h"
#include "platform/data.h"
#include "support/output_datasets.h"

namespace tessarine {

struct RunInput {
  std::shared_ptr<IFeatureClass> features;
  std::shared_ptr<IFeatureCursor> cursor;
  std::int32_t count = 0;
};

/// All records of the layer, or the selected ones, in the order of the data.
[[nodiscard]] RunInput OpenInput(const std::shared_ptr<IFeatureLayer>& layer, bool all_records, Recycling recycling);

/// How many these are.
[[nodiscard]] std::int32_t CountInput(const std::shared_ptr<IFeatureLayer>& layer, bool all_records);

/// The request for an output in this place, without what the run knows of its data.
[[nodiscard]] MyGeneralOperations::OutputRequest RequestFor(const OutputPlace& place, std::string_view name_prompt);

/// The empty report of a run that made no output because the user gave up. A fault where it was for another reason.
[[nodiscard]] std::string EndWithoutOutput(const RunContext& context);

/// Adds a layer of the output to the focus map.
void AddResultLayer(RunContext& context, const std::shared_ptr<IFeatureClass>& output, const std::string& name,
                    const IMxDocument& document);

}  // namespace tessarine
