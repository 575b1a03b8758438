// SPDX-License-Identifier: GPL-2.0-or-later
// Segments: the straight and curved pieces of a path, as plain values.
//
// A segment runs from `from` to `to`. Lengths and areas are planar, in the unit of the coordinates. Nothing here
// allocates.
#pragma once

#include <variant>

#include "platform/geometry_types.h"

namespace tessarine {

/// A straight piece.
struct Line {
  XY from, to;

  void PutCoords(XY start, XY end) { from = start, to = end; }
  bool operator==(const Line&) const = default;
};

/// An arc of a circle about `center`. `sweep` is the turned angle in radians, counter-clockwise positive, up to
/// a full turn either way; a full circle has equal ends.
struct CircularArc {
  XY from, to, center;
  double sweep = 0.0;

  /// The arc through three points; a straight one (`sweep` 0, no centre) when they lie on a line.
  [[nodiscard]] static CircularArc Through(XY from, XY on, XY to);
  /// A full circle, starting at its easternmost point.
  [[nodiscard]] static CircularArc Circle(XY center, double radius, bool clockwise);
  [[nodiscard]] double Radius() const;
  bool operator==(const CircularArc&) const = default;
};

/// An arc of an ellipse. `rotation` is the angle of the major axis from the x axis; `start` and `sweep` are
/// eccentric angles measured from the major axis, all in radians and counter-clockwise positive.
struct EllipticArc {
  XY from, to, center;
  double semi_major = 0.0, semi_minor = 0.0;
  double rotation = 0.0;
  double start = 0.0, sweep = 0.0;

  /// A full ellipse, starting at the end of its major axis.
  [[nodiscard]] static EllipticArc Ellipse(XY center, double semi_major, double semi_minor, double rotation,
                                           bool clockwise);
  [[nodiscard]] XY At(double eccentric_angle) const;
  bool operator==(const EllipticArc&) const = default;
};

/// A cubic Bezier curve.
struct BezierCurve {
  XY from, control1, control2, to;

  [[nodiscard]] XY At(double t) const;
  bool operator==(const BezierCurve&) const = default;
};

class Segment {
 public:
  Segment(const Line& line) : shape_(line) {}           // NOLINT(google-explicit-constructor)
  Segment(const CircularArc& arc) : shape_(arc) {}      // NOLINT
  Segment(const EllipticArc& arc) : shape_(arc) {}      // NOLINT
  Segment(const BezierCurve& curve) : shape_(curve) {}  // NOLINT

  /// `esriGeometryLine`, `esriGeometryCircularArc`, `esriGeometryEllipticArc` or `esriGeometryBezier3Curve`.
  [[nodiscard]] esriGeometryType GeometryType() const;
  [[nodiscard]] bool IsCurve() const { return !std::holds_alternative<Line>(shape_); }
  [[nodiscard]] XY FromPoint() const;
  [[nodiscard]] XY ToPoint() const;

  /// Length along the curve: exact for lines and circular arcs, to about 1e-12 of the length for ellipses and
  /// Beziers (adaptive Gauss quadrature).
  [[nodiscard]] double Length() const;
  /// The point at a distance along the segment, or at a ratio of its length. `esriNoExtension` gives the nearer
  /// end for a place outside the segment.
  [[nodiscard]] XY QueryPoint(esriSegmentExtension extension, double distance, bool as_ratio) const;
  [[nodiscard]] tessarine::Envelope Envelope() const;
  /// What the curve in place of its chord adds to the counter-clockwise area of a ring: positive where the curve
  /// bulges to the right of the chord's direction.
  [[nodiscard]] double AreaBeyondChord() const;
  /// First moments of that area about the origin, for centroids.
  [[nodiscard]] XY MomentBeyondChord() const;

  /// The same curve run the other way.
  [[nodiscard]] Segment Reversed() const;
  [[nodiscard]] Segment Moved(double dx, double dy) const;
  /// The curve with other ends, turned and scaled as the chord is. A chord of no length is moved only.
  [[nodiscard]] Segment WithEnds(XY from, XY to) const;

  template <class T>
  [[nodiscard]] const T* As() const {
    return std::get_if<T>(&shape_);
  }

  bool operator==(const Segment&) const = default;

 private:
  std::variant<Line, CircularArc, EllipticArc, BezierCurve> shape_;
};

}  // namespace tessarine
