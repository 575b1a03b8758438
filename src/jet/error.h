// SPDX-License-Identifier: GPL-2.0-or-later
// What is wrong with a file, or why it can't hold what it is given.
#pragma once

#include <stdexcept>
#include <string>

namespace tessarine::jet {

/// A file that isn't of this format or is damaged, a value that doesn't fit, or a refusal of the file system.
class Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// What is wrong with one row that was to be written: others can be. Nothing of the row is in the file.
class RowError : public Error {
 public:
  using Error::Error;
};

}  // namespace tessarine::jet
