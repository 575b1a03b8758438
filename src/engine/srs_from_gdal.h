// SPDX-License-Identifier: GPL-2.0-or-later
// Spatial references between the platform's data and OGR.
#pragma once

#include <ogr_spatialref.h>

#include <cstdint>
#include <memory>
#include <string>

#include "platform/spatial_reference.h"

namespace tessarine::engine {

struct OgrReferenceRelease {
  void operator()(OGRSpatialReference* reference) const { reference->Release(); }
};
using OgrReference = std::unique_ptr<OGRSpatialReference, OgrReferenceRelease>;

/// The platform's reference of an OGR one; null gives the one shared unknown reference.
[[nodiscard]] SpatialReferenceRef ReferenceFromOgr(const OGRSpatialReference* reference);

/// A new OGR reference with longitude or easting first; null for an unknown reference.
[[nodiscard]] OgrReference OgrFromReference(const SpatialReference& reference);

/// A new reference of longitudes and latitudes on WGS 84, in this order.
[[nodiscard]] OgrReference Wgs84();

/// Whether coordinates mean the same places in both. Names, codes and the order of the axes don't count.
[[nodiscard]] bool AreEquivalent(const OGRSpatialReference& first, const OGRSpatialReference& second);

/// Forms of well-known text: the one that GDAL's drivers keep and read, the one that .prj files have, and the standard
/// of today.
enum class WktForm : std::uint8_t { Gdal, Esri, Iso };

/// Empty for a reference that the form has no words for.
[[nodiscard]] std::string WellKnownText(const OGRSpatialReference& reference, WktForm form);

}  // namespace tessarine::engine
