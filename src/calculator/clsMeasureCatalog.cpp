// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/clsMeasureCatalog.h"

#include "calculator/measure_catalogue.h"

namespace tessarine {

std::vector<CataloguedMeasure> clsMeasureCatalog::Measures(esriGeometryType shape,
                                                           const SpatialReferenceRef& reference) const {
  std::vector<CataloguedMeasure> measures;
  for (const MeasureRow& row : MeasuresOf(shape, SpatialKindOf(reference))) {
    CataloguedMeasure measure{row.option_id, std::string(row.caption), {}, {}, row.slow};
    for (std::size_t index = 0; index < row.FieldCount(); ++index) {
      measure.DefaultFields.emplace_back(row.default_fields[index]);
      measure.ReportLabels.emplace_back(row.report_labels[index]);
    }
    measures.push_back(std::move(measure));
  }
  return measures;
}

}  // namespace tessarine
