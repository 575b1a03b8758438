// What a conversion does with one feature.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/data.h"

namespace tessarine {

/// Takes the features that a step makes. The attributes of the input feature and its own identifier are seen to.
class ConversionSink {
 public:
  virtual ~ConversionSink() = default;
  /// The shape of the next output feature. It is read when the feature is written.
  virtual void SetShape(const GeometryRef& shape) = 0;
  /// The value of the run's measure field number `index`, from 0.
  virtual void SetMeasure(std::size_t index, double value) = 0;
  virtual void Insert() = 0;
};

class ConversionStep {
 public:
  virtual ~ConversionStep() = default;
  /// Called once for each feature whose shape isn't empty.
  virtual void Convert(const GeometryRef& shape, ConversionSink& sink) = 0;
};

}  // namespace tessarine
