// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/fault.h"
#include "platform/geometry.h"

namespace tessarine {
namespace {

// Counter-clockwise area and its first moments, all about the ring's first vertex.
struct RingMoments {
  double area = 0.0, x = 0.0, y = 0.0;
};

RingMoments MomentsOf(const Ring& ring) {
  RingMoments sums;
  const std::span<const XY> vertices = ring.Vertices();
  if (vertices.empty()) return sums;
  const XY origin = vertices.front();
  for (std::size_t index = 0; index < vertices.size(); ++index) {
    const XY from = vertices[index];
    const XY to = vertices[index + 1 < vertices.size() ? index + 1 : 0];
    const double x1 = from.x - origin.x, y1 = from.y - origin.y;
    const double x2 = to.x - origin.x, y2 = to.y - origin.y;
    const double cross = x1 * y2 - x2 * y1;
    sums.area += cross / 2.0;
    sums.x += (x1 + x2) * cross / 6.0;
    sums.y += (y1 + y2) * cross / 6.0;
  }
  for (const Path::CurveAt& curve : ring.Curves()) {
    const Segment local = curve.segment.Moved(-origin.x, -origin.y);
    const XY moment = local.MomentBeyondChord();
    sums.area += local.AreaBeyondChord();
    sums.x += moment.x;
    sums.y += moment.y;
  }
  return sums;
}

// How many times the ray to the right of the point meets the piece, modulo 2.
bool Crosses(XY from, XY to, XY point) {
  return (from.y > point.y) != (to.y > point.y) &&
         point.x < (to.x - from.x) * (point.y - from.y) / (to.y - from.y) + from.x;
}

constexpr int kPiecesPerCurve = 256;

}  // namespace

void Ring::Close() {
  if (PointCount() > 1 && !IsClosed()) AddPoint(FromPoint());
}

ObjectRef Ring::Clone() const { return std::make_shared<Ring>(*this); }

double Ring::Area() const { return -MomentsOf(*this).area; }

XY Ring::Centroid() const {
  const RingMoments sums = MomentsOf(*this);
  if (sums.area == 0.0) Raise(kDivisionByZero, "A ring without area has no centre of gravity.");
  const XY origin = FromPoint();
  return {origin.x + sums.x / sums.area, origin.y + sums.y / sums.area};
}

bool Ring::Encloses(XY point) const {
  bool inside = false;
  const std::span<const XY> vertices = Vertices();
  auto curve = Curves().begin();
  const auto last_curve = Curves().end();
  for (std::size_t index = 0; index < vertices.size(); ++index) {
    const XY from = vertices[index];
    const XY to = vertices[index + 1 < vertices.size() ? index + 1 : 0];
    if (curve == last_curve || curve->index != index) {
      if (Crosses(from, to, point)) inside = !inside;
      continue;
    }
    XY start = from;
    for (int piece = 1; piece <= kPiecesPerCurve; ++piece) {
      const XY end = curve->segment.QueryPoint(esriNoExtension, static_cast<double>(piece) / kPiecesPerCurve, true);
      if (Crosses(start, end, point)) inside = !inside;
      start = end;
    }
    ++curve;
  }
  return inside;
}

}  // namespace tessarine
