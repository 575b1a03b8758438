// SPDX-License-Identifier: GPL-2.0-or-later
// The geodesy library in use, by a program that links nothing else: one example of each header, beside the figure that
// was published for it. Ends with status 1 where one is off.
#include <cmath>
#include <cstdio>
#include <vector>

#include "geodesy/cartesian.h"
#include "geodesy/geodesics.h"
#include "geodesy/latitudes.h"
#include "geodesy/longitude_continuation.h"
#include "geodesy/segment_lengths.h"
#include "geodesy/spherical_area_sum.h"
#include "geodesy/wrap_box.h"

using namespace tessarine::geodesy;

namespace {

int g_off = 0;

void Compare(const char* what, double found, double published, double within) {
  const bool agrees = std::fabs(found - published) <= within;
  std::printf("%-52s %18.8f  published %18.8f%s\n", what, found, published, agrees ? "" : "  OFF");
  if (!agrees) ++g_off;
}

constexpr double Degrees(double degrees, double minutes, double seconds) {
  return degrees + minutes / 60.0 + seconds / 3600.0;
}

// The second line of Vincenty's paper of 1975, on Hayford's ellipsoid.
void VincentysLine() {
  constexpr double kMajor = 6378388.0, kInverseFlattening = 297.0;
  const Figure hayford = Figure::FromAxes(kMajor, kMajor * (1.0 - 1.0 / kInverseFlattening));
  const LonLat from{0.0, Degrees(37, 19, 54.95367)}, to{Degrees(41, 28, 35.50729), Degrees(26, 7, 42.83946)};
  const GeodesicLine line = Inverse(from, to, hayford);
  Compare("Vincenty 1975, line b: metres", line.distance, 4085966.703, 1e-3);
  Compare("  azimuth at the start", line.azimuth1, Degrees(95, 27, 59.63089), 1e-8);
  Compare("  azimuth at the end", line.azimuth2, Degrees(118, 5, 58.96161), 1e-8);
  const GeodesicEnd end = Direct(from, line.azimuth1, line.distance, hayford);
  Compare("  and back to its end: longitude", end.position.x, to.x, 1e-8);
  Compare("  latitude", end.position.y, to.y, 1e-8);
}

// Published with GeographicLib: 225 degrees and 20,000 km from Perth, and from New York to London.
void LinesOnWgs1984() {
  const GeodesicEnd end = Direct({115.74, -32.06}, 225.0, 20000e3);
  Compare("20,000 km from Perth: longitude", std::remainder(end.position.x, 360.0), -63.95925278, 1e-8);
  Compare("  latitude", end.position.y, 32.11195529, 1e-8);
  Compare("from 40.6 N 73.8 W to 51.6 N 0.5 W: metres", Inverse({-73.8, 40.6}, {-0.5, 51.6}).distance, 5551759.400,
          1e-3);
}

// A quarter of the meridian is published as 10,001,965.729 m. Its middle latitude is no vertex of the length.
void LengthOfALine() {
  const std::vector<LonLat> meridian = {{30, 0}, {30, 20}, {30, 45}, {30, 90}};
  Compare("a quarter of the meridian: metres", LengthOf(meridian).length, 10001965.729, 2e-3);
}

// An eighth of the Earth on the sphere of its volume, whose radius is published as 6,371,000.79 m.
void AreaOfARing() {
  SphericalAreaSum sum(kWgs1984, AreaWish::WithCentroid);
  const std::vector<LonLat> octant = {{0, 0}, {0, 90}, {90, 90}, {90, 0}, {0, 0}};
  sum.AddRing(octant, {45, 30});
  constexpr double kRadius = 6371.00079;
  Compare("an eighth of the Earth: square kilometres", sum.Area() / 1e6, kRadius * kRadius * std::acos(-1.0) / 2.0,
          1.0);
  Compare("  longitude of its centre", sum.Centroid()->x, 45.0, 1e-6);
}

// Geodetic 45 degrees has the geocentric latitude 44.8076 on WGS 1984, in any textbook.
void Latitudes() {
  Compare("the planetocentric latitude of 45 degrees", ToPlanetocentric(45.0, kWgs1984), 44.80757678, 1e-8);
  Compare("  and back", ToPlanetographic(44.80757678, kWgs1984), 45.0, 1e-8);
  Compare("the pole's distance from the Earth's centre", FromSpheroid({0, 90}, kWgs1984).z, 6356752.3142, 1e-4);
}

// Longitudes of one piece across the edge, and one piece for every longitude.
void Longitudes() {
  Compare("-170 carried on from 170", CarriedOn(170.0, -170.0), 190.0, 0.0);
  Compare("190 in the box from -180 to 180", WrappedInto(WrapBox{}, {190.0, 10.0}).x, -170.0, 0.0);
}

}  // namespace

int main() {
  VincentysLine();
  LinesOnWgs1984();
  LengthOfALine();
  AreaOfARing();
  Latitudes();
  Longitudes();
  return g_off == 0 ? 0 : 1;
}
