// SPDX-License-Identifier: GPL-2.0-or-later
// The fields that a run writes to: the missing ones are made, those that can't be written are replaced.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "calculator/geometry_options.h"
#include "calculator/result_writing.h"
#include "platform/data.h"
#include "platform/run_context.h"

namespace tessarine {

/// The name, or the first with a number after it that the class has no field of; what is longer than the names of
/// dBASE tables loses its beginning. Numbers go on after `counter`, which ends as the last one that was tried.
[[nodiscard]] std::string FreeFieldName(const IFeatureClass& features, const std::string& name, std::int32_t& counter);

/// A new field of the calculator: a double of 16 digits, 12 after the point, also for counts.
[[nodiscard]] FieldRef NewResultField(const std::string& name);

/// What a field that was there before keeps less of than a new field of the calculator, a clause with its full stop as
/// "numbers are rounded to 2 decimals."; empty where it keeps as much. Texts keep what they have room for.
[[nodiscard]] std::string RoundingOf(const Field& field);
/// Whether it keeps less: the same, as cheap as it must be for each value.
[[nodiscard]] bool KeepsLess(const Field& field);

/// A field that can't be made, and why: a sentence.
struct FieldFailure {
  std::string name, cause;
};

/// Makes the fields that the class doesn't have. The first that can't be made, empty when all are there; those made
/// before it stay.
[[nodiscard]] std::optional<FieldFailure> MakeMissingFields(IFeatureClass& features,
                                                            const std::vector<std::string>& names);

/// The indexes of the fields. For a field that isn't editable a new one is made, of which the user is told, and the
/// entries take its name. The index that is returned stays that of the field that isn't editable.
[[nodiscard]] FieldIndexes CheckFields(RunContext& context, IFeatureClass& features,
                                       const std::vector<std::string>& names, std::vector<OptionEntry>& entries);

}  // namespace tessarine
