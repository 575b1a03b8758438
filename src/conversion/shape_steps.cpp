// SPDX-License-Identifier: GPL-2.0-or-later
// Polylines to polygons, and back.
#include "conversion/steps.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

void AddPathOf(const GeometryRef& ring, Polyline& polyline) {
  auto path = std::make_shared<Path>();
  path->AddSegmentCollection(*Cast<ISegmentCollection>(ring));
  polyline.AddGeometry(path);
}

class PolygonStep final : public ConversionStep {
 public:
  explicit PolygonStep(SpatialReferenceRef reference) : reference_(std::move(reference)) {}

  [[nodiscard]] bool IsPure() const override { return true; }
  void Convert(const GeometryRef& shape, ConversionSink& sink) override {
    const auto parts = Cast<IGeometryCollection>(shape);
    Require(parts, "IGeometryCollection");
    auto polygon = std::make_shared<Polygon>();
    for (std::int32_t index = 0; index < parts->GeometryCount(); ++index) {
      auto ring = std::make_shared<Ring>();
      ring->AddSegmentCollection(*Cast<ISegmentCollection>(parts->Geometry(index)));
      ring->Close();
      polygon->AddGeometry(ring);
    }
    polygon->Simplify();
    polygon->SetSpatialReference(reference_);
    sink.SetShape(polygon);
    sink.SetMeasure(0, polygon->Area());
    sink.Insert();
  }

 private:
  SpatialReferenceRef reference_;
};

class PolylineStep final : public ConversionStep {
 public:
  explicit PolylineStep(SpatialReferenceRef reference) : reference_(std::move(reference)) {}

  [[nodiscard]] bool IsPure() const override { return true; }
  void Convert(const GeometryRef& shape, ConversionSink& sink) override {
    const auto polygon = Cast<Polygon>(shape);
    Require(polygon, "IPolygon")->Simplify();
    auto polyline = std::make_shared<Polyline>();
    const std::int32_t count = polygon->ExteriorRingCount();
    const std::shared_ptr<GeometryBag> components = polygon->ConnectedComponentBag();
    for (std::int32_t index = 0; index < count; ++index) {
      AddBoundaries(*Cast<Polygon>(components->Geometry(index)), *polyline);
    }
    polyline->Simplify();
    polyline->SetSpatialReference(reference_);
    sink.SetShape(polyline);
    sink.SetMeasure(0, polyline->Length());
    sink.Insert();
  }

 private:
  // The exterior ring first, its holes after it.
  static void AddBoundaries(Polygon& component, Polyline& polyline) {
    component.Simplify();
    const auto exterior = Cast<Ring>(component.ExteriorRingBag()->Geometry(0));
    AddPathOf(exterior, polyline);
    if (component.InteriorRingCount(*exterior) == 0) return;
    const std::shared_ptr<GeometryBag> holes = component.InteriorRingBag(*exterior);
    for (std::int32_t index = 0; index < holes->GeometryCount(); ++index) AddPathOf(holes->Geometry(index), polyline);
  }

  SpatialReferenceRef reference_;
};

}  // namespace

std::unique_ptr<ConversionStep> MakePolygonStep(const StepContext& context) {
  return std::make_unique<PolygonStep>(context.reference);
}

std::unique_ptr<ConversionStep> MakePolylineStep(const StepContext& context) {
  return std::make_unique<PolylineStep>(context.reference);
}

}  // namespace tessarine
