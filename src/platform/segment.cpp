// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/segment.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/curve_math.h"

namespace tessarine {
namespace {

using detail::Distance;
using detail::Integrate;

template <class... Visitors>
struct Overloaded : Visitors... {
  using Visitors::operator()...;
};
template <class... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

// Position and velocity on a curve for a parameter t from 0 to 1.
XY At(const Line& line, double t) {
  return {line.from.x + (line.to.x - line.from.x) * t, line.from.y + (line.to.y - line.from.y) * t};
}
XY At(const CircularArc& arc, double t) {
  if (arc.sweep == 0.0) return At(Line{arc.from, arc.to}, t);
  const double c = std::cos(arc.sweep * t), s = std::sin(arc.sweep * t);
  const double dx = arc.from.x - arc.center.x, dy = arc.from.y - arc.center.y;
  return {arc.center.x + dx * c - dy * s, arc.center.y + dx * s + dy * c};
}
XY At(const EllipticArc& arc, double t) { return arc.At(arc.start + arc.sweep * t); }
XY At(const BezierCurve& curve, double t) { return curve.At(t); }

XY Velocity(const Line& line, double) { return {line.to.x - line.from.x, line.to.y - line.from.y}; }
XY Velocity(const CircularArc& arc, double t) {
  if (arc.sweep == 0.0) return Velocity(Line{arc.from, arc.to}, t);
  const XY at = At(arc, t);
  return {-(at.y - arc.center.y) * arc.sweep, (at.x - arc.center.x) * arc.sweep};
}
XY Velocity(const EllipticArc& arc, double t) {
  const double angle = arc.start + arc.sweep * t;
  const double along = -arc.semi_major * std::sin(angle) * arc.sweep;
  const double across = arc.semi_minor * std::cos(angle) * arc.sweep;
  const double c = std::cos(arc.rotation), s = std::sin(arc.rotation);
  return {along * c - across * s, along * s + across * c};
}
XY Velocity(const BezierCurve& curve, double t) {
  const double u = 1.0 - t;
  const auto part = [&](double p0, double p1, double p2, double p3) {
    return 3.0 * u * u * (p1 - p0) + 6.0 * u * t * (p2 - p1) + 3.0 * t * t * (p3 - p2);
  };
  return {part(curve.from.x, curve.control1.x, curve.control2.x, curve.to.x),
          part(curve.from.y, curve.control1.y, curve.control2.y, curve.to.y)};
}

template <class Curve>
double LengthOf(const Curve& curve) {
  return Integrate(
      [&](double t) {
        const XY v = Velocity(curve, t);
        return std::hypot(v.x, v.y);
      },
      0.0, 1.0);
}
double LengthOf(const Line& line) { return Distance(line.from, line.to); }
double LengthOf(const CircularArc& arc) {
  return arc.sweep == 0.0 ? Distance(arc.from, arc.to) : std::fabs(arc.sweep) * arc.Radius();
}

template <class Curve>
double ParameterAt(const Curve& curve, double distance, double length) {
  return detail::ParameterAtLength(
      [&](double t) {
        const XY v = Velocity(curve, t);
        return std::hypot(v.x, v.y);
      },
      distance, length);
}
double ParameterAt(const Line&, double distance, double length) { return distance / length; }
double ParameterAt(const CircularArc&, double distance, double length) { return distance / length; }

// Adds the places where a component of the velocity vanishes.
void AddExtremes(const Line&, Envelope&) {}
void AddTurningAngles(double start, double sweep, double first, double step, const auto& add) {
  const double low = std::min(start, start + sweep), high = std::max(start, start + sweep);
  for (double angle = first + std::ceil((low - first) / step) * step; angle <= high; angle += step) add(angle);
}
void AddExtremes(const CircularArc& arc, Envelope& box) {
  if (arc.sweep == 0.0) return;
  const double radius = arc.Radius();
  const double start = std::atan2(arc.from.y - arc.center.y, arc.from.x - arc.center.x);
  AddTurningAngles(start, arc.sweep, 0.0, detail::kTwoPi / 4.0, [&](double angle) {
    box.Union(XY{arc.center.x + radius * std::cos(angle), arc.center.y + radius * std::sin(angle)});
  });
}
void AddExtremes(const EllipticArc& arc, Envelope& box) {
  const double c = std::cos(arc.rotation), s = std::sin(arc.rotation);
  const double x_turn = std::atan2(-arc.semi_minor * s, arc.semi_major * c);
  const double y_turn = std::atan2(arc.semi_minor * c, arc.semi_major * s);
  for (const double turn : {x_turn, y_turn}) {
    AddTurningAngles(arc.start, arc.sweep, turn, detail::kTwoPi / 2.0, [&](double angle) { box.Union(arc.At(angle)); });
  }
}
void AddExtremes(const BezierCurve& curve, Envelope& box) {
  const auto add_roots = [&](double p0, double p1, double p2, double p3) {
    // The derivative over 3: a t^2 + b t + c.
    const double a = p3 - 3.0 * p2 + 3.0 * p1 - p0;
    const double b = 2.0 * (p2 - 2.0 * p1 + p0);
    const double c = p1 - p0;
    std::array<double, 2> roots{-1.0, -1.0};
    if (a == 0.0) {
      if (b != 0.0) roots[0] = -c / b;
    } else if (const double d = b * b - 4.0 * a * c; d >= 0.0) {
      const double q = -0.5 * (b + std::copysign(std::sqrt(d), b));
      roots[0] = q / a;
      if (q != 0.0) roots[1] = c / q;
    }
    for (const double t : roots) {
      if (t > 0.0 && t < 1.0) box.Union(curve.At(t));
    }
  };
  add_roots(curve.from.x, curve.control1.x, curve.control2.x, curve.to.x);
  add_roots(curve.from.y, curve.control1.y, curve.control2.y, curve.to.y);
}

// The area between a curve and its chord, and that area's first moments.
struct Moments {
  double area = 0.0, x = 0.0, y = 0.0;
};
Moments BeyondChord(const Line&) { return {}; }

// sweep - sin(sweep), also where the two nearly cancel.
double SweepMinusSine(double sweep) {
  if (std::fabs(sweep) > 1.0) return sweep - std::sin(sweep);
  double term = sweep * sweep * sweep / 6.0, sum = 0.0;
  for (int order = 5; order <= 23; order += 2) {
    sum += term;
    term *= -sweep * sweep / (order * (order - 1));
  }
  return sum;
}

// The segment of the unit circle about the origin from the angle `start`.
Moments CircleSegment(double start, double sweep) {
  const double half_sine = std::sin(sweep / 2.0);
  const double reach = 2.0 / 3.0 * half_sine * half_sine * half_sine;
  const double middle = start + sweep / 2.0;
  return {SweepMinusSine(sweep) / 2.0, reach * std::cos(middle), reach * std::sin(middle)};
}

Moments BeyondChord(const EllipticArc& arc) {
  const Moments unit = CircleSegment(arc.start, arc.sweep);
  const double scale = arc.semi_major * arc.semi_minor;
  const double along = scale * arc.semi_major * unit.x, across = scale * arc.semi_minor * unit.y;
  const double c = std::cos(arc.rotation), s = std::sin(arc.rotation);
  const double area = scale * unit.area;
  return {area, area * arc.center.x + along * c - across * s, area * arc.center.y + along * s + across * c};
}

Moments BeyondChord(const CircularArc& arc) {
  if (arc.sweep == 0.0) return {};
  const double radius = arc.Radius();
  const double start = std::atan2(arc.from.y - arc.center.y, arc.from.x - arc.center.x);
  return BeyondChord(EllipticArc{arc.from, arc.to, arc.center, radius, radius, 0.0, start, arc.sweep});
}

// Green's theorem about the curve's own start, so that no precision is lost far from the origin. The integrands are
// polynomials of degree 5 and 8, which the rule takes exactly. The chord adds nothing to them.
Moments BeyondChord(const BezierCurve& curve) {
  const XY origin = curve.from;
  const auto integral = [&](auto weight) {
    return detail::GaussRule(
        [&](double t) {
          const XY at = At(curve, t), v = Velocity(curve, t);
          const XY p{at.x - origin.x, at.y - origin.y};
          return weight(p) * (p.x * v.y - p.y * v.x);
        },
        0.0, 1.0);
  };
  const double area = integral([](XY) { return 0.5; });
  return {area, integral([](XY p) { return p.x / 3.0; }) + area * origin.x,
          integral([](XY p) { return p.y / 3.0; }) + area * origin.y};
}

// A similarity: scale and turn as one complex factor, then a move.
struct Similarity {
  double real = 1.0, imaginary = 0.0;
  XY from, to;

  Similarity(XY old_from, XY old_to, XY new_from, XY new_to) : from(old_from), to(new_from) {
    const double ox = old_to.x - old_from.x, oy = old_to.y - old_from.y;
    const double nx = new_to.x - new_from.x, ny = new_to.y - new_from.y;
    const double square = ox * ox + oy * oy;
    if (square == 0.0 || (ox == nx && oy == ny)) return;
    real = (nx * ox + ny * oy) / square;
    imaginary = (ny * ox - nx * oy) / square;
  }
  [[nodiscard]] XY Map(XY point) const {
    const double dx = point.x - from.x, dy = point.y - from.y;
    return {to.x + dx * real - dy * imaginary, to.y + dx * imaginary + dy * real};
  }
  [[nodiscard]] double Scale() const { return std::hypot(real, imaginary); }
  [[nodiscard]] double Turn() const { return std::atan2(imaginary, real); }
};

}  // namespace

esriGeometryType Segment::GeometryType() const {
  return std::visit(Overloaded{[](const Line&) { return esriGeometryLine; },
                               [](const CircularArc&) { return esriGeometryCircularArc; },
                               [](const EllipticArc&) { return esriGeometryEllipticArc; },
                               [](const BezierCurve&) { return esriGeometryBezier3Curve; }},
                    shape_);
}

XY Segment::FromPoint() const {
  return std::visit([](const auto& curve) { return curve.from; }, shape_);
}

XY Segment::ToPoint() const {
  return std::visit([](const auto& curve) { return curve.to; }, shape_);
}

double Segment::Length() const {
  return std::visit([](const auto& curve) { return LengthOf(curve); }, shape_);
}

XY Segment::QueryPoint(esriSegmentExtension extension, double distance, bool as_ratio) const {
  const double length = Length();
  if (as_ratio) distance *= length;
  if (distance == 0.0 || length == 0.0) return FromPoint();
  if (distance == length) return ToPoint();
  if (distance > 0.0 && distance < length) {
    return std::visit([&](const auto& curve) { return At(curve, ParameterAt(curve, distance, length)); }, shape_);
  }
  const bool before = distance < 0.0;
  if (extension == esriNoExtension) return before ? FromPoint() : ToPoint();
  return std::visit(
      [&](const auto& curve) {
        const XY end = before ? curve.from : curve.to;
        const XY v = Velocity(curve, before ? 0.0 : 1.0);
        const double speed = std::hypot(v.x, v.y);
        const double beyond = before ? distance : distance - length;
        return speed == 0.0 ? end : XY{end.x + v.x / speed * beyond, end.y + v.y / speed * beyond};
      },
      shape_);
}

Envelope Segment::Envelope() const {
  tessarine::Envelope box;
  box.Union(FromPoint());
  box.Union(ToPoint());
  std::visit([&](const auto& curve) { AddExtremes(curve, box); }, shape_);
  return box;
}

double Segment::AreaBeyondChord() const {
  return std::visit([](const auto& curve) { return BeyondChord(curve).area; }, shape_);
}

XY Segment::MomentBeyondChord() const {
  const Moments moments = std::visit([](const auto& curve) { return BeyondChord(curve); }, shape_);
  return {moments.x, moments.y};
}

Segment Segment::Reversed() const {
  return std::visit(Overloaded{[](const Line& line) -> Segment {
                                 return Line{line.to, line.from};
                               },
                               [](const CircularArc& arc) -> Segment {
                                 return CircularArc{arc.to, arc.from, arc.center, -arc.sweep};
                               },
                               [](EllipticArc arc) -> Segment {
                                 std::swap(arc.from, arc.to);
                                 arc.start += arc.sweep;
                                 arc.sweep = -arc.sweep;
                                 return arc;
                               },
                               [](const BezierCurve& curve) -> Segment {
                                 return BezierCurve{curve.to, curve.control2, curve.control1, curve.from};
                               }},
                    shape_);
}

Segment Segment::Moved(double dx, double dy) const {
  const XY from = FromPoint(), to = ToPoint();
  return WithEnds({from.x + dx, from.y + dy}, {to.x + dx, to.y + dy});
}

Segment Segment::WithEnds(XY from, XY to) const {
  const Similarity map(FromPoint(), ToPoint(), from, to);
  return std::visit(Overloaded{[&](const Line&) -> Segment {
                                 return Line{from, to};
                               },
                               [&](const CircularArc& arc) -> Segment {
                                 return CircularArc{from, to, map.Map(arc.center), arc.sweep};
                               },
                               [&](EllipticArc arc) -> Segment {
                                 arc.center = map.Map(arc.center);
                                 arc.semi_major *= map.Scale();
                                 arc.semi_minor *= map.Scale();
                                 arc.rotation += map.Turn();
                                 arc.from = from;
                                 arc.to = to;
                                 return arc;
                               },
                               [&](const BezierCurve& curve) -> Segment {
                                 return BezierCurve{from, map.Map(curve.control1), map.Map(curve.control2), to};
                               }},
                    shape_);
}

}  // namespace tessarine
