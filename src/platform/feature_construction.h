// SPDX-License-Identifier: GPL-2.0-or-later
// Construction of features from other shapes. Defined by the engine.
#pragma once

#include "platform/data.h"

namespace tessarine {

class FeatureConstruction final {
 public:
  /// Adds one polygon to the target class for each region that the lines bound together, islands inside a region as
  /// regions of their own; its other fields stay unset. Of the lines, those that share a point with the processing
  /// bounds count. First the lines are brought together: places within the tolerance of each other become one, the
  /// one that comes first in the order of the lines, and a line that passes a vertex within the tolerance is led
  /// through it. Then they are split where they meet. Lines that end freely bound nothing and are left out. Curves
  /// become chords. The regions come from left to right by their left edges, and from below where these are equal,
  /// whatever the order of the lines.
  ///
  /// `cluster_tolerance` is in the unit of the coordinates; 0 joins nothing but equal places. Fault 5 when it is
  /// negative or no number.
  void ConstructPolygonsFromGeometries(IFeatureClass& target, const Envelope& processing_bounds, IEnumGeometry& lines,
                                       double cluster_tolerance) const;
};

}  // namespace tessarine
