// SPDX-License-Identifier: GPL-2.0-or-later
// A stop in the midst of one long call of the topology library.
#pragma once

namespace tessarine {

/// From now on the topology library asks the host of this process whether the user wants to stop, and a call in which
/// that is so raises `RunStopped`. For programs of our own: it holds for all that uses the library in the process.
void LetStopsEndTopology();

}  // namespace tessarine
