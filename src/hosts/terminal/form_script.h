// SPDX-License-Identifier: GPL-2.0-or-later
// How the terminal answers a form: it sets the controls that the user's options name and presses OK.
#pragma once

#include "platform/form.h"

namespace tessarine {

class FormScript {
 public:
  virtual ~FormScript() = default;
  /// Fills and leaves the form. A form that is left open was refused by its own rules.
  virtual void Answer(Form& form) = 0;
};

}  // namespace tessarine
