// SPDX-License-Identifier: GPL-2.0-or-later
// The fields that an output can carry over, and which of them somebody means by a name.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/arrays.h"
#include "platform/map.h"
#include "platform/tool.h"

namespace tessarine {

struct TransferableField {
  FieldRef field;
  std::string alias;  ///< as the layer shows it
};

/// Whether the area and length that a geodatabase keeps by itself count, too.
enum class StoredMeasures { Listed, LeftOut };

[[nodiscard]] std::vector<TransferableField> TransferableFields(const IFeatureLayer& layer, StoredMeasures measures);

/// A choice of fields, or why there is none.
struct FieldChoice {
  std::shared_ptr<VarArray> fields = std::make_shared<VarArray>();
  std::optional<Objection> objection = std::nullopt;
};

/// The fields of these names, in the order of the layer. A field is meant by its name or, where no field has that name,
/// by its alias; first exactly, then whatever the case. A name that may mean several fields, or none that can be
/// carried over, is objected to under the parameter's name.
[[nodiscard]] FieldChoice FieldsCalled(const IFeatureLayer& layer, StoredMeasures measures,
                                       const std::vector<std::string>& names, std::string_view parameter);
/// All of them.
[[nodiscard]] FieldChoice AllFields(const IFeatureLayer& layer, StoredMeasures measures);

}  // namespace tessarine
