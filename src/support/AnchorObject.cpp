// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/AnchorObject.h"

#include <algorithm>

#include "support/attempt.h"

namespace tessarine {
namespace {

void Record(AnchorTypes type, double start, double size, double container, Anchor& first, Anchor& second) {
  first.AnchorType = second.AnchorType = type;
  const double share = container == 0.0 ? 0.0 : 1.0 / container;
  double start_value = start, end_value = size;
  switch (type) {
    case enumNone:
      start_value = start * share;
      end_value = size * share;
      break;
    case enumStart:
      end_value = size * share;
      break;
    case enumStartSize:
      break;
    case enumStartEnd:
      end_value = container - size;
      break;
    case enumSize:
      start_value = (start + size / 2.0) * share;
      break;
    case enumSizeEnd:
      start_value = container - start;
      break;
    case enumEnd:
      start_value = start * share;
      end_value = container - (start + size);
      break;
  }
  first.Value = static_cast<float>(start_value);
  second.Value = static_cast<float>(end_value);
}

struct Extent {
  double start, size;
};

double Bounded(double value, const Anchor& anchor) {
  return std::clamp(value, static_cast<double>(anchor.MinValue), static_cast<double>(anchor.MaxValue));
}

Extent Replay(double container, const Anchor& first, const Anchor& second) {
  const auto a = static_cast<double>(first.Value), b = static_cast<double>(second.Value);
  Extent extent{a, b};
  switch (first.AnchorType) {
    case enumNone:
      extent = {a * container, b * container};
      break;
    case enumStart:
      extent = {a, b * container};
      break;
    case enumStartSize:
      break;
    case enumStartEnd:
      extent = {a, container - b};
      break;
    case enumSize:
      extent = {a * container - b / 2.0, b};
      break;
    case enumSizeEnd:
      extent = {container - a, b};
      break;
    case enumEnd: {
      const double start = a * container;
      extent = {start, container - b - start};
      break;
    }
  }
  return {Bounded(extent.start, first), std::max(0.0, Bounded(extent.size, second))};
}

}  // namespace

void AnchorObject::SetAnchors(AnchorTypes x_type, AnchorTypes y_type) {
  const Container& container = control_->Container();
  Record(x_type, control_->Left(), control_->Width(), container.Width(), X, X2);
  Record(y_type, control_->Top(), control_->Height(), container.Height(), Y, Y2);
}

void AnchorObject::DoAnchors() const {
  MyGeneralOperations::Attempt([this] {
    const Container& container = control_->Container();
    const Extent x = Replay(container.Width(), X, X2);
    const Extent y = Replay(container.Height(), Y, Y2);
    control_->Move(x.start, y.start, x.size, y.size);
  });
}

}  // namespace tessarine
