// SPDX-License-Identifier: GPL-2.0-or-later
// The catalogue of measures as hosts reach it.
#pragma once

#include "calculator/measure_choice.h"

namespace tessarine {

class clsMeasureCatalog final : public IMeasureCatalog {
 public:
  [[nodiscard]] MeasureOffer Offer(const IFeatureLayer& layer) const override { return OfferOf(layer); }
  [[nodiscard]] std::vector<std::string> Captions() const override;
};

}  // namespace tessarine
