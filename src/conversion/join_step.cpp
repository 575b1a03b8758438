// SPDX-License-Identifier: GPL-2.0-or-later
// One feature for all.
#include "conversion/steps.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

/// All points in one multipoint, each place once.
class JoinPoints final : public ConversionStep {
 public:
  explicit JoinPoints(SpatialReferenceRef reference) : reference_(std::move(reference)) {}

  void Convert(const GeometryRef& shape, ConversionSink&) override {
    const auto point = Cast<Point>(shape);
    points_->AddPoint(*Require(point, "IPoint"));
  }

  void Finish(ConversionSink& sink) override {
    points_->Simplify();
    points_->SetSpatialReference(reference_);
    sink.SetShape(points_);
    sink.SetMeasure(0, points_->PointCount());
    sink.Insert();
  }

 private:
  SpatialReferenceRef reference_;
  std::shared_ptr<Multipoint> points_ = std::make_shared<Multipoint>();
};

/// The union of all lines or areas.
class JoinShapes final : public ConversionStep {
 public:
  JoinShapes(std::shared_ptr<PartedShape> result, const SpatialReferenceRef& reference) : result_(std::move(result)) {
    result_->SetSpatialReference(reference);
  }

  void Convert(const GeometryRef& shape, ConversionSink&) override { members_.AddGeometry(shape); }

  void Finish(ConversionSink& sink) override {
    result_->ConstructUnion(members_);
    result_->Simplify();
    sink.SetShape(result_);
    const auto polygon = Cast<Polygon>(result_);
    sink.SetMeasure(0, polygon ? polygon->Area() : result_->Length());
    sink.Insert();
  }

 private:
  GeometryBag members_;
  std::shared_ptr<PartedShape> result_;
};

/// Shapes that no union is made of: the one output feature has neither shape nor identifier.
class JoinNothing final : public ConversionStep {
 public:
  [[nodiscard]] bool TakesFeatures() const override { return false; }
  void Convert(const GeometryRef&, ConversionSink&) override {}
  void Finish(ConversionSink& sink) override { sink.InsertUnnumbered(); }
};

}  // namespace

std::unique_ptr<ConversionStep> MakeJoinStep(const StepContext& context) {
  switch (context.input_type) {
    case esriGeometryPoint:
      return std::make_unique<JoinPoints>(context.reference);
    case esriGeometryPolyline:
      return std::make_unique<JoinShapes>(std::make_shared<Polyline>(), context.reference);
    case esriGeometryPolygon:
      return std::make_unique<JoinShapes>(std::make_shared<Polygon>(), context.reference);
    default:
      return std::make_unique<JoinNothing>();
  }
}

}  // namespace tessarine
