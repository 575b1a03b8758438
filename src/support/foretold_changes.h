// What the fields of a source and the format of an output foretell, before a value is read.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/field.h"

namespace tessarine {

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
void AnnounceChanges(const std::vector<CarriedField>& fields, std::int32_t output_kind);

}  // namespace tessarine
