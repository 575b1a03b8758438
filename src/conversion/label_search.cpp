#include "conversion/label_search.h"

#include <cmath>

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
  std::shared_ptr<IFeature> first = cursor->NextFeature();
  if (!first || first_point_) return first;
  return Nearest(first, *cursor, center.Coordinates());
}

std::shared_ptr<IFeature> LabelSearch::Nearest(const std::shared_ptr<IFeature>& first, IFeatureCursor& rest,
                                               XY center) const {
  std::int64_t winner = first->OID();
  double least = DistanceTo(center, *first);
  while (const std::shared_ptr<IFeature> feature = rest.NextFeature()) {
    const double distance = DistanceTo(center, *feature);
    if (distance >= least) continue;
    least = distance;
    winner = feature->OID();
  }
  return points_->GetFeature(winner);
}

}  // namespace tessarine
