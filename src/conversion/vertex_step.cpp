// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/steps.h"
#include "platform/fault.h"
#include "platform/run_stop.h"

namespace tessarine {
namespace {

class VertexStep final : public ConversionStep {
 public:
  void Convert(const GeometryRef& shape, ConversionSink& sink) override {
    const auto vertices = Cast<IPointCollection>(shape);
    Require(vertices, "IPointCollection");
    const std::int32_t count = vertices->PointCount();
    StopPoll poll;
    for (std::int32_t index = 0; index < count; ++index) {
      poll();
      vertices->QueryPoint(index, *point_);
      sink.SetShape(point_);
      sink.SetMeasure(0, point_->X());
      sink.SetMeasure(1, point_->Y());
      sink.Insert();
    }
  }

 private:
  std::shared_ptr<Point> point_ = std::make_shared<Point>();
};

}  // namespace

std::unique_ptr<ConversionStep> MakeVertexStep(const StepContext&) { return std::make_unique<VertexStep>(); }

}  // namespace tessarine
