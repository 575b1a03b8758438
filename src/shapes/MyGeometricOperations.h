// SPDX-License-Identifier: GPL-2.0-or-later
// The face of the geodesy of shapes: everything of `MyGeometricOperations` by one include.
//
// Longitude stands before latitude, in decimal degrees. A routine with the suffix 2 takes the spheroid as semi-major
// and semi-minor axis after its other arguments; the same routine without it uses WGS 1984. Routines trap their own
// faults: they report under their name and return the empty result of their type.
#pragma once

#include "shapes/angles.h"                // IWYU pragma: export
#include "shapes/cartesian.h"             // IWYU pragma: export
#include "shapes/convergence.h"           // IWYU pragma: export
#include "shapes/geographic_shape.h"      // IWYU pragma: export
#include "shapes/multipoint_centroids.h"  // IWYU pragma: export
#include "shapes/planetary_latitude.h"    // IWYU pragma: export
#include "shapes/polyline_measures.h"     // IWYU pragma: export
#include "shapes/reshape.h"               // IWYU pragma: export
#include "shapes/spherical_area.h"        // IWYU pragma: export
#include "shapes/spikes.h"                // IWYU pragma: export
#include "shapes/vincenty.h"              // IWYU pragma: export
#include "shapes/wrap.h"                  // IWYU pragma: export
