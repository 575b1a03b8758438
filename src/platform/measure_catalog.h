// SPDX-License-Identifier: GPL-2.0-or-later
// What a host may ask of the suite's catalogue of measures.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/geometry_types.h"
#include "platform/object.h"
#include "platform/spatial_reference.h"

namespace tessarine {

struct CataloguedMeasure {
  std::int32_t OptionId = 0;  ///< the number of its check box, from 1
  std::string Caption;
  std::vector<std::string> DefaultFields, ReportLabels;  ///< one or two each
  bool Slow = false;                                     ///< counts for the choice of the progress display
};

class IMeasureCatalog : public virtual Object {
 public:
  /// The measures of a layer by its shape type and reference, in the order of their ids; none for other shape types.
  [[nodiscard]] virtual std::vector<CataloguedMeasure> Measures(esriGeometryType shape,
                                                                const SpatialReferenceRef& reference) const = 0;
};

}  // namespace tessarine
