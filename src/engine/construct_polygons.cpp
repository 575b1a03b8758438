// SPDX-License-Identifier: GPL-2.0-or-later
// Construction of polygons from the regions between lines.
#include <algorithm>
#include <cmath>
#include <tuple>

#include "engine/geos_bridge.h"
#include "engine/line_cluster.h"
#include "engine/planar_areas.h"
#include "platform/fault.h"
#include "platform/feature_construction.h"
#include "platform/run_stop.h"

namespace tessarine {
namespace {

using namespace engine;

LineList LinesWithin(const Envelope& bounds, IEnumGeometry& geometries) {
  LineList lines;
  geometries.Reset();
  while (const GeometryRef geometry = geometries.Next()) {
    const auto line = Cast<Polyline>(geometry);
    if (!line) Raise(kTypeMismatch, "Polygons are built from polylines only.");
    if (!line->Envelope().Intersects(bounds)) continue;
    for (const auto& part : line->Parts()) {
      if (part->PointCount() > 1) lines.push_back(DensifiedVertices(*part));
    }
  }
  return lines;
}

struct Region {
  std::shared_ptr<Polygon> polygon;
  Envelope box;
  double area;
};

auto OrderOf(const Region& region) {
  return std::tuple(region.box.XMin(), region.box.YMin(), region.box.XMax(), region.box.YMax(), region.area);
}

std::vector<Region> RegionsBetween(const LineList& noded) {
  std::vector<Region> regions;
  for (AreaRings& rings : FacesBetween(noded)) {
    auto polygon = std::make_shared<Polygon>();
    polygon->SetParts(PartsOf({std::move(rings)}));
    polygon->MarkSimple();
    regions.push_back({polygon, polygon->Envelope(), polygon->Area()});
  }
  std::ranges::sort(regions, {}, OrderOf);
  return regions;
}

}  // namespace

void FeatureConstruction::ConstructPolygonsFromGeometries(IFeatureClass& target, const Envelope& processing_bounds,
                                                          IEnumGeometry& lines, double cluster_tolerance) const {
  if (!std::isfinite(cluster_tolerance) || cluster_tolerance < 0.0) {
    Raise(kInvalidCall, "The cluster tolerance must be 0 or a positive number.");
  }
  LineList taken = LinesWithin(processing_bounds, lines);
  if (taken.empty()) return;
  const std::vector<Region> regions = RegionsBetween(NodeLines(std::move(taken), cluster_tolerance));
  if (regions.empty()) return;
  const std::shared_ptr<IFeatureBuffer> buffer = target.CreateFeatureBuffer();
  const std::shared_ptr<IFeatureCursor> cursor = target.Insert(true);
  for (const Region& region : regions) {
    EndIfStopped();
    region.polygon->SetSpatialReference(target.SpatialReference());
    buffer->SetShape(region.polygon);
    cursor->InsertFeature(*buffer);
  }
  cursor->Flush();
  cursor->Close();
}

}  // namespace tessarine
