// SPDX-License-Identifier: MIT
// Longitudes carried on over the edge where they start anew.
//
// Data jump from 170 to -170 and mean 20 degrees. Here each longitude is moved by whole turns of 360 degrees until the
// step to it is at most 180, so that shapes are whole on the plane of longitude and latitude: 170, 190. Then
//
//  - a ring that comes back to its own longitude stays a ring;
//  - one that comes back a turn farther runs round the globe. It encloses a pole and is led over it: up the meridian of
//    its vertex next to the pole, along the pole, and back down;
//  - two such rings bound a band round the globe. They become one ring, by a bridge that is run there and back;
//  - a ring that lies inside another one (a hole, an island in a hole) follows it by whole turns.
//
//   vertices               degrees, longitude first; latitudes in [-90, 90]
//   turns                  whole turns between the first and the last vertex of a ring: 0, +1 eastward, -1 westward
//
// A vertex at a pole (within 1e-9 degrees) has no longitude of its own: it takes those of its neighbours, one after
// the other. A step of exactly 180 degrees stays as it is. What needs no turn keeps its bits; the others are off by the
// rounding of one sum.
#pragma once

#include <span>
#include <vector>

#include "geodesy/figure.h"

namespace tessarine::geodesy {

/// Which poles lie inside rings round the globe.
enum class EnclosedPole {
  BySense,      ///< what lies to the right of their course, as the suite keeps exterior rings
  North,        ///< of an odd number of rings
  South,        ///< of an odd number of rings
  Both,         ///< of an even number: caps, and belts between them
  Neither,      ///< of an even number: belts
  SmallerPart,  ///< what makes the smaller part of the sphere; the course decides between halves
};

/// True within 1e-9 degrees of a pole, where all longitudes are one place.
[[nodiscard]] inline bool IsAtPole(XY vertex) {
  constexpr double kPole = 90.0 - 1e-9;
  return vertex.y >= kPole || vertex.y <= -kPole;
}

/// The longitude moved by whole turns to within 180 degrees of `from`; itself where it is there already.
[[nodiscard]] double CarriedOn(double from, double longitude);

/// The longitude moved by whole turns where it lies a turn or more from `from`, as 180 does from -180; otherwise
/// itself. What takes sines and cosines of a difference doesn't need it, but for those that stumble over a whole turn.
[[nodiscard]] double WithinOneTurn(double from, double longitude);

/// True when two neighbours are more than 180 degrees of longitude apart.
[[nodiscard]] bool HasLongStep(std::span<const XY> vertices);

/// The vertices of a line or ring carried on, beginning at the first that isn't at a pole, which stays. A vertex at a
/// pole between two longitudes becomes two. Lines need no more than this.
[[nodiscard]] std::vector<XY> CarriedOn(std::span<const XY> vertices);

/// The whole turns of a ring that was carried on; 0 for less than two vertices.
[[nodiscard]] int TurnsOf(std::span<const XY> ring);

/// A stretch that is no border of the polygon: it was added to a ring, and runs there and back.
struct Seam {
  XY from, to;
};

struct ArrangedPolygon {
  std::vector<std::vector<XY>> rings;
  std::vector<Seam> seams;  ///< to poles, and from ring to ring
};

/// The rings of one polygon, carried on already, as rings that close on the plane: those round the globe led over a
/// pole or joined to bands, those inside others brought to them. All rings close; where the ends of one differ, a
/// straight step closes it. The order of the rings stays, a joined pair standing at the place of its first.
///
/// Of several rings round the globe, each is the border between inside and outside, in turn from pole to pole. A choice
/// that doesn't fit their number leaves it to the smaller part. Files don't keep the course of such a ring: formats and
/// their drivers turn rings by their area on the plane, which says nothing here.
///
/// Cost: linear in the vertices where no ring runs round the globe and nothing was moved; else each ring is looked for
/// in the larger ones whose extent holds it.
[[nodiscard]] ArrangedPolygon ArrangedRings(std::vector<std::vector<XY>> rings,
                                            EnclosedPole pole = EnclosedPole::BySense);

/// Both in one: the rings of a polygon whose steps mean the short way. Rings without a step of more than 180 degrees
/// keep their vertices, and a polygon of such rings alone comes back as it is. So does a ring that the short way would
/// leave without any width: the whole globe, or a belt of it, given by four corners a turn apart.
[[nodiscard]] std::vector<std::vector<XY>> ContinuedRings(std::vector<std::vector<XY>> rings,
                                                          EnclosedPole pole = EnclosedPole::BySense);

}  // namespace tessarine::geodesy
