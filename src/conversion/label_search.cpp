// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/label_search.h"

#include <cmath>
#include <compare>
#include <optional>

#include "conversion/layer_choices.h"
#include "platform/fault.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

double DistanceTo(XY center, const IFeature& feature) {
  const auto point = Cast<Point>(feature.Shape());
  const double dx = Require(point, "IPoint")->X() - center.x, dy = point->Y() - center.y;
  return std::sqrt(dx * dx + dy * dy);
}

}  // namespace

LabelSearch::LabelSearch(const std::shared_ptr<IFeatureLayer>& layer, bool all_points, bool first_point,
                         const SpatialReferenceRef& polygons)
    : points_(Require(layer, "point layer")->FeatureClass()), first_point_(first_point) {
  if (!all_points) selection_ = Require(SelectionOf(layer), "SelectionSet");
  const SpatialReferenceRef own = Require(points_, "FeatureClass")->SpatialReference();
  if (!MyGeneralOperations::CompareSpatialReferences(own, polygons)) reference_ = own;
}

std::shared_ptr<IFeatureCursor> LabelSearch::PointsIn(const QueryFilter& filter) const {
  if (!selection_) return points_->Search(&filter, true);
  return Cast<IFeatureCursor>(selection_->Search(&filter, true));
}

std::shared_ptr<IFeature> LabelSearch::Find(const Polygon& polygon) const {
  const std::shared_ptr<Polygon> region = CloneOf(polygon);
  Point center;
  if (!first_point_) {
    center = Point(polygon.Centroid());
    center.SetSpatialReference(polygon.SpatialReference());
  }
  if (reference_) {
    region->Project(reference_);
    if (!first_point_) center.Project(reference_);
  }
  QueryFilter filter;
  filter.Geometry = region;
  const std::shared_ptr<IFeatureCursor> cursor = PointsIn(filter);
  return first_point_ ? First(*cursor) : Nearest(*cursor, center.Coordinates());
}

std::shared_ptr<IFeature> LabelSearch::First(IFeatureCursor& hits) const {
  std::optional<std::int64_t> winner;
  while (const std::shared_ptr<IFeature> feature = hits.NextFeature()) {
    if (!winner || feature->OID() < *winner) winner = feature->OID();
  }
  return winner ? points_->GetFeature(*winner) : nullptr;
}

std::shared_ptr<IFeature> LabelSearch::Nearest(IFeatureCursor& hits, XY center) const {
  struct Candidate {
    double distance;
    std::int64_t oid;
    auto operator<=>(const Candidate&) const = default;
  };
  std::optional<Candidate> winner;
  while (const std::shared_ptr<IFeature> feature = hits.NextFeature()) {
    const Candidate candidate{DistanceTo(center, *feature), feature->OID()};
    if (!winner || candidate < *winner) winner = candidate;
  }
  return winner ? points_->GetFeature(winner->oid) : nullptr;
}

}  // namespace tessarine
