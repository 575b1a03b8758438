// SPDX-License-Identifier: GPL-2.0-or-later
// Spatial references between the platform's data and OGR.
#pragma once

#include <ogr_spatialref.h>

#include <memory>

#include "platform/spatial_reference.h"

namespace tessarine::engine {

struct OgrReferenceRelease {
  void operator()(OGRSpatialReference* reference) const { reference->Release(); }
};
using OgrReference = std::unique_ptr<OGRSpatialReference, OgrReferenceRelease>;

/// The platform's reference of an OGR one; nothing gives the one shared unknown reference.
[[nodiscard]] SpatialReferenceRef ReferenceFromOgr(const OGRSpatialReference* reference);

/// A new OGR reference with longitude or easting first; nothing for an unknown reference.
[[nodiscard]] OgrReference OgrFromReference(const SpatialReference& reference);

}  // namespace tessarine::engine
