// SPDX-License-Identifier: GPL-2.0-or-later
// The centre of polygons on the sphere against an independent integral.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "shapes/spherical_area.h"

namespace tessarine::MyGeometricOperations {
namespace {

const double kDegree = std::acos(-1.0) / 180.0;

struct Vector {
  double x = 0.0, y = 0.0, z = 0.0;
};

Vector UnitAt(XY at) {
  const double lon = at.x * kDegree, lat = at.y * kDegree;
  return {std::cos(lat) * std::cos(lon), std::cos(lat) * std::sin(lon), std::sin(lat)};
}

Vector Cross(const Vector& a, const Vector& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double Dot(const Vector& a, const Vector& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

double Angle(const Vector& a, const Vector& b) {
  const Vector normal = Cross(a, b);
  return std::atan2(std::sqrt(Dot(normal, normal)), Dot(a, b));
}

// The integral of the places over a clockwise polygon of great circle arcs: by Stokes' theorem, half the sum of the
// sides, each along the normal of its plane.
Vector MomentOf(const std::vector<XY>& ring) {
  Vector moment;
  for (std::size_t index = 1; index < ring.size(); ++index) {
    const Vector from = UnitAt(ring[index - 1]), to = UnitAt(ring[index]), normal = Cross(to, from);
    const double factor = Angle(from, to) / std::sqrt(Dot(normal, normal)) / 2.0;
    moment.x += factor * normal.x, moment.y += factor * normal.y, moment.z += factor * normal.z;
  }
  return moment;
}

TEST(SphericalCentroid, AgreesWithTheMomentOfTheSurface) {
  struct Row {
    double size, degrees;  // greatest radius of the polygons, and how far the centre may be off
  };
  const Row rows[] = {{0.1, 1e-8}, {1.0, 2e-6}, {3.0, 5e-5}, {10.0, 2e-3}, {30.0, 0.1}};
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  for (const Row& row : rows) {
    for (int round = 0; round < 200; ++round) {
      const XY center{360.0 * unit(random) - 180.0, 110.0 * unit(random) - 55.0};
      const int corners = 3 + round % 30;
      std::vector<XY> ring;
      for (int corner = 0; corner < corners; ++corner) {
        const double angle = -360.0 * corner / corners * kDegree, reach = row.size * (0.3 + 0.7 * unit(random));
        ring.push_back({center.x + 0.7 * reach * std::cos(angle) / std::cos(center.y * kDegree),
                        center.y + reach * std::sin(angle)});
      }
      ring.push_back(ring.front());
      const auto polygon = std::make_shared<Polygon>();
      polygon->AddGeometry(std::make_shared<Ring>(ring));
      XY found;
      ASSERT_GT(SphericalPolygonArea2(polygon, true, found.x, found.y, 1.0, 1.0), 0.0);
      EXPECT_LT(Angle(UnitAt(found), MomentOf(ring)) / kDegree, row.degrees) << corners << " corners of " << row.size;
    }
  }
}

}  // namespace
}  // namespace tessarine::MyGeometricOperations
