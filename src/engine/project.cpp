// SPDX-License-Identifier: GPL-2.0-or-later
// Project and SnapToSpatialReference.
#include <ogr_spatialref.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <numbers>
#include <optional>

#include "engine/coordinate_grid.h"
#include "engine/engine_fault.h"
#include "engine/geos_bridge.h"
#include "engine/projecting.h"
#include "engine/srs_from_gdal.h"
#include "platform/exact_class.h"
#include "platform/run_stop.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using namespace engine;

struct TransformationRelease {
  void operator()(OGRCoordinateTransformation* transformation) const {
    OGRCoordinateTransformation::DestroyCT(transformation);
  }
};
using Transformation = std::unique_ptr<OGRCoordinateTransformation, TransformationRelease>;

// One transformation per pair of references and thread; a run uses one or two pairs.
OGRCoordinateTransformation& TransformationBetween(const SpatialReference& from, const SpatialReference& to) {
  thread_local std::map<std::pair<std::string, std::string>, Transformation> cache;
  const auto key = std::make_pair(from.Wkt(), to.Wkt());
  if (const auto found = cache.find(key); found != cache.end()) return *found->second;
  const GdalErrorScope errors;
  const OgrReference source = OgrFromReference(from), target = OgrFromReference(to);
  Transformation made(OGRCreateCoordinateTransformation(source.get(), target.get()));
  if (!made) {
    RaiseEngineFault("There is no way from the reference '" + from.Name() + "' to '" + to.Name() + "'" +
                     errors.Quote() + ".");
  }
  return *cache.emplace(key, std::move(made)).first->second;
}

bool Transform(OGRCoordinateTransformation& transformation, XY& position) {
  int ok = 0;
  transformation.Transform(1, &position.x, &position.y, nullptr, &ok);
  return ok != 0 && std::isfinite(position.x) && std::isfinite(position.y);
}

// A vertex on the edge of a map of the world may lie beyond it by the rounding of its projection. Within the tolerance
// of the reference it is the same place as one that lies inside.
std::optional<XY> TransformedNearby(XY vertex, OGRCoordinateTransformation& transformation, double tolerance) {
  constexpr std::array kShares = {1e-6, 1e-3, 1.0};
  constexpr std::array<XY, 8> kDirections = {{{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {-1, 1}, {1, -1}, {1, 1}}};
  for (const double share : kShares) {
    for (const XY direction : kDirections) {
      XY near{vertex.x + direction.x * share * tolerance, vertex.y + direction.y * share * tolerance};
      if (Transform(transformation, near)) return near;
    }
  }
  return std::nullopt;
}

// A pole in grads or off the edge of a map may come out a rounding beyond 90 degrees.
XY WithinPoles(XY position, double pole) {
  constexpr double kRounding = 1e-11;
  const bool beyond = std::fabs(position.y) > pole && std::fabs(position.y) <= pole * (1.0 + kRounding);
  return {position.x, beyond ? std::copysign(pole, position.y) : position.y};
}

double PoleOf(const SpatialReference& reference) {
  const auto* geographic = dynamic_cast<const GeographicCoordinateSystem*>(&reference);
  return geographic != nullptr ? std::numbers::pi / 2.0 / geographic->CoordinateUnit().ConversionFactor
                               : std::numeric_limits<double>::infinity();
}

// Where places next to each other come out far apart, a projection has none for them: the poles of a Mercator
// projection lie at infinity, and come out far away only by the rounding of their latitude.
class Infinity {
 public:
  Infinity(const SpatialReference& source, const SpatialReference& target) : step_(source.XYTolerance()) {
    const auto* projected = dynamic_cast<const ProjectedCoordinateSystem*>(&target);
    if (projected == nullptr || projected->GeographicCoordinateSystem() == nullptr) return;
    radius_ = projected->GeographicCoordinateSystem()->Datum()->Spheroid()->SemiMajorAxis() /
              projected->CoordinateUnit().ConversionFactor;
  }
  [[nodiscard]] bool Holds(XY before, XY after, OGRCoordinateTransformation& way) const {
    constexpr double kFar = 20.0, kApart = 0.1;  // in radii of the body
    if (radius_ == 0.0 || std::hypot(after.x, after.y) < kFar * radius_) return false;
    constexpr std::array<XY, 4> kDirections = {{{-1, 0}, {1, 0}, {0, -1}, {0, 1}}};
    return std::ranges::any_of(kDirections, [&](XY direction) {
      XY next{before.x + direction.x * step_, before.y + direction.y * step_};
      return Transform(way, next) && std::hypot(next.x - after.x, next.y - after.y) > kApart * radius_;
    });
  }

 private:
  double step_, radius_ = 0.0;  // of the body in units of the target; 0 where it has none
};

}  // namespace

std::vector<XY> engine::ProjectedVertices(std::span<const XY> vertices, OGRCoordinateTransformation& transformation,
                                          const SpatialReference& source, const SpatialReference& target) {
  std::vector<double> x, y;
  x.reserve(vertices.size());
  y.reserve(vertices.size());
  for (const XY vertex : vertices) {
    x.push_back(vertex.x);
    y.push_back(vertex.y);
  }
  std::vector<int> ok(vertices.size(), 0);
  const double pole = PoleOf(target);
  const Infinity infinity(source, target);
  const GdalErrorScope quiet;
  // In stretches, so that a stop is seen.
  constexpr std::size_t kAtOnce = 1U << 16;
  for (std::size_t first = 0; first < vertices.size(); first += kAtOnce) {
    if (first > 0) EndIfStopped();
    const std::size_t count = std::min(kAtOnce, vertices.size() - first);
    transformation.Transform(static_cast<int>(count), x.data() + first, y.data() + first, nullptr, ok.data() + first);
  }
  std::vector<XY> result(vertices.size());
  for (std::size_t index = 0; index < vertices.size(); ++index) {
    result[index] = WithinPoles({x[index], y[index]}, pole);
    const bool there = ok[index] != 0 && std::isfinite(x[index]) && std::isfinite(y[index]);
    const bool infinite = there && infinity.Holds(vertices[index], result[index], transformation);
    if (there && !infinite) continue;
    const std::optional<XY> nearby =
        infinite ? std::nullopt : TransformedNearby(vertices[index], transformation, source.XYTolerance());
    if (!nearby) {
      RaiseEngineFault("The coordinates (" + NumberText(vertices[index].x) + ", " + NumberText(vertices[index].y) +
                       ") can't be projected to '" + target.Name() + "'.");
    }
    result[index] = WithinPoles(*nearby, pole);
  }
  return result;
}

namespace {

// Replaces every vertex by what `change` makes of its part's vertices.
template <class Change>
void ChangeVertices(IGeometry& geometry, Change&& change) {
  if (auto* point = dynamic_cast<Point*>(&geometry)) {
    const XY old = point->Coordinates();
    const std::vector<XY> changed = change(std::span<const XY>(&old, 1));
    point->PutCoords(changed.front().x, changed.front().y);
  } else if (auto* points = dynamic_cast<Multipoint*>(&geometry)) {
    points->SetVertices(change(points->Vertices()));
  } else if (auto* path = dynamic_cast<Path*>(&geometry)) {
    path->SetVertices(change(DensifiedVertices(*path)));
  } else if (auto* shape = dynamic_cast<PartedShape*>(&geometry)) {
    for (const auto& part : shape->Parts()) part->SetVertices(change(DensifiedVertices(*part)));
  } else if (auto* bag = dynamic_cast<GeometryBag*>(&geometry)) {
    for (std::int32_t index = 0; index < bag->GeometryCount(); ++index) ChangeVertices(*bag->Geometry(index), change);
  }
}

// A part that lies on the grid stays as it is. Curves follow their ends.
void SnapParts(PartedShape& shape, const CoordinateGrid& grid) {
  for (const auto& part : shape.Parts()) {
    std::vector<XY> snapped = grid.Nearest(part->Vertices());
    if (std::ranges::equal(snapped, part->Vertices())) continue;
    if (!part->HasCurves()) {
      part->SetVertices(std::move(snapped));
      continue;
    }
    for (std::size_t index = 0; index < snapped.size(); ++index) {
      if (snapped[index] != part->Vertices()[index])
        part->UpdatePoint(static_cast<std::int32_t>(index), snapped[index]);
    }
  }
}

}  // namespace

void engine::ProjectShape(IGeometry& shape, OGRCoordinateTransformation& transformation, const SpatialReference& source,
                          const SpatialReferenceRef& target) {
  ChangeVertices(shape, [&](std::span<const XY> vertices) {
    return ProjectedVertices(vertices, transformation, source, *target);
  });
  shape.SetSpatialReference(target);
}

void IGeometry::Project(const SpatialReferenceRef& reference) {
  const bool known = spatial_reference_ && reference && !spatial_reference_->Wkt().empty() && !reference->Wkt().empty();
  if (known && !IsEmpty() && !spatial_reference_->IsEqual(*reference)) {
    OGRCoordinateTransformation& transformation = TransformationBetween(*spatial_reference_, *reference);
    ProjectShape(*this, transformation, *spatial_reference_, reference);
    return;
  }
  spatial_reference_ = reference;
}

void IGeometry::SnapToSpatialReference() {
  if (!spatial_reference_ || !spatial_reference_->XYToleranceValid() || IsEmpty()) return;
  const CoordinateGrid grid(spatial_reference_);
  if (PartedShape* shape = PartedShapeOf(*this)) {
    SnapParts(*shape, grid);
    return;
  }
  ChangeVertices(*this, [&](std::span<const XY> vertices) { return grid.Nearest(vertices); });
}

}  // namespace tessarine
