// SPDX-License-Identifier: GPL-2.0-or-later
// Length of a polyline on a spheroid, and the position at a distance or ratio along it.
//
// A polyline counts as a list of segments, each the geodesic from its start to its end. A circular arc or Bezier curve
// counts as the geodesic between its ends; cut it into pieces first (`CurveToPolyline`) to measure its shape. Gaps
// between parts are not counted and not walked.
//
//   vertices                longitudes (x) and latitudes (y) in degrees, whatever the spatial reference says
//   SemiMajor, SemiMinor    semi-axes of the spheroid, above 0; equal axes make a sphere
//   lengths, distances      in the unit of the axes, metres on WGS 1984
//
// Each form comes for a polyline and, for callers with bare coordinates, for the vertices of one path. No form
// allocates anything per segment: the length of a million segments costs the iterations of a million inverse problems.
// Every length is that of `DistanceVincentyPoints` or `DistanceVincentyPoints2` to the last bit, and the lengths are
// added in the order of the segments. A segment whose ends are a whole turn of longitude apart, as -180 and 180, is
// measured between the same meridians within one turn.
//
// Poles, the 180 degree meridian, nearly antipodal ends and accuracy: each segment is as vincenty.h describes it for
// one pair of positions. An empty polyline has the length 0.
//
// Errors: a segment that can't be measured is reported by the routine that measures one segment and counts as 0; the
// others still count. A null polyline is reported under the routine's own name; the result is 0 or a null point.
#pragma once

#include <memory>
#include <span>

#include "platform/geometry.h"

namespace tessarine::MyGeometricOperations {

/// The length in metres on WGS 1984, whatever the polyline's own spheroid is.
[[nodiscard]] double SpheroidalPolylineLength(const std::shared_ptr<Polyline>& polyline);
[[nodiscard]] double SpheroidalPolylineLength(std::span<const XY> path);

/// The length on the spheroid with the given axes.
[[nodiscard]] double SpheroidalPolylineLength2(const std::shared_ptr<Polyline>& polyline, double semi_major,
                                               double semi_minor);
[[nodiscard]] double SpheroidalPolylineLength2(std::span<const XY> path, double semi_major, double semi_minor);

/// The position at any place along the line, not only at its middle.
///
/// position: with `as_ratio` a part of the whole length, and what lies outside [0, 1] is set to the nearer of the two
/// in the caller's variable. Otherwise a distance from the start; it is not clamped, and a negative one runs backwards
/// from the first vertex.
/// total_length: receives the length of the line, also where no position is found.
///
/// The position lies on the first segment whose end is strictly farther than the target, found by a walk from that
/// segment's start along its azimuth. So a segment without length is never chosen for a ratio of 0. A target at or past
/// the far end, as a ratio of exactly 1, lies on no segment: the walk then starts from longitude 0, latitude 0 with the
/// length and azimuth of the last segment, and the result is not the end of the line. On an empty polyline that walk
/// has the length and azimuth 0. Ask for positions inside the line.
///
/// Segments are measured with the given axes, but the last walk runs on the spheroid of the polyline's own reference;
/// other axes than the data's give a mixture of both. The result bears the geographic reference of the polyline's. With
/// a reference that is neither geographic nor projected, or none, the walk reports under its name and the point that is
/// returned is empty.
[[nodiscard]] std::shared_ptr<Point> SpheroidalPolylineMidpoint2(const std::shared_ptr<Polyline>& polyline,
                                                                 double& position, bool as_ratio, double& total_length,
                                                                 double semi_major, double semi_minor);

/// What `SpheroidalPolylineMidpoint2` finds for ratios, in two steps: the length first, and a place when it is asked
/// for. Faults bear the name of that routine. The polyline must stay as it is.
class MeasuredPolyline {
 public:
  MeasuredPolyline(const std::shared_ptr<Polyline>& polyline, double semi_major, double semi_minor);
  MeasuredPolyline(MeasuredPolyline&&) noexcept;
  MeasuredPolyline& operator=(MeasuredPolyline&&) noexcept;
  ~MeasuredPolyline();

  [[nodiscard]] double Length() const;
  /// The ratio is set to the nearer end of [0, 1] where it lies outside.
  [[nodiscard]] std::shared_ptr<Point> PlaceAt(double ratio) const;

 private:
  struct Walked;
  std::unique_ptr<Walked> walked_;
};

/// `SpheroidalPolylineMidpoint2` of one bare path, which has no reference: the last walk runs on the given axes too.
[[nodiscard]] XY SpheroidalPolylineMidpoint2(std::span<const XY> path, double& position, bool as_ratio,
                                             double& total_length, double semi_major, double semi_minor);

}  // namespace tessarine::MyGeometricOperations
