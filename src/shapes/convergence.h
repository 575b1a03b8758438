// SPDX-License-Identifier: GPL-2.0-or-later
// Whether the inverse problem was solved or given up.
//
// Between nearly antipodal positions the iteration may not settle. After 40 passes its last values are returned all the
// same, and nothing in them tells. Here is what tells: a solution that used up its passes without settling is off by
// anything up to a hundred kilometres on the Earth, one that settled is as exact as geodesy/geodesics.h says.
//
//   const ConvergenceWatch watch;
//   const double length = SpheroidalPolylineLength2(line, a, b);
//   if (!watch.AllConverged()) ...
#pragma once

#include <cstdint>

namespace tessarine::MyGeometricOperations {

/// How many inverse problems of this thread didn't settle, by any routine of this module, since the thread began.
[[nodiscard]] std::uint64_t UnconvergedCount();
/// For the routines that iterate.
void NoteUnconverged(std::uint64_t solutions);

/// Looks at this thread from where it is made on.
class ConvergenceWatch {
 public:
  ConvergenceWatch() : before_(UnconvergedCount()) {}
  [[nodiscard]] bool AllConverged() const { return UnconvergedCount() == before_; }

 private:
  std::uint64_t before_;
};

}  // namespace tessarine::MyGeometricOperations
