// SPDX-License-Identifier: GPL-2.0-or-later
#include "shapes/short_steps.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

#include "platform/fault.h"

namespace tessarine::MyGeometricOperations {
namespace {

using Vertices = std::vector<XY>;
using PathRef = std::shared_ptr<Path>;

constexpr double kPole = 90.0;

bool AtOnePole(XY first, XY second) {
  return geodesy::IsAtPole(first) && geodesy::IsAtPole(second) && first.y * second.y > 0.0;
}

bool IsTorn(XY first, XY second) {
  return geodesy::HasLongStep(std::vector<XY>{first, second}) && !AtOnePole(first, second);
}

// A ring that runs along its pole is led over it already: that side isn't torn, however long it is.
bool AnyLongStep(const PartedShape& shape) {
  return std::ranges::any_of(shape.Parts(), [](const PathRef& part) {
    const std::span<const XY> vertices = part->Vertices();
    for (std::size_t index = 1; index < vertices.size(); ++index) {
      if (IsTorn(vertices[index - 1], vertices[index])) return true;
    }
    // The side that closes an open ring counts, too.
    return part->GeometryType() == esriGeometryRing && !vertices.empty() && IsTorn(vertices.back(), vertices.front());
  });
}

bool RunsRoundTheGlobe(const Path& ring) { return geodesy::TurnsOf(geodesy::CarriedOn(ring.Vertices())) != 0; }

// As torn, a ring keeps the direction that tells a hole of its file from an exterior ring.
bool AHoleRunsRoundTheGlobe(const PartedShape& polygon) {
  return std::ranges::any_of(
      polygon.Parts(), [](const PathRef& part) { return Cast<Ring>(part)->Area() < 0.0 && RunsRoundTheGlobe(*part); });
}

// The greatest latitude north, or south.
double ReachOf(const std::vector<Vertices>& rings, double sign) {
  double reach = -kPole;
  for (const Vertices& ring : rings) {
    for (const XY vertex : ring) reach = std::max(reach, sign * vertex.y);
  }
  return reach;
}

ShortSteps ContinueRings(PartedShape& polygon, geodesy::EnclosedPole pole) {
  std::vector<Vertices> rings;
  for (const PathRef& part : polygon.Parts()) rings.emplace_back(part->Vertices().begin(), part->Vertices().end());
  const bool girdled =
      std::ranges::any_of(polygon.Parts(), [](const PathRef& part) { return RunsRoundTheGlobe(*part); });
  if (pole == geodesy::EnclosedPole::SmallerPart && AHoleRunsRoundTheGlobe(polygon))
    pole = geodesy::EnclosedPole::Neither;
  std::vector<Vertices> continued = geodesy::ContinuedRings(rings, pole);
  const ShortSteps steps{continued != rings, girdled && ReachOf(continued, 1.0) == kPole,
                         girdled && ReachOf(continued, -1.0) == kPole};
  if (!steps.changed) return {};
  std::vector<PathRef> parts;
  for (Vertices& ring : continued) parts.push_back(std::make_shared<Ring>(std::move(ring)));
  polygon.SetParts(std::move(parts));
  return steps;
}

// A line with its longitudes carried on; a step along a parallel from one edge of the map to the other stays, because
// the short way would leave nothing of it.
Vertices CarriedOnLine(std::span<const XY> line) {
  constexpr double kAlmostATurn = 360.0 - 1e-9;
  Vertices carried;
  std::size_t first = 0;
  const auto carry_up_to = [&](std::size_t last) {
    Vertices stretch = geodesy::CarriedOn(line.subspan(first, last + 1 - first));
    const double moved = carried.empty() ? 0.0 : carried.back().x - line[first].x;
    for (XY& vertex : stretch) vertex.x += moved;
    carried.insert(carried.end(), stretch.begin() + (carried.empty() ? 0 : 1), stretch.end());
    first = last;
  };
  for (std::size_t index = 1; index < line.size(); ++index) {
    const XY from = line[index - 1], to = line[index];
    if (from.y != to.y || std::fabs(to.x - from.x) < kAlmostATurn || AtOnePole(from, to)) continue;
    carry_up_to(index - 1);
    carried.push_back({carried.back().x + (to.x - from.x), to.y});
    first = index;
  }
  if (!line.empty()) carry_up_to(line.size() - 1);
  return carried;
}

ShortSteps ContinuePaths(PartedShape& line) {
  ShortSteps steps;
  for (const PathRef& part : line.Parts()) {
    if (!geodesy::HasLongStep(part->Vertices())) continue;
    Vertices carried = CarriedOnLine(part->Vertices());
    if (std::ranges::equal(carried, part->Vertices())) continue;
    part->SetVertices(std::move(carried));
    steps.changed = true;
  }
  return steps;
}

}  // namespace

ShortSteps TakeShortSteps(IGeometry& shape, geodesy::EnclosedPole pole) {
  auto* parted = dynamic_cast<PartedShape*>(&shape);
  if (parted == nullptr || !AnyLongStep(*parted)) return {};
  if (parted->HasCurves()) Raise(kInvalidCall, "A shape with curves has a step of more than 180 degrees.");
  return parted->GeometryType() == esriGeometryPolygon ? ContinueRings(*parted, pole) : ContinuePaths(*parted);
}

}  // namespace tessarine::MyGeometricOperations
