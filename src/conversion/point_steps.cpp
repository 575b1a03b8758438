// SPDX-License-Identifier: GPL-2.0-or-later
// One point for each feature: centroids and label points.
#include "conversion/point_output.h"
#include "conversion/steps.h"
#include "platform/fault.h"

namespace tessarine {
namespace {

XY MeanOf(const IPointCollection& points) {
  const std::int32_t count = points.PointCount();
  double x = 0.0, y = 0.0;
  for (std::int32_t index = 0; index < count; ++index) {
    const XY point = points.Point(index);
    x += point.x;
    y += point.y;
  }
  return {x / count, y / count};
}

class LabelPointStep final : public ConversionStep {
 public:
  [[nodiscard]] bool IsPure() const override { return true; }
  void Convert(const GeometryRef& shape, ConversionSink& sink) override {
    const auto polygon = Cast<Polygon>(shape);
    const std::optional<XY> point = Require(polygon, "IArea")->InnerPoint();
    if (!point) return sink.Skip(kNoArea);
    InsertPoint(std::make_shared<Point>(*point), sink);
  }
};

class CentroidStep final : public ConversionStep {
 public:
  explicit CentroidStep(esriGeometryType input) : input_(input) {}

  [[nodiscard]] bool IsPure() const override { return true; }
  void Convert(const GeometryRef& shape, ConversionSink& sink) override {
    std::shared_ptr<Point> center;
    switch (input_) {
      case esriGeometryPolygon: {
        const auto polygon = Cast<Polygon>(shape);
        if (!Require(polygon, "IArea")->HasArea()) return sink.Skip(kNoArea);
        center = std::make_shared<Point>(polygon->Centroid());
        break;
      }
      case esriGeometryPolyline: {
        const auto curve = Cast<ICurve>(shape);
        center = std::make_shared<Point>(Require(curve, "ICurve")->QueryPoint(esriNoExtension, 0.5, true));
        break;
      }
      case esriGeometryMultipoint: {
        const auto points = Cast<IPointCollection>(shape);
        center = std::make_shared<Point>(MeanOf(*Require(points, "IPointCollection")));
        break;
      }
      default:
        break;
    }
    InsertPoint(Require(center, "IPoint"), sink);
  }

 private:
  esriGeometryType input_;
};

}  // namespace

std::unique_ptr<ConversionStep> MakeLabelPointStep(const StepContext&) { return std::make_unique<LabelPointStep>(); }

std::unique_ptr<ConversionStep> MakeCentroidStep(const StepContext& context) {
  return std::make_unique<CentroidStep>(context.input_type);
}

}  // namespace tessarine
