// SPDX-License-Identifier: GPL-2.0-or-later
// Outputs in another reference than the one that a run works in.
#pragma once

#include <memory>
#include <string>

#include "outputs/output_place.h"
#include "platform/data.h"

namespace tessarine {

/// Whether shapes of `own` are brought elsewhere for a user who wants them in `wished`, which may be null.
[[nodiscard]] bool BringsElsewhere(const SpatialReferenceRef& own, const SpatialReferenceRef& wished);

/// How the shapes of a class get to the reference: a sentence that names both and the transformation. `extent` is that
/// of the data, in `own`, and may be empty. Fault 5 where there is no way.
[[nodiscard]] std::string WayTo(const SpatialReferenceRef& wished, const SpatialReferenceRef& own,
                                const Envelope& extent);
/// What the rectangle covers in the reference; empty where that can't be told.
[[nodiscard]] Envelope ExtentIn(const SpatialReferenceRef& wished, const SpatialReferenceRef& own,
                                const Envelope& extent);

/// A class that a run works on in its own reference: it has the fields and the names of `target`, which is new, empty
/// and in the wished one, at `place`. When it is published, its rows are written into `target`, and that is published.
/// A row whose shape has no place there is written without it; `Notes` tells it by the record that it was made of. Made
/// by the engine.
[[nodiscard]] std::shared_ptr<IFeatureClass> WorkedInOwnReference(const std::shared_ptr<IFeatureClass>& target,
                                                                  const OutputPlace& place,
                                                                  const SpatialReferenceRef& own,
                                                                  const SpatialReferenceRef& wished,
                                                                  const Envelope& extent);

}  // namespace tessarine
