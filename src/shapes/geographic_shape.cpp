// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/geographic_shape.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "platform/fault.h"
#include "shapes/odd_shapes.h"
#include "shapes/spikes.h"
#include "shapes/torn_rings.h"

namespace tessarine::MyGeometricOperations {

std::shared_ptr<const GeographicCoordinateSystem> DegreesOf(const SpatialReferenceRef& reference) {
  const auto geographic = GeographicOf(reference);
  return geographic && geographic->InDegrees() ? geographic->InDegrees() : geographic;
}

namespace {

void MakeSimple(Polygon& polygon) {
  if (!MarkSimpleButForSpikes(polygon)) polygon.Simplify();
}

bool HaveTheSameVertices(const Polygon& a, const Polygon& b) {
  return std::ranges::equal(a.Parts(), b.Parts(), [](const auto& first, const auto& second) {
    return std::ranges::equal(first->Vertices(), second->Vertices());
  });
}

// Whether a side runs across the map between two places that are near each other on the globe, as that of a ring over
// the edge of the map does. Such a side is about as long as the map is wide, and so is its ring.
bool RunsAcross(const Polygon& map) {
  constexpr double kTurn = 360.0, kQuarter = 90.0;
  const auto apart = [](XY a, XY b) { return std::fabs(std::remainder(a.x - b.x, kTurn)); };
  for (std::size_t place = 0; place < map.Parts().size(); ++place) {
    const std::span<const XY> on_map = map.Parts()[place]->Vertices();
    const double wide = map.Parts()[place]->Envelope().Width() / 2.0;
    for (std::size_t index = 1; index < on_map.size(); ++index) {
      const XY from = on_map[index - 1], to = on_map[index];
      if (std::fabs(to.x - from.x) < wide) continue;
      try {
        const XY begin = ToDegrees(from, map.SpatialReference()), end = ToDegrees(to, map.SpatialReference());
        const XY middle = ToDegrees({(from.x + to.x) / 2.0, (from.y + to.y) / 2.0}, map.SpatialReference());
        if (apart(begin, end) < kQuarter && apart(begin, middle) > kQuarter) return true;
      } catch (const Fault&) {
        return true;  // the map ends between the two
      }
    }
  }
  return false;
}

// A polygon on its way. Where it crosses itself on the plane of degrees, has no curves and doesn't jump over the edge
// of its map, the map decides what crosses and what encloses what.
class PolygonOnTheWay {
 public:
  PolygonOnTheWay(Polygon& polygon, SpatialReferenceRef degrees)
      : polygon_(polygon), degrees_(std::move(degrees)), map_(CloneOf(polygon)) {}

  ShapeInDegrees Go() {
    Project();
    // Which pole a ring holds depends on its lobes, if it crosses itself.
    if (mended_.pole_by_sense && HasLobes(*map_) && MapDecides()) TakeSimpleMap();
    if (MarkSimpleButForSpikes(polygon_)) return Made();
    if (!MapDecides()) {
      polygon_.Simplify();
      return Made();
    }
    TakeSimpleMap();
    // A ring that was led over a pole has another shape than on its map.
    if (!mended_.seams.empty() || polygon_.Parts().size() != map_->Parts().size()) {
      MakeSimple(polygon_);
      return Made();
    }
    if (!map_->IsEmpty() && IsMirrored(*map_)) {
      for (const auto& ring : polygon_.Parts()) ring->ReverseOrientation();
    }
    polygon_.MarkSimple();
    return {false, {}, RolesOf(*map_)};
  }

 private:
  [[nodiscard]] bool MapDecides() const { return !map_->HasCurves() && !mended_.torn_on_map && !RunsAcross(*map_); }
  [[nodiscard]] ShapeInDegrees Made() { return {mended_.torn_on_map, std::move(mended_.seams), {}}; }

  void TakeSimpleMap() {
    const std::shared_ptr<Polygon> raw = CloneOf(*map_);
    MakeSimple(*map_);
    if (HaveTheSameVertices(*map_, *raw)) return;
    const std::shared_ptr<Polygon> again = CloneOf(*map_);
    polygon_.SetParts({again->Parts().begin(), again->Parts().end()});
    polygon_.SetSpatialReference(map_->SpatialReference());
    Project();
  }
  void Project() {
    polygon_.Project(degrees_);
    mended_ = MendTornRings(polygon_, *map_);
  }

  Polygon& polygon_;
  SpatialReferenceRef degrees_;
  std::shared_ptr<Polygon> map_;
  MendedRings mended_;
};

}  // namespace

ShapeInDegrees BringToDegrees(IGeometry& shape) {
  const SpatialReferenceRef own = shape.SpatialReference();
  const SpatialReferenceRef degrees = Require(DegreesOf(own), "IGeographicCoordinateSystem");
  if (own == degrees) return {};
  auto* polygon = dynamic_cast<Polygon*>(&shape);
  if (polygon == nullptr || !Is<const ProjectedCoordinateSystem>(own)) {
    shape.Project(degrees);
    return {};
  }
  return PolygonOnTheWay(*polygon, degrees).Go();
}

XY ToDegrees(XY position, const SpatialReferenceRef& layer) {
  Point point(position);
  point.SetSpatialReference(layer);
  BringToDegrees(point);
  return point.Coordinates();
}

XY FromDegrees(XY position, const SpatialReferenceRef& layer) {
  const SpatialReferenceRef degrees = Require(DegreesOf(layer), "IGeographicCoordinateSystem");
  if (degrees == layer) return position;
  Point point(position);
  point.SetSpatialReference(degrees);
  point.Project(layer);
  return point.Coordinates();
}

}  // namespace tessarine::MyGeometricOperations
