// SPDX-License-Identifier: GPL-2.0-or-later
// What a host may ask of one shape by itself: the numbers that the calculator writes for a feature of such a shape.
//
// Nothing here asks for a host, a run or a document, so any thread may call. Axes are those of a spheroid in metres,
// both above 0. A shape bears its reference, which must be geographic or projected: fault 5 otherwise, and for a
// coordinate that is no finite number; other faults tell what can't be brought to longitude and latitude.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "platform/geometry.h"
#include "platform/object.h"

namespace tessarine {

/// What the report of a run would say of a value.
using MeasureNotes = std::vector<std::string_view>;

struct MeasuredValue {
  double value = 0.0;
  MeasureNotes notes;
};

struct MeasuredPosition {
  XY position;
  MeasureNotes notes;
};

/// The geodesic between two positions.
struct MeasuredLeg {
  double distance = 0.0;  ///< metres
  /// Degrees clockwise from north, in the direction of travel, at both ends; none between coincident positions. At a
  /// pole from the meridian of the longitude that the position was given with.
  std::optional<double> start_azimuth, end_azimuth;
  MeasureNotes notes;
};

class IShapeMeasures : public virtual Object {
 public:
  /// The spheroidal length of a polyline, or the spheroidal perimeter of a polygon, holes included; metres. Fault 13
  /// for any other shape.
  [[nodiscard]] virtual MeasuredValue Length(const IGeometry& shape, double semi_major, double semi_minor) const = 0;
  /// The spheroidal area of a polygon, in square metres. Fault 13 for any other shape.
  [[nodiscard]] virtual MeasuredValue Area(const IGeometry& shape, double semi_major, double semi_minor) const = 0;
  /// The middle of the spheroidal length of a polyline, in the coordinates of its reference. Fault 13 for any other
  /// shape.
  [[nodiscard]] virtual MeasuredPosition Midpoint(const IGeometry& shape, double semi_major,
                                                  double semi_minor) const = 0;
  /// The leg between two positions in degrees, the short way round. Where the calculator's series doesn't settle,
  /// between nearly antipodal positions, it is solved exactly. Fault 5 for a latitude beyond a pole.
  [[nodiscard]] virtual MeasuredLeg Leg(XY from, XY to, double semi_major, double semi_minor) const = 0;

  /// A position of a reference in longitude and latitude, degrees, of the geographic reference beneath it.
  [[nodiscard]] virtual XY InDegrees(XY position, const SpatialReferenceRef& reference) const = 0;
  /// The way back.
  [[nodiscard]] virtual XY FromDegrees(XY position, const SpatialReferenceRef& reference) const = 0;
};

}  // namespace tessarine
