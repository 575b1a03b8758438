// SPDX-License-Identifier: GPL-2.0-or-later
// Clip and ClipDense: what lies inside a rectangle, its edges included.
#include <algorithm>
#include <cmath>

#include "engine/geos_bridge.h"
#include "engine/half_plane.h"

namespace tessarine {
namespace {

using namespace engine;
using PathRef = std::shared_ptr<Path>;

bool Inside(const Envelope& box, XY point) {
  return point.x >= box.XMin() && point.x <= box.XMax() && point.y >= box.YMin() && point.y <= box.YMax();
}

bool Inside(const Envelope& box, const Envelope& inner) {
  return Inside(box, XY{inner.XMin(), inner.YMin()}) && Inside(box, XY{inner.XMax(), inner.YMax()});
}

// The share of a straight segment inside the box, after Liang and Barsky. Ends that lie inside keep their bits, and
// a new end lies exactly on its side of the box.
bool ClipLine(const Envelope& box, XY& from, XY& to) {
  const XY start = from;
  const double dx = to.x - from.x, dy = to.y - from.y;
  double enter = 0.0, leave = 1.0;
  const XY end = to;
  const auto side = [&](double slope, double distance, XY exact, bool vertical) {
    if (slope == 0.0) return distance >= 0.0;
    const double t = distance / slope;
    if (slope < 0.0) {
      if (t > leave) return false;
      if (t > enter) {
        enter = t;
        from = {start.x + dx * t, start.y + dy * t};
        (vertical ? from.x : from.y) = vertical ? exact.x : exact.y;
      }
    } else {
      if (t < enter) return false;
      if (t < leave) {
        leave = t;
        to = {start.x + dx * t, start.y + dy * t};
        (vertical ? to.x : to.y) = vertical ? exact.x : exact.y;
      }
    }
    return true;
  };
  const XY low{box.XMin(), box.YMin()}, high{box.XMax(), box.YMax()};
  return side(-dx, start.x - low.x, low, true) && side(dx, high.x - start.x, high, true) &&
         side(-dy, start.y - low.y, low, false) && side(dy, high.y - start.y, high, false) &&
         (from != to || start == end);
}

// A closed path may begin inside the box, and the piece that leads back there then goes on with the first one.
void JoinAcrossStart(XY start, std::size_t first, std::vector<PathRef>& pieces) {
  if (pieces.size() < first + 2 || pieces[first]->FromPoint() != start || pieces.back()->ToPoint() != start) return;
  std::vector<XY> joined(pieces.back()->Vertices().begin(), pieces.back()->Vertices().end());
  const std::span<const XY> rest = pieces[first]->Vertices();
  joined.insert(joined.end(), rest.begin() + 1, rest.end());
  pieces[first]->SetVertices(std::move(joined));
  pieces.pop_back();
}

void ClipPath(const Envelope& box, const Path& path, std::vector<PathRef>& result) {
  const std::vector<XY> vertices = DensifiedVertices(path);
  const std::size_t first = result.size();
  std::vector<XY> piece;
  const auto finish = [&] {
    if (piece.size() > 1) result.push_back(std::make_shared<Path>(std::move(piece)));
    piece.clear();
  };
  for (std::size_t index = 1; index < vertices.size(); ++index) {
    XY from = vertices[index - 1], to = vertices[index];
    if (!ClipLine(box, from, to)) {
      finish();
      continue;
    }
    if (piece.empty() || piece.back() != from) {
      finish();
      piece.push_back(from);
    }
    piece.push_back(to);
    if (to != vertices[index]) finish();
  }
  finish();
  if (path.IsClosed()) JoinAcrossStart(vertices.front(), first, result);
}

void ClipPolyline(PartedShape& line, const Envelope& box) {
  std::vector<PathRef> result;
  for (const PathRef& part : line.Parts()) {
    const Envelope extent = part->Envelope();
    if (!box.Intersects(extent)) continue;
    if (Inside(box, extent)) {
      result.push_back(part);
    } else {
      ClipPath(box, *part, result);
    }
  }
  line.SetParts(std::move(result));
}

// Overlay rounds the places at which it cuts; on the box they are exact.
void SnapToBox(const Envelope& box, std::vector<PathRef>& rings) {
  const double x_slack = 1e-12 * std::max(std::fabs(box.XMin()), std::fabs(box.XMax()));
  const double y_slack = 1e-12 * std::max(std::fabs(box.YMin()), std::fabs(box.YMax()));
  const auto snapped = [](double value, double low, double high, double slack) {
    if (std::fabs(value - low) <= slack) return low;
    return std::fabs(value - high) <= slack ? high : value;
  };
  for (const PathRef& ring : rings) {
    std::vector<XY> vertices(ring->Vertices().begin(), ring->Vertices().end());
    for (XY& vertex : vertices) {
      vertex = {snapped(vertex.x, box.XMin(), box.XMax(), x_slack), snapped(vertex.y, box.YMin(), box.YMax(), y_slack)};
    }
    ring->SetVertices(std::move(vertices));
  }
}

bool OnOneSide(const Envelope& box, XY from, XY to) {
  return (from.x == to.x && (from.x == box.XMin() || from.x == box.XMax())) ||
         (from.y == to.y && (from.y == box.YMin() || from.y == box.YMax()));
}

// New vertices along the edges that lie on the box.
void DensifyOnBox(const Envelope& box, double spacing, Path& ring) {
  const std::span<const XY> vertices = ring.Vertices();
  std::vector<XY> dense;
  for (std::size_t index = 0; index < vertices.size(); ++index) {
    dense.push_back(vertices[index]);
    if (index + 1 == vertices.size() || !OnOneSide(box, vertices[index], vertices[index + 1])) continue;
    const XY from = vertices[index], to = vertices[index + 1];
    const double length = std::fabs(to.x - from.x) + std::fabs(to.y - from.y);
    const int pieces = static_cast<int>(std::ceil(length / spacing - 1e-9));
    for (int piece = 1; piece < pieces; ++piece) {
      const double share = static_cast<double>(piece) / pieces;
      dense.push_back({from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share});
    }
  }
  if (dense.size() != vertices.size()) ring.SetVertices(std::move(dense));
}

bool Touches(const Envelope& box, const Envelope& extent) {
  return extent.XMin() == box.XMin() || extent.XMax() == box.XMax() || extent.YMin() == box.YMin() ||
         extent.YMax() == box.YMax();
}

std::vector<PathRef> PartsByGeos(const PartedShape& polygon, const Envelope& box) {
  const GeosGeometry own = ToGeos(polygon), rectangle = RectangleToGeos(box);
  std::vector<PathRef> rings = RingsFromGeos(Checked(GEOSIntersection_r(Geos(), own.get(), rectangle.get())).get());
  SnapToBox(box, rings);
  return rings;
}

// Cuts at those sides of the box alone that the simple polygon reaches over.
std::vector<PathRef> PartsInside(const PartedShape& polygon, const Envelope& extent, const Envelope& box) {
  using Kept = HalfPlane::Kept;
  const std::pair<bool, HalfPlane> sides[] = {{extent.XMin() < box.XMin(), {Kept::East, box.XMin()}},
                                              {extent.XMax() > box.XMax(), {Kept::West, box.XMax()}},
                                              {extent.YMin() < box.YMin(), {Kept::North, box.YMin()}},
                                              {extent.YMax() > box.YMax(), {Kept::South, box.YMax()}}};
  LineList rings;
  for (const PathRef& part : polygon.Parts()) {
    if (part->Envelope().Intersects(box)) rings.push_back(DensifiedVertices(*part));
  }
  for (const auto& [reaches_over, half] : sides) {
    if (!reaches_over) continue;
    std::optional<LineList> cut = CutToHalfPlane(rings, half);
    if (!cut) return PartsByGeos(polygon, box);
    rings = std::move(*cut);
  }
  std::vector<PathRef> parts;
  for (std::vector<XY>& ring : rings) parts.push_back(std::make_shared<Ring>(std::move(ring)));
  return parts;
}

// A spacing of 0 adds no vertices. Vertices on the box alone don't undo that a polygon is simple; a cut may.
void ClipPolygon(PartedShape& polygon, const Envelope& box, double spacing) {
  const Envelope extent = polygon.Envelope();
  if (!box.Intersects(extent)) {
    polygon.SetParts({});
    polygon.MarkSimple();
    return;
  }
  polygon.Simplify();
  const bool whole = Inside(box, extent);
  if (!whole) polygon.SetParts(PartsInside(polygon, extent, box));
  if (spacing <= 0.0 || (whole && !Touches(box, extent))) return;
  for (const PathRef& ring : polygon.Parts()) {
    if (!ring->HasCurves()) DensifyOnBox(box, spacing, *ring);
  }
  if (whole) polygon.MarkSimple();
}

}  // namespace

void PartedShape::Clip(const tessarine::Envelope& clipper) {
  if (GeometryType() == esriGeometryPolygon) {
    ClipPolygon(*this, clipper, 0.0);
  } else {
    ClipPolyline(*this, clipper);
  }
}

void PartedShape::ClipDense(const tessarine::Envelope& clipper, double dense_distance) {
  if (GeometryType() == esriGeometryPolygon) {
    ClipPolygon(*this, clipper, dense_distance);
  } else {
    ClipPolyline(*this, clipper);
  }
}

void Multipoint::Clip(const tessarine::Envelope& clipper) {
  std::erase_if(points_, [&](XY point) { return !Inside(clipper, point); });
}

void Multipoint::ClipDense(const tessarine::Envelope& clipper, double) { Clip(clipper); }

}  // namespace tessarine
