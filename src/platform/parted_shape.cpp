// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>

#include "platform/exact_class.h"
#include "platform/fault.h"
#include "platform/geometry.h"
#include "platform/vertex_enumerator.h"

namespace tessarine {
namespace {

std::shared_ptr<Path> CopyOf(const Path& part) {
  if (const auto* ring = ExactlyAs<Ring>(part)) return std::make_shared<Ring>(*ring);
  return CloneOf(part);
}

[[noreturn]] void RaiseNoSuch(const char* what, std::int32_t index) {
  Raise(kInvalidCall, std::string("The shape has no ") + what + " " + std::to_string(index) + ".");
}

}  // namespace

std::uint64_t PartedShape::Stamp() const {
  std::uint64_t stamp = changes_;
  for (const auto& part : parts_) stamp += part->ChangeCount();
  return stamp;
}

bool PartedShape::IsKnownSimple() const { return simple_ && simple_stamp_ == Stamp(); }

void PartedShape::MarkSimple() {
  simple_ = true;
  simple_stamp_ = Stamp();
}

void PartedShape::SetParts(std::vector<std::shared_ptr<Path>> parts) {
  // The stamp must rise even if the new parts were changed less often than the old ones.
  changes_ = Stamp() + 1;
  ++part_changes_;
  parts_ = std::move(parts);
}

void PartedShape::CopyPartsTo(PartedShape& target) const {
  std::vector<std::shared_ptr<Path>> copies;
  copies.reserve(parts_.size());
  for (const auto& part : parts_) copies.push_back(CopyOf(*part));
  target.SetParts(std::move(copies));
  target.SetSpatialReference(SpatialReference());
  if (IsKnownSimple()) target.MarkSimple();
}

void PartedShape::AppendPart(std::shared_ptr<Path> part) {
  ++changes_;
  ++part_changes_;
  parts_.push_back(std::move(part));
}

Path& PartedShape::LastPart() {
  if (parts_.empty()) AppendPart(NewPart());
  return *parts_.back();
}

bool PartedShape::IsEmpty() const {
  return std::ranges::all_of(parts_, [](const auto& part) { return part->IsEmpty(); });
}

void PartedShape::SetEmpty() { SetParts({}); }

Envelope PartedShape::Envelope() const {
  tessarine::Envelope box;
  for (const auto& part : parts_) box.Union(part->Envelope());
  return box;
}

bool PartedShape::IsEqual(const Object& other) const {
  const auto* shape = dynamic_cast<const PartedShape*>(&other);
  return shape != nullptr && shape->GeometryType() == GeometryType() &&
         std::ranges::equal(parts_, shape->parts_,
                            [](const auto& first, const auto& second) { return first->IsEqual(*second); });
}

double PartedShape::Length() const {
  double length = 0.0;
  for (const auto& part : parts_) length += part->Length();
  return length;
}

XY PartedShape::FromPoint() const { return Point(0); }

XY PartedShape::ToPoint() const { return Point(std::max(0, PointCount() - 1)); }

void PartedShape::SetFromPoint(XY point) { UpdatePoint(0, point); }

void PartedShape::SetToPoint(XY point) { UpdatePoint(std::max(0, PointCount() - 1), point); }

XY PartedShape::QueryPoint(esriSegmentExtension extension, double distance, bool as_ratio) const {
  if (as_ratio) distance *= Length();
  double passed = 0.0;
  const Path* last = nullptr;
  for (const auto& part : parts_) {
    if (part->IsEmpty()) continue;
    const double length = part->Length();
    if (distance <= passed + length) return part->QueryPoint(extension, distance - passed, false);
    passed += length;
    last = part.get();
  }
  if (last == nullptr) Raise(kInvalidCall, "An empty shape has no points along it.");
  return last->QueryPoint(extension, distance - (passed - last->Length()), false);
}

std::int32_t PartedShape::PointCount() const {
  std::int32_t count = 0;
  for (const auto& part : parts_) count += part->PointCount();
  return count;
}

std::int32_t PartedShape::SegmentCount() const {
  std::int32_t count = 0;
  for (const auto& part : parts_) count += part->SegmentCount();
  return count;
}

template <class Count>
PartedShape::Place PartedShape::FindPlace(std::int32_t index, CachedPlace& cache, const char* what,
                                          Count&& count) const {
  const std::uint64_t stamp = Path::SizeChanges() + part_changes_;
  if (index < cache.first || cache.part >= parts_.size() || cache.stamp != stamp) cache = {0, 0, stamp};
  for (; cache.part < parts_.size(); ++cache.part) {
    const std::int32_t in_part = count(*parts_[cache.part]);
    if (index >= 0 && index < cache.first + in_part) return {cache.part, index - cache.first};
    cache.first += in_part;
  }
  RaiseNoSuch(what, index);
}

PartedShape::Place PartedShape::FindVertex(std::int32_t index) const {
  return FindPlace(index, vertex_place_, "vertex", [](const Path& part) { return part.PointCount(); });
}

PartedShape::Place PartedShape::FindSegment(std::int32_t index) const {
  return FindPlace(index, segment_place_, "segment", [](const Path& part) { return part.SegmentCount(); });
}

XY PartedShape::Point(std::int32_t index) const {
  const Place place = FindVertex(index);
  return parts_[place.part]->Vertices()[static_cast<std::size_t>(place.index)];
}

void PartedShape::AddPoint(XY point) { LastPart().AddPoint(point); }

void PartedShape::UpdatePoint(std::int32_t index, XY point) {
  const Place place = FindVertex(index);
  parts_[place.part]->UpdatePoint(place.index, point);
}

void PartedShape::SetPointCollection(const IPointCollection& other) {
  const std::shared_ptr<Path> part = NewPart();
  part->SetPointCollection(other);
  SetParts({part});
}

std::shared_ptr<IEnumVertex> PartedShape::EnumVertices() {
  return detail::MakeVertexEnumerator(
      {[this] { return GeometryCount(); },
       [this](std::int32_t part) -> IPointCollection& { return *parts_[static_cast<std::size_t>(part)]; }});
}

Segment PartedShape::Segment(std::int32_t index) const {
  const Place place = FindSegment(index);
  return parts_[place.part]->Segment(place.index);
}

bool PartedShape::HasCurves() const {
  return std::ranges::any_of(parts_, [](const auto& part) { return part->HasCurves(); });
}

void PartedShape::AddSegment(const tessarine::Segment& segment) { LastPart().AddSegment(segment); }

void PartedShape::AddSegmentCollection(const ISegmentCollection& other) { LastPart().AddSegmentCollection(other); }

GeometryRef PartedShape::Geometry(std::int32_t index) const {
  if (index < 0 || index >= GeometryCount()) RaiseNoSuch("part", index);
  return parts_[static_cast<std::size_t>(index)];
}

void PartedShape::Move(double dx, double dy) {
  const bool simple = IsKnownSimple();
  for (const auto& part : parts_) part->Move(dx, dy);
  if (simple) MarkSimple();
}

XY PartedShape::CentroidOfLines() const {
  double length = 0.0, x = 0.0, y = 0.0;
  const XY origin = FromPoint();
  for (const auto& part : parts_) {
    for (std::int32_t index = 0; index < part->SegmentCount(); ++index) {
      const tessarine::Segment segment = part->Segment(index);
      const double weight = segment.Length();
      const XY middle = segment.QueryPoint(esriNoExtension, 0.5, true);
      length += weight;
      x += (middle.x - origin.x) * weight;
      y += (middle.y - origin.y) * weight;
    }
  }
  if (length > 0.0) return {origin.x + x / length, origin.y + y / length};
  const std::int32_t count = PointCount();
  for (std::int32_t index = 0; index < count; ++index) {
    const XY vertex = Point(index);
    x += (vertex.x - origin.x) / count;
    y += (vertex.y - origin.y) / count;
  }
  return {origin.x + x, origin.y + y};
}

// --- Polyline ----------------------------------------------------------------------------------------------------

ObjectRef Polyline::Clone() const {
  auto copy = std::make_shared<Polyline>();
  CopyPartsTo(*copy);
  return copy;
}

std::shared_ptr<Path> Polyline::NewPart() const { return std::make_shared<Path>(); }

void Polyline::AddGeometry(const GeometryRef& geometry) {
  auto path = Cast<Path>(geometry);
  if (!path) Raise(kTypeMismatch, "A polyline takes paths only.");
  if (Is<Ring>(geometry)) {
    auto plain = std::make_shared<Path>();
    plain->AddSegmentCollection(*path);
    path = std::move(plain);
  }
  AppendPart(std::move(path));
}

}  // namespace tessarine
