#include <algorithm>
#include <cmath>

#include "platform/fault.h"
#include "platform/geometry.h"

namespace tessarine {
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

std::shared_ptr<Ring> Polygon::Ring(std::int32_t index) const { return Cast<tessarine::Ring>(Geometry(index)); }

double Polygon::Area() const {
  double area = 0.0;
  for (std::int32_t index = 0; index < GeometryCount(); ++index) area += Ring(index)->Area();
  return area;
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
  if (area == 0.0) Raise(kDivisionByZero, "A polygon without area has no centre of gravity.");
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
