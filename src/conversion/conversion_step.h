// SPDX-License-Identifier: GPL-2.0-or-later
// What a conversion does with one feature.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

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
  /// Writes what is at hand, without an identifier.
  virtual void InsertUnnumbered() = 0;
  /// The input feature gets no output; it is listed among the skipped ones. `reason` is a whole sentence, the same for
  /// all features that it holds for.
  virtual void Skip(std::string_view reason) = 0;
  /// Tells something about the input feature that a user should know of; a sentence like that of `Skip`.
  virtual void Warn(std::string_view text) = 0;
};

/// What a step knows of the run before the first feature.
struct StepContext {
  esriGeometryType input_type = esriGeometryNull;
  SpatialReferenceRef reference;         ///< of the input
  SpatialReferenceRef output_reference;  ///< the same but for runs whose output is geographic
};

class ConversionStep {
 public:
  virtual ~ConversionStep() = default;
  /// False when the run shall read no feature at all.
  [[nodiscard]] virtual bool TakesFeatures() const { return true; }
  /// True when converting keeps nothing from one feature to the next, so that several threads may be at it at once.
  [[nodiscard]] virtual bool IsPure() const { return false; }
  /// Called once for each feature whose shape isn't empty and has only finite coordinates.
  virtual void Convert(const GeometryRef& shape, ConversionSink& sink) = 0;
  /// Called once after the last feature.
  virtual void Finish(ConversionSink&) {}
};

}  // namespace tessarine
