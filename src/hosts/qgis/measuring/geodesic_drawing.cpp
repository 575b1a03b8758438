// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/measuring/geodesic_drawing.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "hosts/qgis/suite_measures.h"
#include "platform/exact_geodesy.h"
#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

constexpr double kStepDegrees = 0.25;
constexpr double kFewestSteps = 16.0, kMostSteps = 720.0;
constexpr double kJump = 4.0;        // a step this much longer than the one before may be a tear
constexpr double kTornShare = 0.75;  // of the step, that one half of it makes where the map is torn
constexpr int kHalvings = 12;

class Geodesic {
 public:
  Geodesic(const PointedPlace& from, const PointedPlace& to, const SpatialReferenceRef& map,
           const NamedSpheroid& spheroid)
      : from_(from), map_(map), major_(spheroid.semi_major_axis), minor_(spheroid.semi_minor_axis) {
    const ExactGeodesic line = SolveInverseExactly(from.degrees, to.degrees, major_, minor_);
    distance_ = line.distance;
    azimuth_ = line.azimuth1;
    const double degrees = distance_ / major_ * 180.0 / std::numbers::pi;
    steps_ = static_cast<int>(std::clamp(std::ceil(degrees / kStepDegrees), kFewestSteps, kMostSteps));
  }

  [[nodiscard]] QgsMultiPolylineXY Parts() const {
    QgsMultiPolylineXY parts;
    QgsPolylineXY part;
    double step = 0.0;
    for (int at = 0; at <= steps_; ++at) {
      const auto point = At(static_cast<double>(at) / steps_);
      const bool ends = !point || (!part.isEmpty() && IsTorn(at, part.back(), *point, step));
      if (ends && part.size() > 1) parts << part;
      if (ends) part.clear();
      if (!point) continue;
      if (!part.isEmpty()) step = part.back().distance(*point);
      part << *point;
    }
    if (part.size() > 1) parts << part;
    return parts;
  }

 private:
  // None where the map has no such place.
  [[nodiscard]] std::optional<QgsPointXY> At(double share) const {
    try {
      const XY degrees = SolveDirectExactly(from_.degrees, share * distance_, azimuth_, major_, minor_).end;
      const XY point = Measures().FromDegrees(degrees, map_);
      if (!std::isfinite(point.x) || !std::isfinite(point.y)) return std::nullopt;
      return QgsPointXY(point.x, point.y);
    } catch (const Fault&) {
      return std::nullopt;
    }
  }

  // Where the map holds together, a long step shrinks as it is halved; over a tear one half keeps its length.
  [[nodiscard]] bool IsTorn(int at, QgsPointXY before, QgsPointXY after, double last_step) const {
    if (!(before.distance(after) > kJump * last_step)) return false;
    double low = static_cast<double>(at - 1) / steps_, high = static_cast<double>(at) / steps_;
    for (int halving = 0; halving < kHalvings; ++halving) {
      const double middle = (low + high) / 2.0;
      const auto point = At(middle);
      if (!point) return true;
      const double whole = before.distance(after), first = before.distance(*point), second = point->distance(after);
      if (std::max(first, second) < kTornShare * whole) return false;
      (first > second ? high : low) = middle;
      (first > second ? after : before) = *point;
    }
    return true;
  }

  const PointedPlace& from_;
  const SpatialReferenceRef& map_;
  double major_, minor_, distance_, azimuth_;
  int steps_;
};

}  // namespace

QgsMultiPolylineXY DrawnGeodesic(const PointedPlace& from, const PointedPlace& to, const SpatialReferenceRef& map,
                                 const NamedSpheroid& spheroid) {
  QgsMultiPolylineXY parts;
  try {
    parts = Geodesic(from, to, map, spheroid).Parts();
  } catch (const Fault&) {
    return parts;  // the legs tell why there is none
  }
  if (!Is<const GeographicCoordinateSystem>(map) || parts.isEmpty()) return parts;
  // Longitudes run on from the first place; the second one may have been pointed at in another turn.
  const double shift = to.on_map.x() - parts.back().back().x();
  if (std::fabs(shift) < 1.0) return parts;
  QgsPolylineXY shifted;
  for (const QgsPointXY& point : parts.back()) shifted << QgsPointXY(point.x() + shift, point.y());
  return parts << shifted;
}

}  // namespace tessarine::qgis
