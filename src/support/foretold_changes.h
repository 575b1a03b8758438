// SPDX-License-Identifier: GPL-2.0-or-later
// What the fields of a source and the format of an output foretell, before a value is read.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/data.h"
#include "platform/field.h"
#include "platform/run_context.h"

namespace tessarine {

/// What a plan tells where a class stands in the output's place.
inline constexpr const char* kWouldAskToReplace =
    "Feature Class Already Exists: the run would ask whether to overwrite it.";

/// A field that is carried over, with the name that it gets.
struct CarriedField {
  FieldRef source;
  std::string name;
};

/// A sentence for each loss or change that the schemas foretell: names that give way, days without their time, times
/// without a day, whole numbers that no double holds, texts wider than their column. `output_kind` is one of
/// `MyGeneralOperations::OutputKind`. Other kinds foretell nothing.
[[nodiscard]] std::vector<std::string> ForetoldChanges(const std::vector<CarriedField>& fields,
                                                       std::int32_t output_kind);
/// Says them to the user of the host.
void AnnounceChanges(RunContext& context, const std::vector<CarriedField>& fields, std::int32_t output_kind);

/// A sentence for what no output takes over, whatever its format: heights and measures of the shapes, and, where all
/// other fields are carried, each field of a kind that none carries.
[[nodiscard]] std::vector<std::string> ForetoldLosses(const IFeatureClass& input, std::string_view layer,
                                                      const std::vector<CarriedField>& fields);
/// Says them to the user of the host, and notes them in the journal as warnings without a record.
void AnnounceLosses(RunContext& context, const IFeatureClass& input, std::string_view layer,
                    const std::vector<CarriedField>& fields);

}  // namespace tessarine
