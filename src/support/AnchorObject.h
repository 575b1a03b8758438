// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include "platform/form.h"
#include "support/Anchor.h"

namespace tessarine {

/// A control and what holds it in place: `X` and `Y` serve the starts, `X2` and `Y2` the ends or sizes.
class AnchorObject {
 public:
  explicit AnchorObject(tessarine::Control& control) : control_(&control) {}

  [[nodiscard]] tessarine::Control& Control() const { return *control_; }
  Anchor X, Y, X2, Y2;

  /// Records the present place and size under the given types.
  void SetAnchors(AnchorTypes x_type, AnchorTypes y_type);
  /// Records them anew under the types that stand.
  void SetAnchors() { SetAnchors(X.AnchorType, Y.AnchorType); }
  /// Moves the control to where the container's size puts it. A control that refuses stays where it is.
  void DoAnchors() const;

 private:
  tessarine::Control* control_;
};

}  // namespace tessarine
