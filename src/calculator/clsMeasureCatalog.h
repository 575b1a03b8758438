// SPDX-License-Identifier: GPL-2.0-or-later
// The catalogue of measures as a host asks for it.
#pragma once

#include "platform/measure_catalog.h"

namespace tessarine {

class clsMeasureCatalog final : public IMeasureCatalog {
 public:
  [[nodiscard]] std::vector<CataloguedMeasure> Measures(esriGeometryType shape,
                                                        const SpatialReferenceRef& reference) const override;
};

}  // namespace tessarine
