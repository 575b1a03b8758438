// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once

#include <cstdint>
#include <deque>
#include <initializer_list>

#include "support/AnchorObject.h"

namespace tessarine {

/// A control and how it is held in both directions.
struct AnchoredControl {
  Control& control;
  AnchorTypes x, y;
};

/// The anchors of a form's controls.
class AnchorObjectList {
 public:
  [[nodiscard]] std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  /// The entry of the control, made on first use.
  [[nodiscard]] AnchorObject& Item(Control& control);
  /// Records these controls, each with its types.
  void Hold(std::initializer_list<AnchoredControl> controls);
  /// -1 for a control without an entry.
  [[nodiscard]] std::int32_t IndexOf(const Control& control) const;
  void Remove(const Control& control);

  void SetForm(tessarine::Form& form) { form_ = &form; }
  [[nodiscard]] tessarine::Form* Form() const { return form_; }

  /// Records all controls anew, each under its own types.
  void SetAnchors();
  /// Moves all controls to where their containers' sizes put them.
  void DoAnchors() const;

 private:
  std::deque<AnchorObject> items_;
  tessarine::Form* form_ = nullptr;
};

}  // namespace tessarine
