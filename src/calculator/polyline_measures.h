// SPDX-License-Identifier: GPL-2.0-or-later
// Measures of polylines. Azimuths run from the first point of the first part to the last point of the last one,
// whatever lies between; a line whose ends coincide has the azimuth -9999.
#pragma once

#include <optional>

#include "calculator/measures.h"
#include "shapes/polyline_measures.h"

namespace tessarine {

class PolylineRecord final : public MeasureRecord {
 public:
  PolylineRecord(std::shared_ptr<Polyline> shape, MeasureSettings& settings);

  [[nodiscard]] const Polyline& Shape() const { return *shape_; }

  // On the plane of the data's coordinates.
  [[nodiscard]] double Length() const;
  [[nodiscard]] XY StartPoint() const;
  [[nodiscard]] XY Midpoint() const;
  [[nodiscard]] XY EndPoint() const;
  [[nodiscard]] double Azimuth() const;

  // On the spheroid, in projected and geographic layers.
  [[nodiscard]] double SpheroidalLength();
  [[nodiscard]] double StartAzimuth();
  [[nodiscard]] double EndAzimuth();

  /// The middle of the spheroidal length, in the projection of the layer; the first vertex of a line without length.
  [[nodiscard]] XY ProjectedSpheroidalMidpoint();

  /// The same in a geographic layer, in the latitudes of the data.
  [[nodiscard]] XY SpheroidalMidpoint();
  // The ends in a geographic layer. With planetocentric data they go through the conversion to planetocentric latitudes
  // although they are stored so already, and differ from the stored vertex.
  [[nodiscard]] XY StartLongitudeLatitude();
  [[nodiscard]] XY EndLongitudeLatitude();

 private:
  const std::shared_ptr<Polyline>& GeographicLine();
  [[nodiscard]] XY LongitudeLatitudeOf(XY vertex);
  void MeasureLength();
  void FindMidpoint();
  [[nodiscard]] XY OnlyPlace();
  void SolveAzimuths();

  std::shared_ptr<Polyline> shape_;
  std::shared_ptr<Polyline> geographic_;
  std::optional<MyGeometricOperations::MeasuredPolyline> measured_;
  std::shared_ptr<Point> midpoint_;  // in planetographic latitudes
  double start_azimuth_ = kNullMark, end_azimuth_ = kNullMark;
};

}  // namespace tessarine
