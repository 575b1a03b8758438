// SPDX-License-Identifier: GPL-2.0-or-later
// The three true curves: how each is made and where its points lie.
#include <cmath>

#include "platform/curve_math.h"
#include "platform/segment.h"

namespace tessarine {

using detail::kTwoPi;

CircularArc CircularArc::Through(XY from, XY on, XY to) {
  // The circle through three points, with `from` as the origin.
  const double bx = on.x - from.x, by = on.y - from.y;
  const double cx = to.x - from.x, cy = to.y - from.y;
  if (from == to) {
    // A full circle is given by two opposite points.
    const XY center{from.x + bx / 2.0, from.y + by / 2.0};
    return {from, to, center, on == from ? 0.0 : -kTwoPi};
  }
  const double d = 2.0 * (bx * cy - by * cx);
  const double b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
  if (std::fabs(d) <= 1e-14 * std::sqrt(b2) * std::sqrt(c2) || d == 0.0) return {from, to, from, 0.0};
  const double ux = (cy * b2 - by * c2) / d, uy = (bx * c2 - cx * b2) / d;
  const XY center{from.x + ux, from.y + uy};
  const double start = std::atan2(from.y - center.y, from.x - center.x);
  const double end = std::atan2(to.y - center.y, to.x - center.x);
  double sweep = end - start;
  // The middle point lies to the right of the chord on a counter-clockwise arc.
  const bool counter_clockwise = d > 0.0;
  if (counter_clockwise && sweep <= 0.0) sweep += kTwoPi;
  if (!counter_clockwise && sweep >= 0.0) sweep -= kTwoPi;
  return {from, to, center, sweep};
}

CircularArc CircularArc::Circle(XY center, double radius, bool clockwise) {
  const XY start{center.x + radius, center.y};
  return {start, start, center, clockwise ? -kTwoPi : kTwoPi};
}

double CircularArc::Radius() const { return sweep == 0.0 ? 0.0 : detail::Distance(center, from); }

EllipticArc EllipticArc::Ellipse(XY center, double semi_major, double semi_minor, double rotation, bool clockwise) {
  EllipticArc arc{{}, {}, center, semi_major, semi_minor, rotation, 0.0, clockwise ? -kTwoPi : kTwoPi};
  arc.from = arc.to = arc.At(0.0);
  return arc;
}

XY EllipticArc::At(double eccentric_angle) const {
  const double along = semi_major * std::cos(eccentric_angle);
  const double across = semi_minor * std::sin(eccentric_angle);
  const double c = std::cos(rotation), s = std::sin(rotation);
  return {center.x + along * c - across * s, center.y + along * s + across * c};
}

XY BezierCurve::At(double t) const {
  const double u = 1.0 - t;
  const double w0 = u * u * u, w1 = 3.0 * u * u * t, w2 = 3.0 * u * t * t, w3 = t * t * t;
  return {w0 * from.x + w1 * control1.x + w2 * control2.x + w3 * to.x,
          w0 * from.y + w1 * control1.y + w2 * control2.y + w3 * to.y};
}

}  // namespace tessarine
