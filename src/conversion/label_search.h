// SPDX-License-Identifier: GPL-2.0-or-later
// The label point of a polygon.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "conversion/point_tree.h"
#include "platform/data.h"
#include "platform/map.h"
#include "support/attribute_copy.h"

namespace tessarine {

class LabelSearch {
 public:
  /// Looks among all points of the layer, or the selected ones, which are read once. `polygons` is the reference of the
  /// polygons, `attributes` what they get of a point. Raises `RunStopped`.
  LabelSearch(const std::shared_ptr<IFeatureLayer>& layer, bool all_points, bool first_point,
              const SpatialReferenceRef& polygons, AttributeCopy attributes);

  /// Copies the attributes of the point in the polygon or on its boundary; false when there is none. Of several it is
  /// the first by identifier, or the nearest to the polygon's centre, the first of these where they are equally near.
  /// The polygon stays as it is.
  [[nodiscard]] bool Label(const Polygon& polygon, IRowBuffer& to, RunJournal& journal) const;

 private:
  [[nodiscard]] std::shared_ptr<IFeatureCursor> AllPoints() const;
  void ReadPoints();
  void KeepAttributes(const IFeature& point);
  [[nodiscard]] std::optional<std::int64_t> Find(const Polygon& polygon) const;

  std::shared_ptr<IFeatureClass> points_;
  std::shared_ptr<ISelectionSet> selection_;  // null when all points count
  bool first_point_;
  SpatialReferenceRef own_;        // of the points
  SpatialReferenceRef reference_;  // the same; null when the polygons' own serves
  PointTree tree_;
  AttributeCopy attributes_;
  std::vector<KeptAttributes> kept_;  // of the points by identifier, as many as there is room for
  std::size_t kept_bytes_ = 0;
};

}  // namespace tessarine
