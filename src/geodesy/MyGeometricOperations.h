// SPDX-License-Identifier: GPL-2.0-or-later
// The face of the geodesy core: everything of `MyGeometricOperations` by one include.
//
// Longitude stands before latitude, in decimal degrees. A routine with the suffix 2 takes the spheroid as semi-major
// and semi-minor axis after its other arguments; the same routine without it uses WGS 1984. Routines trap their own
// faults: they report under their name and answer the empty result of their type.
#pragma once

#include "geodesy/angles.h"                  // IWYU pragma: export
#include "geodesy/cartesian.h"               // IWYU pragma: export
#include "geodesy/convergence.h"             // IWYU pragma: export
#include "geodesy/geographic_shape.h"        // IWYU pragma: export
#include "geodesy/longitude_continuation.h"  // IWYU pragma: export
#include "geodesy/multipoint_centroids.h"    // IWYU pragma: export
#include "geodesy/planetary_latitude.h"      // IWYU pragma: export
#include "geodesy/polyline_measures.h"       // IWYU pragma: export
#include "geodesy/reshape.h"                 // IWYU pragma: export
#include "geodesy/spherical_area.h"          // IWYU pragma: export
#include "geodesy/spherical_area_sum.h"      // IWYU pragma: export
#include "geodesy/spikes.h"                  // IWYU pragma: export
#include "geodesy/vincenty.h"                // IWYU pragma: export
#include "geodesy/wrap.h"                    // IWYU pragma: export
