// SPDX-License-Identifier: GPL-2.0-or-later
// What a host may ask of the suite's catalogue of measures.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/map.h"
#include "platform/object.h"

namespace tessarine {

/// A measure as the calculator offers it for a layer.
struct OfferedMeasure {
  std::int32_t option_id = 0;  ///< the number of its check box, from 1
  std::string caption;
  std::vector<std::string> report_labels;  ///< one or two
  bool slow = false;                       ///< counts for the choice of the progress display
  struct Field {
    std::string name;    ///< that is proposed
    bool taken = false;  ///< the layer has a numeric field of this name
  };
  std::vector<Field> fields;  ///< one or two
};

struct MeasureOffer {
  std::string feature_type, spheroid;  ///< lines for people
  std::vector<OfferedMeasure> measures;
};

class IMeasureCatalog : public virtual Object {
 public:
  /// The measures of a layer by its shape type and reference, in the order of their ids; none for other shape types.
  [[nodiscard]] virtual MeasureOffer Offer(const IFeatureLayer& layer) const = 0;
  /// Of the measures of all shape types and references, each once.
  [[nodiscard]] virtual std::vector<std::string> Captions() const = 0;
};

}  // namespace tessarine
