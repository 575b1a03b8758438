// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/convergence.h"

namespace tessarine::MyGeometricOperations {
namespace {

thread_local std::uint64_t unconverged = 0;

}  // namespace

std::uint64_t UnconvergedCount() { return unconverged; }

void NoteUnconverged(std::uint64_t solutions) { unconverged += solutions; }

}  // namespace tessarine::MyGeometricOperations
