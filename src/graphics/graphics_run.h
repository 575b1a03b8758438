// SPDX-License-Identifier: GPL-2.0-or-later
// The classes that are made of graphics.
#pragma once

#include <memory>

#include "graphics/element_names.h"
#include "graphics/graphics_options.h"
#include "platform/data.h"
#include "support/output_chooser.h"
#include "support/output_datasets.h"

namespace tessarine {

/// Whether shapes can be brought to the reference: it is geographic or projected.
[[nodiscard]] bool IsKnown(const SpatialReferenceRef& reference);

/// The request for a class with the fields of the measure, and "Name" where asked for.
[[nodiscard]] MyGeneralOperations::OutputRequest GraphicsRequest(esriGeometryType geometry_type, GraphicMeasure measure,
                                                                 bool names, const SpatialReferenceRef& reference,
                                                                 const OutputPlace& place);

/// Fills a class with the elements of a conversion.
///
/// True curves become straight pieces, 200 for each shape. A shape without a known reference is labelled with the
/// geographic one of the map, its coordinates as they stand; then all are projected into the reference of the class.
/// Areas are those on the sphere, in square metres, lengths those of geodesics on WGS 1984, in metres; coordinates are
/// in the reference of the class. The names that were written are counted in `names`.
void FillGraphicsClass(RunJournal& journal, const std::shared_ptr<IFeatureClass>& target,
                       const GraphicConversion& conversion, const GraphicSet& set, const SpatialReferenceRef& output,
                       const SpatialReferenceRef& map, NameCounts& names);

}  // namespace tessarine
