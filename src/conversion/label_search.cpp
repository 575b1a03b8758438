// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/label_search.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <optional>

#include "conversion/layer_choices.h"
#include "platform/fault.h"
#include "platform/finite_shape.h"
#include "platform/run_stop.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

// Fetching points by their identifiers is slow in formats that are read from end to end.
constexpr std::size_t kMostKeptBytes = std::size_t{256} * 1024 * 1024;

std::size_t BytesOf(const KeptAttributes& kept) {
  std::size_t bytes = sizeof kept + kept.values.size() * sizeof(Variant);
  for (const Variant& value : kept.values) {
    if (value.kind() == Variant::Kind::String) bytes += value.Text().size();
  }
  return bytes;
}

double Distance(XY a, XY b) {
  const double dx = a.x - b.x, dy = a.y - b.y;
  return std::sqrt(dx * dx + dy * dy);
}

// Empty for a point without a place, and for one whose shape can't be read.
std::optional<XY> PlaceOf(const IFeature& feature) {
  GeometryRef shape;
  try {
    shape = feature.Shape();
  } catch (const Fault&) {
    return std::nullopt;
  }
  if (!shape || shape->IsEmpty() || !HasOnlyFiniteCoordinates(*shape)) return std::nullopt;
  const auto point = Cast<Point>(shape);
  return Require(point, "IPoint")->Coordinates();
}

}  // namespace

LabelSearch::LabelSearch(const std::shared_ptr<IFeatureLayer>& layer, bool all_points, bool first_point,
                         const SpatialReferenceRef& polygons, AttributeCopy attributes)
    : points_(Require(layer, "point layer")->FeatureClass()),
      first_point_(first_point),
      attributes_(std::move(attributes)) {
  if (!all_points) selection_ = Require(SelectionOf(layer), "SelectionSet");
  own_ = Require(points_, "FeatureClass")->SpatialReference();
  if (!MyGeneralOperations::CompareSpatialReferences(own_, polygons)) reference_ = own_;
  ReadPoints();
}

std::shared_ptr<IFeatureCursor> LabelSearch::AllPoints() const {
  if (!selection_) return points_->Search(nullptr, Recycling::Yes);
  return Cast<IFeatureCursor>(selection_->Search(nullptr, Recycling::Yes));
}

void LabelSearch::ReadPoints() {
  std::vector<NumberedPoint> points;
  const std::shared_ptr<IFeatureCursor> cursor = Require(AllPoints(), "cursor");
  while (const std::shared_ptr<IFeature> feature = cursor->NextFeature()) {
    EndIfStopped();
    const std::optional<XY> place = PlaceOf(*feature);
    if (!place) continue;
    points.push_back({*place, feature->OID()});
    KeepAttributes(*feature);
  }
  tree_ = PointTree(std::move(points));
  std::ranges::sort(kept_, {}, &KeptAttributes::oid);
}

// A point whose attributes can't be read says so when a polygon wants them.
void LabelSearch::KeepAttributes(const IFeature& point) {
  if (kept_bytes_ >= kMostKeptBytes) return;
  try {
    kept_.push_back(attributes_.Keep(point));
    kept_bytes_ += BytesOf(kept_.back());
  } catch (const Fault&) {
  }
}

bool LabelSearch::Label(const Polygon& polygon, IRowBuffer& to, RunJournal& journal) const {
  const std::optional<std::int64_t> oid = Find(polygon);
  if (!oid) return false;
  const auto kept = std::ranges::lower_bound(kept_, *oid, {}, &KeptAttributes::oid);
  if (kept != kept_.end() && kept->oid == *oid) {
    attributes_.Copy(*kept, to, journal);
  } else {
    attributes_.Copy(*Require(points_->GetFeature(*oid), "label point"), to, journal);
  }
  return true;
}

std::optional<std::int64_t> LabelSearch::Find(const Polygon& polygon) const {
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
  if (region->IsEmpty()) return std::nullopt;
  struct Candidate {
    double distance;
    std::int64_t oid;
    auto operator<=>(const Candidate&) const = default;
  };
  std::optional<Candidate> winner;
  tree_.Within(region->Envelope(), [&](const NumberedPoint& point) {
    const Candidate candidate{first_point_ ? 0.0 : Distance(point.place, center.Coordinates()), point.oid};
    if (winner && *winner <= candidate) return;
    Point place(point.place);
    place.SetSpatialReference(own_);
    if (!region->Disjoint(place)) winner = candidate;
  });
  return winner ? std::optional(winner->oid) : std::nullopt;
}

}  // namespace tessarine
