// SPDX-License-Identifier: GPL-2.0-or-later
// The fields that a planetary output carries over from its input: all that any output can hold.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/arrays.h"
#include "platform/field.h"
#include "support/foretold_changes.h"

namespace tessarine {

struct CarriedFields {
  std::shared_ptr<VarArray> fields;  ///< clones of the input's fields, in order, under their output names
  std::shared_ptr<VarArray> names;   ///< for each of them a `StrArray` of its input and its output name
};

/// Shapes, identifiers, blobs and rasters stay behind. A shapefile takes names of at most 10 characters that begin
/// with no digit; two fields never get the same one.
[[nodiscard]] CarriedFields CarryFields(const Fields& input, std::int32_t output_kind);

/// The positions of the input's fields that are carried over, in order.
[[nodiscard]] std::vector<std::int32_t> CarriedPositions(const Fields& input);

/// What is carried over under which name, for what can be foretold of the values.
[[nodiscard]] std::vector<CarriedField> CarriedUnder(const Fields& input, const VarArray& names);

/// The name cut for a shapefile: its first 10 characters, and for a digit at the start a "Z" ahead of the last 9 of
/// them.
[[nodiscard]] std::string ShapefileFieldName(const std::string& name);

}  // namespace tessarine
