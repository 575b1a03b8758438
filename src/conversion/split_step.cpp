// SPDX-License-Identifier: GPL-2.0-or-later
// One feature for each part.
#include "conversion/steps.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

constexpr std::string_view kHoleOutside = "A hole that lies in no exterior ring was written as a feature of its own.";

class SplitStep final : public ConversionStep {
 public:
  explicit SplitStep(const StepContext& context) : input_(context.input_type), reference_(context.reference) {}

  [[nodiscard]] bool IsPure() const override { return true; }
  void Convert(const GeometryRef& shape, ConversionSink& sink) override {
    switch (input_) {
      case esriGeometryMultipoint:
        return SplitPoints(*Cast<Multipoint>(shape), sink);
      case esriGeometryPolyline:
        return SplitPaths(*Cast<Polyline>(shape), sink);
      case esriGeometryPolygon:
        return SplitComponents(*Cast<Polygon>(shape), sink);
      default:
        return;
    }
  }

 private:
  void SplitPoints(const Multipoint& points, ConversionSink& sink) const {
    for (std::int32_t index = 0; index < points.PointCount(); ++index) {
      const auto point = std::make_shared<Point>(points.Point(index));
      point->SetSpatialReference(reference_);
      sink.SetShape(point);
      sink.SetMeasure(0, point->X());
      sink.SetMeasure(1, point->Y());
      sink.Insert();
    }
  }

  void SplitPaths(const Polyline& line, ConversionSink& sink) const {
    for (std::int32_t index = 0; index < line.GeometryCount(); ++index) {
      auto part = std::make_shared<Polyline>();
      part->AddSegmentCollection(*Cast<ISegmentCollection>(line.Geometry(index)));
      part->Simplify();
      part->SetSpatialReference(reference_);
      sink.SetShape(part);
      sink.SetMeasure(0, part->Length());
      sink.Insert();
    }
  }

  // A hole stays with its exterior ring. One without is an area of its own, as it is wherever a polygon is simplified.
  void SplitComponents(const Polygon& polygon, ConversionSink& sink) const {
    const std::shared_ptr<GeometryBag> components = polygon.ConnectedComponentBag();
    if (components->GeometryCount() > polygon.ExteriorRingCount()) sink.Warn(kHoleOutside);
    for (std::int32_t index = 0; index < components->GeometryCount(); ++index) {
      const auto component = Cast<Polygon>(components->Geometry(index));
      component->SetSpatialReference(reference_);
      component->Simplify();
      sink.SetShape(component);
      sink.SetMeasure(0, component->Area());
      sink.Insert();
    }
  }

  esriGeometryType input_;
  SpatialReferenceRef reference_;
};

}  // namespace

std::unique_ptr<ConversionStep> MakeSplitStep(const StepContext& context) {
  return std::make_unique<SplitStep>(context);
}

}  // namespace tessarine
