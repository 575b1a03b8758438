// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>
#include <atomic>

#include "platform/fault.h"
#include "platform/geometry.h"
#include "platform/vertex_enumerator.h"
#include "platform/vertex_rings.h"

namespace tessarine {
namespace {

// Each thread counts from a number of its own, so that what one remembers of a shape is never taken for what another
// would.
std::uint64_t FirstOfThread() {
  static std::atomic<std::uint64_t> next = 0;
  return next.fetch_add(std::uint64_t{1} << 40U, std::memory_order_relaxed);
}

thread_local std::uint64_t size_changes = FirstOfThread();

std::size_t Checked(std::int32_t index, std::int32_t count, const char* what) {
  if (index < 0 || index >= count) {
    Raise(kInvalidCall, std::string("The path has no ") + what + " " + std::to_string(index) + "; it has " +
                            std::to_string(count) + ".");
  }
  return static_cast<std::size_t>(index);
}

Segment Joined(const Segment& shape, XY from, XY to) {
  return shape.FromPoint() == from && shape.ToPoint() == to ? shape : shape.WithEnds(from, to);
}

}  // namespace

std::span<const Path::CurveAt> Path::Curves() const {
  if (curves_lag_) {
    for (CurveAt& curve : curves_) {
      curve.segment = Joined(curve.segment, vertices_[curve.index], vertices_[curve.index + 1]);
    }
    curves_lag_ = false;
  }
  return curves_;
}

std::uint64_t Path::SizeChanges() { return size_changes; }

void Path::NoteSizeChange() {
  ++changes_;
  ++size_changes;
}

void Path::SetVertices(std::vector<XY> vertices) { SetVertices(std::move(vertices), {}); }

void Path::SetVertices(std::vector<XY> vertices, std::vector<CurveAt> curves) {
  vertices_ = std::move(vertices);
  curves_ = std::move(curves);
  curves_lag_ = false;
  NoteSizeChange();
}

void Path::ReverseOrientation() {
  std::vector<CurveAt> reversed;
  for (const CurveAt& curve : Curves()) {
    reversed.push_back({vertices_.size() - 2 - curve.index, curve.segment.Reversed()});
  }
  std::ranges::reverse(reversed);
  std::ranges::reverse(vertices_);
  curves_ = std::move(reversed);
  ++changes_;
}

void Path::SetEmpty() { SetVertices({}); }

Envelope Path::Envelope() const {
  tessarine::Envelope box = ExtentOf(vertices_);
  for (const CurveAt& curve : Curves()) box.Union(curve.segment.Envelope());
  return box;
}

ObjectRef Path::Clone() const { return std::make_shared<Path>(*this); }

bool Path::IsEqual(const Object& other) const {
  const auto* path = dynamic_cast<const Path*>(&other);
  return path != nullptr && path->GeometryType() == GeometryType() && path->vertices_ == vertices_ &&
         std::ranges::equal(path->Curves(), Curves());
}

double Path::Length() const {
  double length = 0.0;
  for (std::int32_t index = 0; index < SegmentCount(); ++index) length += Segment(index).Length();
  return length;
}

XY Path::FromPoint() const { return vertices_[Checked(0, PointCount(), "vertex")]; }

XY Path::ToPoint() const { return vertices_[Checked(std::max(0, PointCount() - 1), PointCount(), "vertex")]; }

void Path::SetFromPoint(XY point) { UpdatePoint(0, point); }

void Path::SetToPoint(XY point) { UpdatePoint(std::max(0, PointCount() - 1), point); }

XY Path::QueryPoint(esriSegmentExtension extension, double distance, bool as_ratio) const {
  if (as_ratio) distance *= Length();
  const std::int32_t count = SegmentCount();
  if (count == 0) return FromPoint();
  double passed = 0.0;
  for (std::int32_t index = 0; index < count; ++index) {
    const tessarine::Segment segment = Segment(index);
    const double length = segment.Length();
    if (distance <= passed + length || index == count - 1) {
      return segment.QueryPoint(extension, distance - passed, false);
    }
    passed += length;
  }
  return ToPoint();
}

XY Path::Point(std::int32_t index) const { return vertices_[Checked(index, PointCount(), "vertex")]; }

void Path::AddPoint(XY point) {
  vertices_.push_back(point);
  NoteSizeChange();
}

void Path::UpdatePoint(std::int32_t index, XY point) {
  vertices_[Checked(index, PointCount(), "vertex")] = point;
  curves_lag_ = !curves_.empty();
  ++changes_;
}

void Path::SetPointCollection(const IPointCollection& other) {
  std::vector<XY> vertices;
  vertices.reserve(static_cast<std::size_t>(other.PointCount()));
  for (std::int32_t index = 0; index < other.PointCount(); ++index) vertices.push_back(other.Point(index));
  SetVertices(std::move(vertices));
}

std::shared_ptr<IEnumVertex> Path::EnumVertices() {
  return detail::MakeVertexEnumerator({[] { return 1; }, [this](std::int32_t) -> IPointCollection& { return *this; }});
}

std::int32_t Path::SegmentCount() const { return std::max(0, PointCount() - 1); }

Segment Path::Segment(std::int32_t index) const {
  const std::size_t at = Checked(index, SegmentCount(), "segment");
  if (!curves_.empty()) {
    const auto curve = std::ranges::lower_bound(curves_, at, {}, &CurveAt::index);
    if (curve != curves_.end() && curve->index == at) {
      return Joined(curve->segment, vertices_[at], vertices_[at + 1]);
    }
  }
  return Line{vertices_[at], vertices_[at + 1]};
}

void Path::AddSegment(const tessarine::Segment& segment) {
  if (vertices_.empty()) {
    vertices_.push_back(segment.FromPoint());
  } else if (vertices_.back() != segment.FromPoint()) {
    vertices_.back() = segment.FromPoint();
    curves_lag_ = !curves_.empty();
  }
  if (segment.IsCurve()) curves_.push_back({vertices_.size() - 1, segment});
  vertices_.push_back(segment.ToPoint());
  NoteSizeChange();
}

void Path::AddSegmentCollection(const ISegmentCollection& other) {
  const auto* path = dynamic_cast<const Path*>(&other);
  if (path != nullptr && path != this && !path->HasCurves() && path->SegmentCount() > 0) {
    if (!vertices_.empty()) vertices_.pop_back();
    vertices_.insert(vertices_.end(), path->vertices_.begin(), path->vertices_.end());
    curves_lag_ = !curves_.empty();
    NoteSizeChange();
    return;
  }
  const std::int32_t count = other.SegmentCount();
  for (std::int32_t index = 0; index < count; ++index) AddSegment(other.Segment(index));
}

void Path::Move(double dx, double dy) {
  for (XY& vertex : vertices_) vertex = {vertex.x + dx, vertex.y + dy};
  curves_lag_ = !curves_.empty();
  ++changes_;
}

}  // namespace tessarine
