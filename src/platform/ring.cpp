// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/fault.h"
#include "platform/geometry.h"
#include "platform/vertex_rings.h"

namespace tessarine {
namespace {

Segment FromFirstVertex(const Ring& ring, const Path::CurveAt& curve) {
  const XY origin = ring.FromPoint();
  return curve.segment.Moved(-origin.x, -origin.y);
}

// Counter-clockwise area and its first moments, all about the ring's first vertex.
RingMoments MomentsOf(const Ring& ring) {
  RingMoments sums = tessarine::MomentsOf(ring.Vertices());
  for (const Path::CurveAt& curve : ring.Curves()) {
    const Segment local = FromFirstVertex(ring, curve);
    const XY moment = local.MomentBeyondChord();
    sums.area += local.AreaBeyondChord();
    sums.x += moment.x;
    sums.y += moment.y;
  }
  return sums;
}

constexpr int kPiecesPerCurve = 256;

}  // namespace

void Ring::Close() {
  if (PointCount() > 1 && !IsClosed()) AddPoint(FromPoint());
}

ObjectRef Ring::Clone() const { return std::make_shared<Ring>(*this); }

double Ring::Area() const {
  double area = AreaOf(Vertices());
  for (const CurveAt& curve : Curves()) area += FromFirstVertex(*this, curve).AreaBeyondChord();
  return -area;
}

XY Ring::Centroid() const {
  const RingMoments sums = MomentsOf(*this);
  if (sums.area == 0.0) Raise(kDivisionByZero, "A ring without area has no centre of gravity.");
  const XY origin = FromPoint();
  return {origin.x + sums.x / sums.area, origin.y + sums.y / sums.area};
}

bool Ring::Encloses(XY point) const {
  const std::span<const XY> vertices = Vertices();
  bool inside = tessarine::Encloses(vertices, point);
  // Each curve takes the place of its chord.
  for (const CurveAt& curve : Curves()) {
    XY start = vertices[curve.index];
    if (RayMeets(start, vertices[curve.index + 1 < vertices.size() ? curve.index + 1 : 0], point)) inside = !inside;
    for (int piece = 1; piece <= kPiecesPerCurve; ++piece) {
      const XY end = curve.segment.QueryPoint(esriNoExtension, static_cast<double>(piece) / kPiecesPerCurve, true);
      if (RayMeets(start, end, point)) inside = !inside;
      start = end;
    }
  }
  return inside;
}

}  // namespace tessarine
