// SPDX-License-Identifier: GPL-2.0-or-later
// Polygons on maps, and the same polygons in longitude and latitude.
#pragma once

#include <gtest/gtest.h>
#include <ogr_spatialref.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "calculator/geometry_options.h"
#include "calculator/measures.h"
#include "helpers/shapes.h"
#include "shapes/MyGeometricOperations.h"

namespace tessarine::testing {

inline SpatialReferenceRef Reference(const std::string& text) {
  return SpatialReferenceEnvironment::CreateFromText(text);
}

inline constexpr XY kNoCentroid{-9999.0, -9999.0};

struct MeasuredPolygon {
  double spherical_area, perimeter, spheroidal_area;
  XY centroid;
};

inline double ValueOf(MeasureRecord& record, std::int32_t id) {
  const MeasureSettings& settings = record.Settings();
  return Measure(*FindMeasure(settings.shape, settings.kind, id), record).first.AsDouble();
}

inline XY PositionOf(MeasureRecord& record, std::int32_t id) {
  const MeasureSettings& settings = record.Settings();
  const MeasuredValues values = Measure(*FindMeasure(settings.shape, settings.kind, id), record);
  return {values.first.AsDouble(), values.second.AsDouble()};
}

inline MeasureSettings SettingsOf(const SpatialReferenceRef& reference, esriGeometryType shape = esriGeometryPolygon) {
  const auto spheroid = MyGeometricOperations::DegreesOf(reference)->Datum()->Spheroid();
  return {shape, SpatialKindOf(reference), reference, spheroid->SemiMajorAxis(), spheroid->SemiMinorAxis(), false};
}

inline MeasuredPolygon MeasuresOf(const std::shared_ptr<Polygon>& polygon) {
  MeasureSettings settings = SettingsOf(polygon->SpatialReference());
  const auto record = BeginRecord(CloneOf(*polygon), settings);
  const bool geographic = settings.kind == SpatialKind::Geographic;
  const XY centroid = PositionOf(*record, geographic ? 2 : 4);
  return {ValueOf(*record, geographic ? 1 : 2), ValueOf(*record, geographic ? 3 : 6),
          ValueOf(*record, geographic ? 6 : 9),
          centroid == kNoCentroid ? centroid : MyGeometricOperations::ToDegrees(centroid, settings.reference)};
}

inline double Apart(XY a, XY b) {
  const double across = std::remainder(a.x - b.x, 360.0) * std::cos(b.y * std::numbers::pi / 180.0);
  return std::hypot(across, a.y - b.y);
}

inline void ExpectSame(const MeasuredPolygon& projected, const MeasuredPolygon& geographic) {
  EXPECT_NEAR(projected.spherical_area / geographic.spherical_area, 1.0, 1e-6);
  EXPECT_NEAR(projected.perimeter / geographic.perimeter, 1.0, 1e-6);
  EXPECT_NEAR(projected.spheroidal_area / geographic.spheroidal_area, 1.0, 1e-6);
  EXPECT_LT(Apart(projected.centroid, geographic.centroid), 1e-6);
}

// The shape in the geographic reference beneath a projection, so that no shift of datum comes in.
inline std::shared_ptr<Polygon> InDegrees(const Polygon& shape, const std::string& projection) {
  auto geographic = CloneOf(shape);
  geographic->SetSpatialReference(MyGeometricOperations::DegreesOf(Reference(projection)));
  return geographic;
}

// Brings a polygon in degrees to a projection as other programs do: vertices that it has no place for, as the poles of
// many, come out somewhere far away.
inline void ProjectAsOthersDo(Polygon& polygon, const std::string& projection) {
  OGRSpatialReference projected;
  ASSERT_EQ(projected.SetFromUserInput(projection.c_str()), OGRERR_NONE);
  projected.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const std::unique_ptr<OGRSpatialReference> degrees(projected.CloneGeogCS());
  degrees->SetAngularUnits(SRS_UA_DEGREE, std::numbers::pi / 180.0);
  degrees->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
  const std::unique_ptr<OGRCoordinateTransformation> way(OGRCreateCoordinateTransformation(degrees.get(), &projected));
  for (const auto& part : polygon.Parts()) {
    std::vector<XY> vertices(part->Vertices().begin(), part->Vertices().end());
    for (XY& vertex : vertices) {
      XY there = vertex;
      if (!way->Transform(1, &there.x, &there.y)) {
        there = {vertex.x, vertex.y * (1.0 - 1e-9)};  // not even an infinity: the next best
        ASSERT_TRUE(way->Transform(1, &there.x, &there.y));
      }
      vertex = there;
    }
    part->SetVertices(std::move(vertices));
  }
  polygon.SetSpatialReference(Reference(projection));
}

inline void ExpectSameInBoth(const Polygon& shape, const std::string& projection) {
  const auto geographic = InDegrees(shape, projection);
  const auto projected = CloneOf(*geographic);
  ProjectAsOthersDo(*projected, projection);
  ExpectSame(MeasuresOf(projected), MeasuresOf(geographic));
}

// Shapes that a projection tears, with their vertices so close that the map's edges and the globe's agree.
inline std::vector<XY> Dense(const std::vector<XY>& corners, double step) {
  std::vector<XY> ring;
  for (std::size_t index = 0; index + 1 < corners.size(); ++index) {
    const XY from = corners[index], to = corners[index + 1];
    const int pieces = std::max(1, static_cast<int>(std::hypot(to.x - from.x, to.y - from.y) / step));
    for (int piece = 0; piece < pieces; ++piece) {
      ring.push_back({from.x + (to.x - from.x) * piece / pieces, from.y + (to.y - from.y) * piece / pieces});
    }
  }
  ring.push_back(ring.front());
  return ring;
}

}  // namespace tessarine::testing
