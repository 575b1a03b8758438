// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/exact_class.h"
#include "platform/fault.h"
#include "platform/geometry.h"

namespace tessarine {
namespace {

// How far the rounding of the vertices, and of each product and difference, may bring the sum of a polygon's area off.
double RoundingOfArea(const Polygon& polygon) {
  double sum = 0.0;
  for (const auto& part : polygon.Parts()) {
    const std::span<const XY> vertices = part->Vertices();
    for (std::size_t at = 2; at < vertices.size(); ++at) {
      const double x1 = vertices[at - 1].x - vertices[0].x, y1 = vertices[at - 1].y - vertices[0].y;
      const double x2 = vertices[at].x - vertices[0].x, y2 = vertices[at].y - vertices[0].y;
      sum += std::fabs(x1 * y2) + std::fabs(x2 * y1) + std::fabs(vertices[at].x) * (std::fabs(y1) + std::fabs(y2)) +
             std::fabs(vertices[at].y) * (std::fabs(x1) + std::fabs(x2));
    }
  }
  return 2.0 * std::numeric_limits<double>::epsilon() * sum;
}

XY MeanOfVertices(const Polygon& polygon) {
  const XY origin = polygon.FromPoint();
  double x = 0.0, y = 0.0;
  std::int32_t count = 0;
  for (const auto& part : polygon.Parts()) {
    // The closing vertex is the first once more.
    const std::span<const XY> vertices = part->Vertices().first(part->Vertices().size() - (part->IsClosed() ? 1 : 0));
    for (const XY vertex : vertices) {
      x += vertex.x - origin.x;
      y += vertex.y - origin.y;
      ++count;
    }
  }
  return {origin.x + x / count, origin.y + y / count};
}

XY CenterOfBoundaries(const Polygon& polygon) {
  const XY origin = polygon.FromPoint();
  double length = 0.0, x = 0.0, y = 0.0;
  for (std::int32_t index = 0; index < polygon.SegmentCount(); ++index) {
    const Segment segment = polygon.Segment(index);
    const double own = segment.Length();
    const XY middle = segment.QueryPoint(esriNoExtension, 0.5, true);
    length += own;
    x += (middle.x - origin.x) * own;
    y += (middle.y - origin.y) * own;
  }
  if (length == 0.0) return MeanOfVertices(polygon);
  return {origin.x + x / length, origin.y + y / length};
}

}  // namespace

ObjectRef Polygon::Clone() const {
  auto copy = std::make_shared<Polygon>();
  CopyPartsTo(*copy);
  return copy;
}

std::shared_ptr<Path> Polygon::NewPart() const { return std::make_shared<tessarine::Ring>(); }

void Polygon::AddGeometry(const GeometryRef& geometry) {
  auto ring = Cast<tessarine::Ring>(geometry);
  if (!ring) Raise(kTypeMismatch, "A polygon takes rings only.");
  AppendPart(std::move(ring));
}

void Polygon::Close() {
  for (std::int32_t index = 0; index < GeometryCount(); ++index) Ring(index)->Close();
}

std::shared_ptr<Ring> Polygon::Ring(std::int32_t index) const {
  const GeometryRef part = Geometry(index);
  return {part, ExactlyAs<tessarine::Ring>(*part)};
}

double Polygon::Area() const {
  double area = 0.0;
  for (std::int32_t index = 0; index < GeometryCount(); ++index) area += Ring(index)->Area();
  return area;
}

bool Polygon::HasArea() const {
  const double area = std::fabs(Area());
  const tessarine::Envelope box = Envelope();
  // Rounding could only matter in a polygon that fills next to nothing of its box.
  if (area > 1e-6 * (box.XMax() - box.XMin()) * (box.YMax() - box.YMin())) return true;
  if (HasCurves()) return area > 0.0;
  // Of coordinates beyond measure nothing can be told; whoever works with them meets the overflow.
  const double rounding = RoundingOfArea(*this);
  return !std::isfinite(rounding) || area > rounding;
}

XY Polygon::Centroid() const {
  double area = 0.0, x = 0.0, y = 0.0;
  if (IsEmpty()) Raise(kInvalidCall, "An empty polygon has no centre of gravity.");
  // Moments about a place of the shape itself keep their digits far from the origin.
  const XY origin = FromPoint();
  for (std::int32_t index = 0; index < GeometryCount(); ++index) {
    const std::shared_ptr<tessarine::Ring> ring = Ring(index);
    const double ring_area = ring->Area();
    if (ring_area == 0.0) continue;
    const XY center = ring->Centroid();
    area += ring_area;
    x += (center.x - origin.x) * ring_area;
    y += (center.y - origin.y) * ring_area;
  }
  if (!HasArea()) return CenterOfBoundaries(*this);
  return {origin.x + x / area, origin.y + y / area};
}

// --- GeometryBag ---------------------------------------------------------------------------------------------------

Envelope GeometryBag::Envelope() const {
  tessarine::Envelope box;
  for (const GeometryRef& member : members_) box.Union(member->Envelope());
  return box;
}

ObjectRef GeometryBag::Clone() const {
  auto copy = std::make_shared<GeometryBag>();
  copy->SetSpatialReference(SpatialReference());
  for (const GeometryRef& member : members_) copy->AddGeometry(CloneOf(*member));
  return copy;
}

bool GeometryBag::IsEqual(const Object& other) const {
  const auto* bag = dynamic_cast<const GeometryBag*>(&other);
  return bag != nullptr && std::ranges::equal(members_, bag->members_, [](const auto& first, const auto& second) {
           return first->IsEqual(*second);
         });
}

GeometryRef GeometryBag::Geometry(std::int32_t index) const {
  if (index < 0 || index >= GeometryCount()) {
    Raise(kInvalidCall, "The bag has no member " + std::to_string(index) + ".");
  }
  return members_[static_cast<std::size_t>(index)];
}

void GeometryBag::AddGeometry(const GeometryRef& geometry) {
  if (!geometry) Raise(kObjectNotSet, "A bag takes no empty reference.");
  members_.push_back(geometry);
}

GeometryRef GeometryBag::Next() { return next_ < members_.size() ? members_[next_++] : nullptr; }

}  // namespace tessarine
