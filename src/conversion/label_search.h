// SPDX-License-Identifier: GPL-2.0-or-later
// The label point of a polygon.
#pragma once

#include <memory>

#include "conversion/point_tree.h"
#include "platform/data.h"
#include "platform/map.h"

namespace tessarine {

class LabelSearch {
 public:
  /// Looks among all points of the layer, or the selected ones, which are read once. `polygons` is the reference of the
  /// polygons. Raises `RunStopped`.
  LabelSearch(const std::shared_ptr<IFeatureLayer>& layer, bool all_points, bool first_point,
              const SpatialReferenceRef& polygons);

  /// The point in the polygon or on its boundary that gives its attributes; nothing when there is none. Of several the
  /// first by identifier, or the nearest to the polygon's centre, the first of these where they are equally near. The
  /// polygon stays as it is.
  [[nodiscard]] std::shared_ptr<IFeature> Find(const Polygon& polygon) const;

 private:
  [[nodiscard]] std::shared_ptr<IFeatureCursor> AllPoints() const;
  void ReadPoints();

  std::shared_ptr<IFeatureClass> points_;
  std::shared_ptr<ISelectionSet> selection_;  // nothing when all points count
  bool first_point_;
  SpatialReferenceRef own_;        // of the points
  SpatialReferenceRef reference_;  // the same; nothing when the polygons' own serves
  PointTree tree_;
};

}  // namespace tessarine
