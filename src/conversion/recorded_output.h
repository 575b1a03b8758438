// SPDX-License-Identifier: GPL-2.0-or-later
// What a step makes of one feature, kept until the feature's turn to be written comes.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "conversion/conversion_step.h"
#include "platform/fault.h"

namespace tessarine {

/// Of a step that is pure: the shapes that it hands over are its last word on them, and its sentences last for ever.
class RecordedOutput final : public ConversionSink {
 public:
  void SetShape(const GeometryRef& shape) override { calls_.push_back({.kind = Kind::Shape, .shape = shape}); }
  void SetMeasure(std::size_t index, double value) override {
    calls_.push_back({.kind = Kind::Measure, .index = index, .value = value});
  }
  void Insert() override { calls_.push_back({.kind = Kind::Insert}); }
  void InsertUnnumbered() override { calls_.push_back({.kind = Kind::InsertUnnumbered}); }
  void Skip(std::string_view reason) override { calls_.push_back({.kind = Kind::Skip, .text = reason}); }
  void Warn(std::string_view text) override { calls_.push_back({.kind = Kind::Warn, .text = text}); }

  /// Does it all again, to this sink, and raises the step's fault.
  void TellTo(ConversionSink& sink) const {
    for (const Call& call : calls_) {
      switch (call.kind) {
        case Kind::Shape:
          sink.SetShape(call.shape);
          break;
        case Kind::Measure:
          sink.SetMeasure(call.index, call.value);
          break;
        case Kind::Insert:
          sink.Insert();
          break;
        case Kind::InsertUnnumbered:
          sink.InsertUnnumbered();
          break;
        case Kind::Skip:
          sink.Skip(call.text);
          break;
        case Kind::Warn:
          sink.Warn(call.text);
          break;
      }
    }
    if (fault) throw Fault(*fault);
  }

  std::optional<Fault> fault;  ///< that ended the step

 private:
  enum class Kind : std::uint8_t { Shape, Measure, Insert, InsertUnnumbered, Skip, Warn };
  struct Call {
    Kind kind;
    GeometryRef shape = nullptr;
    std::size_t index = 0;
    double value = 0.0;
    std::string_view text = {};
  };
  std::vector<Call> calls_;
};

}  // namespace tessarine
