// SPDX-License-Identifier: GPL-2.0-or-later
// Work that repeats what was done before, and whose faults were reported then.
#pragma once

namespace tessarine {

/// While it lives, faults that end in traps on this thread are reported to nobody.
class Silence {
 public:
  Silence();
  ~Silence();
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;
};

}  // namespace tessarine
