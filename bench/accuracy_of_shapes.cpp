// SPDX-License-Identifier: GPL-2.0-or-later
#include "bench/accuracy_of_shapes.h"

#include <GeographicLib/Geocentric.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <random>
#include <vector>

#include "geodesy/small_angles.h"
#include "platform/exact_geodesy.h"
#include "shapes/MyGeometricOperations.h"

namespace tessarine::bench {
namespace {

namespace shapes = MyGeometricOperations;
using Ring = std::vector<XY>;

constexpr double kDegree = std::numbers::pi / 180.0;
constexpr double kEarthA = 6378137.0, kEarthB = 6356752.31424518;

struct Body {
  const char* name;
  double a, b;
};
constexpr Body kBodies[] = {{"WGS 1984", kEarthA, kEarthB},
                            {"Mars 2000", 3396190.0, 3376200.0},
                            {"Jupiter 2000", 71492000.0, 66854000.0},
                            {"Saturn 2000", 60268000.0, 54364000.0}};

// A clockwise star about a place, from a triangle to 60 corners.
Ring Star(XY at, double across, std::mt19937_64& random) {
  constexpr std::array kCorners = {3, 4, 5, 8, 20, 60};
  std::uniform_real_distribution<double> share(0.4, 1.0);
  const int corners = kCorners[random() % kCorners.size()];
  Ring ring;
  for (int corner = 0; corner < corners; ++corner) {
    const double angle = (corner + share(random)) * 2.0 * std::numbers::pi / corners;
    const double reach = across / 2.0 * share(random);
    const double lat = at.y + reach * std::cos(angle);
    ring.push_back({at.x + reach * std::sin(angle) / std::cos(at.y * kDegree), lat});
  }
  ring.push_back(ring.front());
  return ring;
}

std::shared_ptr<Polygon> PolygonOf(const Ring& ring) {
  auto polygon = std::make_shared<Polygon>();
  polygon->AddGeometry(std::make_shared<tessarine::Ring>(ring));
  return polygon;
}

using Vector = std::array<double, 3>;

Vector UnitOf(XY at) {
  return {std::cos(at.y * kDegree) * std::cos(at.x * kDegree), std::cos(at.y * kDegree) * std::sin(at.x * kDegree),
          std::sin(at.y * kDegree)};
}

Vector Cross(const Vector& u, const Vector& v) {
  return {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
}

double Length(const Vector& v) { return std::hypot(v[0], v[1], v[2]); }

// The angle between two directions, in degrees.
double Between(const Vector& u, const Vector& v) {
  return std::atan2(Length(Cross(u, v)), u[0] * v[0] + u[1] * v[1] + u[2] * v[2]) / kDegree;
}

// The centre of mass of a surface on the sphere: the normals of its edges, each by the edge's angle.
Vector CentreOf(const Ring& ring) {
  Vector sum{};
  for (std::size_t index = 1; index < ring.size(); ++index) {
    const Vector u = UnitOf(ring[index - 1]), v = UnitOf(ring[index]);
    const Vector normal = Cross(v, u);
    const double length = Length(normal);
    if (length == 0.0) continue;
    for (std::size_t axis = 0; axis < 3; ++axis) sum[axis] += normal[axis] / length * Between(u, v);
  }
  return sum;
}

// The solid angle of a clockwise ring of great circles: a fan of triangles by their triple products, in long doubles.
double SolidAngleOf(const Ring& ring) {
  using Wide = std::array<long double, 3>;
  const auto unit = [](XY at) {
    const long double lon = at.x * std::numbers::pi_v<long double> / 180,
                      lat = at.y * std::numbers::pi_v<long double> / 180;
    return Wide{std::cos(lat) * std::cos(lon), std::cos(lat) * std::sin(lon), std::sin(lat)};
  };
  const auto dot = [](const Wide& u, const Wide& v) { return u[0] * v[0] + u[1] * v[1] + u[2] * v[2]; };
  const Wide p = unit(ring.front());
  long double sum = 0;
  for (std::size_t index = 1; index < ring.size(); ++index) {
    const Wide q = unit(ring[index - 1]), r = unit(ring[index]);
    const Wide u = {q[0] - p[0], q[1] - p[1], q[2] - p[2]}, w = {r[0] - p[0], r[1] - p[1], r[2] - p[2]};
    const Wide normal = {u[2] * w[1] - u[1] * w[2], u[0] * w[2] - u[2] * w[0], u[1] * w[0] - u[0] * w[1]};
    sum += 2 * std::atan2(dot(p, normal), 1 + dot(p, q) + dot(q, r) + dot(r, p));
  }
  return static_cast<double>(sum);
}

struct Size {
  const char* name;
  double across;
};
constexpr Size kSizes[] = {{"10 m", 0.0001}, {"1 km", 0.01}, {"2 degrees", 2}, {"20 degrees", 20}, {"60 degrees", 60}};

[[nodiscard]] XY AnyPlace(std::mt19937_64& random, double farthest) {
  std::uniform_real_distribution<double> share(-1.0, 1.0);
  return {180.0 * share(random), farthest * share(random)};
}

double SphericalArea(const Ring& ring, const Body& body) {
  XY unused{};
  return shapes::SphericalPolygonArea2(PolygonOf(ring), false, unused.x, unused.y, body.a, body.b);
}

}  // namespace

// The spherical area beside the solid angle of the same ring, and beside the one on the spheroid.
void PrintAreas() {
  const double radius = std::cbrt(kEarthA * kEarthA * kEarthB);
  std::printf("\n| polygons across | worst spherical area, against the same sphere |\n|---|---|\n");
  for (const Size& size : kSizes) {
    std::mt19937_64 random(4);
    double worst = 0.0;
    for (int index = 0; index < 20000; ++index) {
      const Ring ring = Star(AnyPlace(random, 55.0), size.across, random);
      const double exact = SolidAngleOf(ring) * radius * radius;
      worst = std::max(worst, std::fabs(SphericalArea(ring, {"", kEarthA, kEarthB}) / exact - 1.0));
    }
    std::printf("| %s | %.1e of itself |\n", size.name, worst);
  }
  std::printf(
      "\n| body | spherical area against the spheroid, at the equator | at 45 degrees | at the poles "
      "|\n|---|---|---|---|\n");
  for (const Body& body : kBodies) {
    std::printf("| %s |", body.name);
    for (const double latitude : {0.0, 45.0, 89.0}) {
      const double half = 0.05, wide = half / std::cos(latitude * kDegree);
      const Ring box = {{-wide, latitude - half},
                        {-wide, latitude + half},
                        {wide, latitude + half},
                        {wide, latitude - half},
                        {-wide, latitude - half}};
      std::printf(" %+.2f %% |", 100.0 * (SphericalArea(box, body) / ExactRingArea(box, body.a, body.b) - 1.0));
    }
    std::printf("\n");
  }
}

void PrintCentroids() {
  std::printf("\n| polygons across | worst spherical centroid |\n|---|---|\n");
  for (const Size& size : kSizes) {
    if (size.across < 1.0) continue;
    std::mt19937_64 random(5);
    double worst = 0.0;
    for (int index = 0; index < 20000; ++index) {
      const Ring ring = Star(AnyPlace(random, 55.0), size.across, random);
      XY centre{};
      static_cast<void>(shapes::SphericalPolygonArea2(PolygonOf(ring), true, centre.x, centre.y, kEarthA, kEarthB));
      worst = std::max(worst, Between(UnitOf(centre), CentreOf(ring)));
    }
    std::printf("| %s | %.1e degrees |\n", size.name, worst);
  }
}

// The middle of a line of one segment: as far from both ends, and on the line, by exact distances.
void PrintMidpoints() {
  std::printf("\n| body | lines up to | worst midpoint along the line | across |\n|---|---|---|---|\n");
  for (const Body& body : kBodies) {
    for (const double longest : {1.0, 30.0, 150.0}) {
      std::mt19937_64 random(6);
      std::uniform_real_distribution<double> share(-1.0, 1.0);
      double along = 0.0, across = 0.0;
      for (int index = 0; index < 20000; ++index) {
        const XY from = AnyPlace(random, 85.0);
        const XY to{from.x + longest * share(random) * 0.7,
                    std::clamp(from.y + longest * share(random) * 0.7, -85.0, 85.0)};
        double ratio = 0.5, total = 0.0;
        const std::vector<XY> line = {from, to};
        const XY middle = shapes::SpheroidalPolylineMidpoint2(line, ratio, true, total, body.a, body.b);
        const ExactGeodesic whole = SolveInverseExactly(from, to, body.a, body.b);
        const ExactGeodesic half = SolveInverseExactly(from, middle, body.a, body.b);
        const double scale = kEarthA / body.a;
        along = std::max(along, std::fabs(half.distance - whole.distance / 2.0) * scale);
        const double turn = std::remainder(half.azimuth1 - whole.azimuth1, 360.0) * kDegree;
        across = std::max(across, std::fabs(turn * body.a * std::sin(half.distance / body.a)) * scale);
      }
      std::printf("| %s | %.0f degrees | %.3g mm | %.3g mm |\n", body.name, longest, along * 1000.0, across * 1000.0);
    }
  }
}

// The mean of two places, brought back along the normal by the exact inverse of the geocentric coordinates.
void PrintMultipointCentroids() {
  const GeographicLib::Geocentric earth(kEarthA, (kEarthA - kEarthB) / kEarthA);
  std::printf("\n| two places apart by | worst latitude of their centre |\n|---|---|\n");
  for (const double apart : {10.0, 20.0, 60.0, 120.0}) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    double worst = 0.0;
    for (int index = 0; index < 50000; ++index) {
      const XY from = AnyPlace(random, 90.0);
      const double turn = 2.0 * std::numbers::pi * share(random);
      const double sine = std::sin(from.y * kDegree) * std::cos(apart * kDegree) +
                          std::cos(from.y * kDegree) * std::sin(apart * kDegree) * std::cos(turn);
      const double lat = std::asin(std::clamp(sine, -1.0, 1.0));
      const double lon = std::atan2(std::sin(turn) * std::sin(apart * kDegree) * std::cos(from.y * kDegree),
                                    std::cos(apart * kDegree) - std::sin(from.y * kDegree) * sine);
      const std::vector<XY> points = {from, {from.x + lon / kDegree, lat / kDegree}};
      Vector mean{};
      for (const XY point : points) {
        Vector at{};
        earth.Forward(point.y, point.x, 0.0, at[0], at[1], at[2]);
        for (std::size_t axis = 0; axis < 3; ++axis) mean[axis] += at[axis] / 2.0;
      }
      double exact_lat = 0.0, exact_lon = 0.0, height = 0.0;
      earth.Reverse(mean[0], mean[1], mean[2], exact_lat, exact_lon, height);
      const XY centre = shapes::MultipointCentroidSpheroid(points, kEarthA, kEarthB, 0.0);
      worst = std::max(worst, std::fabs(centre.y - exact_lat));
    }
    std::printf("| %.0f degrees | %.1e degrees |\n", apart, worst);
  }
}

// How often the series and the C library round apart, and what becomes of it in a triangle.
void PrintSmallAngles() {
  struct Function {
    const char* name;
    double (*series)(double);
    double (*library)(double);
  };
  const Function functions[] = {
      {"sine", geodesy::detail::SineSeries, [](double x) { return std::sin(x); }},
      {"tangent", geodesy::detail::TangentSeries, [](double x) { return std::tan(x); }},
      {"arc tangent", geodesy::detail::ArcTangentSeries, [](double x) { return std::atan(x); }}};
  std::printf("\n| small angles | other than the C library | by at most |\n|---|---|---|\n");
  std::mt19937_64 random(8);
  std::uniform_real_distribution<double> exponent(-30.0, -2.0);
  for (const Function& function : functions) {
    int other = 0;
    double most = 0.0;
    constexpr int kArguments = 1'000'000;
    for (int index = 0; index < kArguments; ++index) {
      const double x = std::exp2(exponent(random));
      const double mine = function.series(x), theirs = function.library(x);
      if (mine == theirs) continue;
      ++other;
      most = std::max(most, std::fabs(mine - theirs) / (std::nextafter(theirs, 1.0) - theirs));
    }
    std::printf("| %s | %.2f %% | %.0f unit of the last place |\n", function.name, 100.0 * other / kArguments, most);
  }
}

}  // namespace tessarine::bench
