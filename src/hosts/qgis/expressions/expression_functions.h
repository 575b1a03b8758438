// SPDX-License-Identifier: GPL-2.0-or-later
// The suite's functions among those of the map program's expressions, in a group of their own.
#pragma once

namespace tessarine::qgis {

/// For the main thread, any number of times.
void AddExpressionFunctions();

/// Takes them away. Nothing may be evaluating expressions meanwhile: what was parsed before knows functions by their
/// position in the program's list.
void RemoveExpressionFunctions();

}  // namespace tessarine::qgis
