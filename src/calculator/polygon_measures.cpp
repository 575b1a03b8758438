// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/polygon_measures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>

#include "calculator/measure_coordinates.h"
#include "platform/exact_geodesy.h"
#include "shapes/MyGeometricOperations.h"
#include "shapes/odd_shapes.h"

namespace tessarine {

namespace shapes = MyGeometricOperations;
using namespace measure_coordinates;

namespace {

constexpr double kHalfTurn = 180.0;
// Beyond this flattening the sphere of equal volume is more than a few percent off.
constexpr double kStrongFlattening = 1.0 / 50.0;

// Without it there is nothing to measure on the globe.
bool HasArea(const Polygon& polygon) {
  return std::ranges::any_of(polygon.Parts(), [](const auto& part) { return Cast<Ring>(part)->Area() != 0.0; });
}

// The lobes of a ring may cancel each other out on the plane and still have a line round each.
bool BoundsNothing(const Polygon& polygon) {
  if (HasArea(polygon)) return false;
  const auto simple = CloneOf(polygon);
  simple->Simplify();
  return simple->IsEmpty();
}

// At a pole all longitudes are one place.
bool HasTornRing(const Polygon& polygon) {
  return std::ranges::any_of(polygon.Parts(), [](const auto& part) {
    const std::span<const XY> vertices = part->Vertices();
    for (std::size_t index = 1; index < vertices.size(); ++index) {
      const XY from = vertices[index - 1], to = vertices[index];
      if (std::fabs(to.x - from.x) > kHalfTurn && !geodesy::IsAtPole(from) && !geodesy::IsAtPole(to)) return true;
    }
    return false;
  });
}

// The polygon with rings that jump over the edge of the longitudes carried on. Torn, a ring may run the other way and
// its hole may lie outside of it, and a driver takes them for what they seem: once they are whole, what encloses what
// tells exterior rings from holes.
std::shared_ptr<Polygon> Whole(const Polygon& polygon) {
  std::vector<std::vector<XY>> rings;
  for (const auto& part : polygon.Parts()) rings.emplace_back(part->Vertices().begin(), part->Vertices().end());
  rings = geodesy::ContinuedRings(std::move(rings), geodesy::EnclosedPole::SmallerPart);
  const bool changed = !std::ranges::equal(rings, polygon.Parts(), [](const auto& ring, const auto& part) {
    return std::ranges::equal(ring, part->Vertices());
  });
  std::vector<std::shared_ptr<Path>> parts;
  for (auto& ring : rings) parts.push_back(std::make_shared<Ring>(std::move(ring)));
  auto whole = std::make_shared<Polygon>();
  whole->SetParts(std::move(parts));
  whole->SetSpatialReference(polygon.SpatialReference());
  if (changed) whole->Simplify();
  return whole;
}

}  // namespace

PolygonRecord::PolygonRecord(std::shared_ptr<Polygon> shape, MeasureSettings& settings)
    : MeasureRecord(settings), shape_(std::move(shape)) {
  if (settings.kind == SpatialKind::Geographic) geographic_ = PlanetographicShape(shape_, settings_, work_);
}

double PolygonRecord::Area() {
  WarnOfPlanarLobes();
  return shape_->Area();
}

XY PolygonRecord::Centroid() {
  WarnOfPlanarLobes();
  return shape_->Area() != 0.0 ? shape_->Centroid() : shape_->CentroidOfLines();
}

double PolygonRecord::Perimeter() const { return shape_->Length(); }

double PolygonRecord::SphericalArea() {
  MeasureArea();
  if (std::fabs(settings_.semi_major - settings_.semi_minor) > kStrongFlattening * settings_.semi_major) {
    Warn(MeasureWarning::FlattenedSphere);
  }
  return spherical_area_;
}

double PolygonRecord::SpheroidalPerimeter() {
  LookForPole();
  WarnOfSeries();
  RememberSimplicity();
  const shapes::ConvergenceWatch watch;
  const std::shared_ptr<Polygon>& polygon = GeographicPolygon();
  const double length = PerimeterOf(polygon) - LengthOfSeams();
  if (!watch.AllConverged()) Warn(MeasureWarning::NotConverged);
  return length;
}

double PolygonRecord::PerimeterOf(const std::shared_ptr<Polygon>& polygon) {
  if (settings_.kind == SpatialKind::Geographic && HasTornRing(*polygon)) {
    Warn(MeasureWarning::TornRing);
    return LengthOfRings(*polygon);
  }
  // A single simple ring becomes the only path of the polyline as it stands.
  if (polygon->GeometryCount() == 1 && !polygon->HasCurves() && polygon->IsSimple()) return LengthOfRings(*polygon);
  if (shapes::PlaneMisleads(*polygon, roles_)) return LengthOfRings(*polygon);
  if (BoundsNothing(*polygon)) return 0.0;
  const std::shared_ptr<Polygon> rings = CloneOf(*polygon);
  if (!shapes::MarkSimpleButForSpikes(*rings) && shapes::HasLobes(*rings)) Warn(MeasureWarning::OneLobe);
  return shapes::SpheroidalPolylineLength2(shapes::PolygonToPolyline(rings), settings_.semi_major,
                                           settings_.semi_minor);
}

// As they stand: on the plane a torn ring bounds something else.
double PolygonRecord::LengthOfRings(const Polygon& polygon) const {
  double length = 0.0;
  for (const auto& ring : polygon.Parts()) {
    length += shapes::SpheroidalPolylineLength2(ring->Vertices(), settings_.semi_major, settings_.semi_minor);
  }
  return length;
}

// A seam is run there and back.
double PolygonRecord::LengthOfSeams() const {
  double length = 0.0;
  for (const geodesy::Seam& seam : seams_) {
    length += shapes::SpheroidalPolylineLength2(std::array{seam.from, seam.to, seam.from}, settings_.semi_major,
                                                settings_.semi_minor);
  }
  return length;
}

double PolygonRecord::SpheroidalArea() {
  const Polygon& polygon = *GeographicPolygon();
  if (!roles_.empty()) return AreaByRoles(polygon);
  if (settings_.kind == SpatialKind::Geographic && HasTornRing(polygon)) Warn(MeasureWarning::TornRing);
  // What comes out of a projection is whole already.
  const std::shared_ptr<Polygon> whole = settings_.kind == SpatialKind::Geographic ? Whole(polygon) : CloneOf(polygon);
  // Each exterior ring with its holes by itself: parts that overlap count twice, as they do on the sphere.
  const std::shared_ptr<GeometryBag> components = whole->ConnectedComponentBag();
  double area = 0.0;
  for (std::int32_t index = 0; index < components->GeometryCount(); ++index) {
    const auto component = Cast<Polygon>(components->Geometry(index));
    component->Simplify();
    for (const auto& ring : component->Parts()) {
      area += AreaOfRing(*ring, dynamic_cast<const Ring&>(*ring).IsExterior());
    }
  }
  return area;
}

double PolygonRecord::AreaByRoles(const Polygon& polygon) const {
  double area = 0.0;
  for (std::size_t index = 0; index < roles_.size(); ++index) {
    area += AreaOfRing(*polygon.Parts()[index], roles_[index] == shapes::RingRole::Exterior);
  }
  return area;
}

// Below 0 for a hole. The sides of a narrow ring may pass each other on the globe: what it encloses is the same, only
// its sense isn't.
double PolygonRecord::AreaOfRing(const Path& ring, bool is_exterior) const {
  const double enclosed = std::fabs(ExactRingArea(ring.Vertices(), settings_.semi_major, settings_.semi_minor));
  return is_exterior ? enclosed : -enclosed;
}

XY PolygonRecord::ProjectedSphericalCentroid() {
  MeasureArea();
  if (!HasCentroid()) Warn(MeasureWarning::NoCentroid);
  return HasCentroid() ? InProjectionOfLayer(centroid_, settings_) : centroid_;
}

XY PolygonRecord::SphericalCentroid() {
  MeasureArea();
  if (!HasCentroid()) Warn(MeasureWarning::NoCentroid);
  return HasCentroid() ? InLatitudesOfData(centroid_, settings_) : centroid_;
}

const std::shared_ptr<Polygon>& PolygonRecord::GeographicPolygon() {
  if (geographic_) return geographic_;
  BroughtToDegrees<Polygon> degrees = GeographicCopy(*shape_, work_);
  if (degrees.way.jumps_over_edge) Warn(MeasureWarning::TornRing);
  seams_ = std::move(degrees.way.seams);
  roles_ = std::move(degrees.way.roles);
  geographic_ = degrees.shape;
  WarnFarFromArea(*geographic_);
  return geographic_;
}

void PolygonRecord::LookForPole() {
  if (!looked_for_pole_) WarnBeyondPole(*GeographicPolygon());
  looked_for_pole_ = true;
}

// Several measures ask whether the polygon is simple, each of a copy. A single ring that is stays as it is.
void PolygonRecord::RememberSimplicity() {
  Polygon& polygon = *GeographicPolygon();
  if (!looked_whether_simple_ && polygon.GeometryCount() == 1 && polygon.IsSimple()) polygon.MarkSimple();
  looked_whether_simple_ = true;
}

// Once: area and centroid come together.
void PolygonRecord::MeasureArea() {
  if (!area_is_measured_) FindAreaAndCentroid();
  area_is_measured_ = true;
}

// On a copy, because the routine snaps what it measures to the grid of its reference.
void PolygonRecord::FindAreaAndCentroid() {
  RememberSimplicity();
  const std::shared_ptr<Polygon> polygon = CloneOf(*GeographicPolygon());
  LookForPole();
  const bool lobes = shapes::HasLobes(*polygon), wide = shapes::HasWideRing(*polygon);
  if (lobes) Warn(MeasureWarning::SignedLobes);
  if (wide) Warn(MeasureWarning::WideRing);
  if (shapes::PlaneMisleads(*polygon, roles_)) {
    const shapes::AreaOnSphere found =
        shapes::SphericalAreaOfRings(*polygon, settings_.semi_major, settings_.semi_minor);
    spherical_area_ = found.area;
    centroid_ = found.centroid;
    ++work_.area_passes;
    return;
  }
  if (!HasArea(*polygon)) {
    spherical_area_ = 0.0;
    return;
  }
  ++work_.area_passes;
  spherical_area_ = shapes::SphericalPolygonArea2(polygon, true, centroid_.x, centroid_.y, settings_.semi_major,
                                                  settings_.semi_minor);
  if (spherical_area_ <= 0.0 && !lobes && !wide) Warn(MeasureWarning::TurnedRing);
}

void PolygonRecord::WarnOfPlanarLobes() {
  if (!looked_for_lobes_ && shapes::HasLobes(*shape_)) Warn(MeasureWarning::PlanarLobes);
  looked_for_lobes_ = true;
}

bool PolygonRecord::HasCentroid() const { return centroid_ != XY{kNullMark, kNullMark}; }

}  // namespace tessarine
