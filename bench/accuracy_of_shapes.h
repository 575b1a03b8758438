// SPDX-License-Identifier: GPL-2.0-or-later
// The tables of docs/accuracy.md about shapes: areas, centroids, midpoints, multipoints, and the small angles under
// them.
#pragma once

namespace tessarine::bench {

void PrintAreas();
void PrintCentroids();
void PrintMidpoints();
void PrintMultipointCentroids();
void PrintSmallAngles();

}  // namespace tessarine::bench
