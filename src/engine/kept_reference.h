// SPDX-License-Identifier: GPL-2.0-or-later
// The reference that a file holds, held against the one that was meant.
//
// Formats have words of their own for references: a code, a text of another age, a list of known projections. Most
// drivers drop what has no such words without telling, and readers then take the coordinates for others. What counts is
// where a reader finds the shapes, so that names don't matter.
#pragma once

#include <ogr_spatialref.h>

#include <filesystem>
#include <string>
#include <vector>

#include "engine/srs_from_gdal.h"
#include "outputs/formats.h"
#include "platform/geometry_types.h"

namespace tessarine::engine {

/// What a reader who is told `read` (null for nothing) gets of shapes in `meant`, a sentence; empty where he finds them
/// where they were meant, to a centimetre within a datum and a decimetre between two. `extent` is that of the shapes;
/// where it is empty, the area stands in for which the reference is made.
[[nodiscard]] std::string ReferenceLoss(const OGRSpatialReference* meant, const OGRSpatialReference* read,
                                        const Envelope& extent);

/// The reference in the words that the format's driver makes most of, else a copy of it; null for null. GeoJSON names
/// codes alone: one without gets that of a register that means the same places. The driver of GML writes degrees of
/// other registers than EPSG with the latitude first and reads them otherwise: those lose their code.
[[nodiscard]] OgrReference WordedFor(const Format& format, const OGRSpatialReference* reference,
                                     const Envelope& extent);

/// Rewrites the text beside a new shapefile where the driver's own would have the shapes read elsewhere, and one of
/// another kind wouldn't.
void KeepBesideShapefile(const std::filesystem::path& shapefile, const OGRSpatialReference* reference,
                         const Envelope& extent);

/// What a new class of the format makes of the reference, found out by one. Sentences.
[[nodiscard]] std::vector<std::string> TryReference(const Format& format, const OGRSpatialReference* reference,
                                                    const Envelope& extent);

}  // namespace tessarine::engine
