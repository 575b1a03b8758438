// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/fault.h"
#include "platform/geometry.h"
#include "platform/vertex_enumerator.h"

namespace tessarine {

void Point::PutCoords(double x, double y) {
  xy_ = {x, y};
  empty_ = false;
}

void Point::SetX(double x) {
  xy_.x = x;
  empty_ = false;
}

void Point::SetY(double y) {
  xy_.y = y;
  empty_ = false;
}

void Point::SetEmpty() {
  xy_ = {};
  empty_ = true;
}

Envelope Point::Envelope() const {
  return empty_ ? tessarine::Envelope() : tessarine::Envelope(xy_.x, xy_.y, xy_.x, xy_.y);
}

ObjectRef Point::Clone() const { return std::make_shared<Point>(*this); }

bool Point::IsEqual(const Object& other) const {
  const auto* point = dynamic_cast<const Point*>(&other);
  return point != nullptr && point->empty_ == empty_ && point->xy_ == xy_;
}

void Point::Move(double dx, double dy) {
  if (!empty_) xy_ = {xy_.x + dx, xy_.y + dy};
}

void IPointCollection::QueryPoint(std::int32_t index, tessarine::Point& point) const {
  const XY at = Point(index);
  point.PutCoords(at.x, at.y);
}

void IPointCollection::AddPoint(const tessarine::Point& point) { AddPoint(point.Coordinates()); }

void IArea::QueryCentroid(Point& point) const {
  const XY at = Centroid();
  point.PutCoords(at.x, at.y);
}

void IArea::QueryLabelPoint(Point& point) const {
  const XY at = LabelPoint();
  point.PutCoords(at.x, at.y);
}

// --- Multipoint --------------------------------------------------------------------------------------------------

namespace {

std::size_t CheckedPoint(std::int32_t index, std::size_t count) {
  if (index < 0 || static_cast<std::size_t>(index) >= count) {
    Raise(kInvalidCall, "There is no point " + std::to_string(index) + " among " + std::to_string(count) + ".");
  }
  return static_cast<std::size_t>(index);
}

}  // namespace

void Multipoint::SetVertices(std::vector<XY> points) {
  points_ = std::move(points);
  known_simple_ = false;
}

void Multipoint::SetEmpty() { SetVertices({}); }

Envelope Multipoint::Envelope() const {
  tessarine::Envelope box;
  for (const XY point : points_) box.Union(point);
  return box;
}

ObjectRef Multipoint::Clone() const { return std::make_shared<Multipoint>(*this); }

bool Multipoint::IsEqual(const Object& other) const {
  const auto* points = dynamic_cast<const Multipoint*>(&other);
  return points != nullptr && points->points_ == points_;
}

XY Multipoint::Point(std::int32_t index) const { return points_[CheckedPoint(index, points_.size())]; }

void Multipoint::AddPoint(XY point) {
  points_.push_back(point);
  known_simple_ = false;
}

void Multipoint::UpdatePoint(std::int32_t index, XY point) {
  points_[CheckedPoint(index, points_.size())] = point;
  known_simple_ = false;
}

void Multipoint::SetPointCollection(const IPointCollection& other) {
  std::vector<XY> points;
  points.reserve(static_cast<std::size_t>(other.PointCount()));
  for (std::int32_t index = 0; index < other.PointCount(); ++index) points.push_back(other.Point(index));
  SetVertices(std::move(points));
}

std::shared_ptr<IEnumVertex> Multipoint::EnumVertices() {
  return detail::MakeVertexEnumerator({[] { return 1; }, [this](std::int32_t) -> IPointCollection& { return *this; }});
}

GeometryRef Multipoint::Geometry(std::int32_t index) const {
  auto point = std::make_shared<tessarine::Point>(Point(index));
  point->SetSpatialReference(SpatialReference());
  return point;
}

void Multipoint::AddGeometry(const GeometryRef& geometry) {
  const auto point = Cast<tessarine::Point>(geometry);
  if (!point) Raise(kTypeMismatch, "A multipoint takes points only.");
  AddPoint(point->Coordinates());
}

void Multipoint::Move(double dx, double dy) {
  for (XY& point : points_) point = {point.x + dx, point.y + dy};
  known_simple_ = false;
}

}  // namespace tessarine
