// SPDX-License-Identifier: GPL-2.0-or-later
// Arguments that a command can't take.
#pragma once

#include <stdexcept>
#include <string>

namespace tessarine {

/// Ends a command with `ExitStatus::Refused`. The text names the argument and the way out.
class Refusal : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tessarine
