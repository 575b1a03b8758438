// SPDX-License-Identifier: GPL-2.0-or-later
// Spatial references as data: a name, a datum with its spheroid, a unit, a tolerance. The projection engine behind
// them reads the well-known text; the suite never does.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/object.h"

namespace tessarine {

/// The figure of a body: an ellipsoid of revolution, or a sphere with equal axes. Axes in metres.
class Spheroid final : public IClone {
 public:
  Spheroid(std::string name, double semi_major_axis, double semi_minor_axis)
      : name_(std::move(name)), semi_major_axis_(semi_major_axis), semi_minor_axis_(semi_minor_axis) {}

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] double SemiMajorAxis() const { return semi_major_axis_; }
  [[nodiscard]] double SemiMinorAxis() const { return semi_minor_axis_; }

  [[nodiscard]] ObjectRef Clone() const override;
  [[nodiscard]] bool IsEqual(const Object& other) const override;

 private:
  std::string name_;
  double semi_major_axis_;
  double semi_minor_axis_;
};

class Datum final : public virtual Object {
 public:
  Datum(std::string name, std::shared_ptr<const tessarine::Spheroid> spheroid)
      : name_(std::move(name)), spheroid_(std::move(spheroid)) {}

  [[nodiscard]] const std::string& Name() const { return name_; }
  [[nodiscard]] const std::shared_ptr<const tessarine::Spheroid>& Spheroid() const { return spheroid_; }

 private:
  std::string name_;
  std::shared_ptr<const tessarine::Spheroid> spheroid_;
};

/// A unit of coordinates and its size in radians or metres.
struct CoordinateUnit {
  std::string Name;
  double ConversionFactor = 1.0;
};

/// Where a reference counts its longitudes from, in degrees east of Greenwich.
struct PrimeMeridian {
  std::string Name = "Greenwich";
  double Longitude = 0.0;
};

/// Base of the three kinds below. References are never changed once made and are shared freely.
class SpatialReference : public IClone {
 public:
  /// The name a person reads, as "WGS 84 / UTM zone 12N"; "Unknown" for data that has none declared.
  [[nodiscard]] const std::string& Name() const { return name_; }
  /// Well-known text of the reference, empty for an unknown one. Axes always run longitude or easting first.
  [[nodiscard]] const std::string& Wkt() const { return wkt_; }
  /// The authority's code, 0 where there is none.
  [[nodiscard]] std::int32_t FactoryCode() const { return factory_code_; }
  /// The distance under which two coordinates count as one, in the reference's unit: 0.001 metres, and for
  /// degrees the angle of 0.001 metres on the equator of the spheroid. Invalid where no unit is known.
  [[nodiscard]] double XYTolerance() const { return xy_tolerance_; }
  [[nodiscard]] bool XYToleranceValid() const { return xy_tolerance_ > 0.0; }
  /// The spacing of stored coordinates, a tenth of the tolerance.
  [[nodiscard]] double XYResolution() const { return xy_tolerance_ / 10.0; }
  [[nodiscard]] bool IsXYPrecisionEqual(const SpatialReference& other) const;

  /// True when both describe the same reference, whatever their names.
  [[nodiscard]] bool IsEqual(const Object& other) const override;

 protected:
  SpatialReference(std::string name, std::string wkt, std::int32_t factory_code, double xy_tolerance)
      : name_(std::move(name)), wkt_(std::move(wkt)), factory_code_(factory_code), xy_tolerance_(xy_tolerance) {}

 private:
  std::string name_;
  std::string wkt_;
  std::int32_t factory_code_;
  double xy_tolerance_;
};

using SpatialReferenceRef = std::shared_ptr<const SpatialReference>;

class GeographicCoordinateSystem final : public SpatialReference {
 public:
  GeographicCoordinateSystem(std::string name, std::string wkt, std::int32_t factory_code, double xy_tolerance,
                             std::shared_ptr<const tessarine::Datum> datum, tessarine::CoordinateUnit unit,
                             tessarine::PrimeMeridian prime_meridian = {},
                             std::shared_ptr<const GeographicCoordinateSystem> in_degrees = nullptr)
      : SpatialReference(std::move(name), std::move(wkt), factory_code, xy_tolerance),
        datum_(std::move(datum)),
        unit_(std::move(unit)),
        prime_meridian_(std::move(prime_meridian)),
        in_degrees_(std::move(in_degrees)) {}

  [[nodiscard]] const std::shared_ptr<const tessarine::Datum>& Datum() const { return datum_; }
  /// The angular unit, its factor in radians.
  [[nodiscard]] const tessarine::CoordinateUnit& CoordinateUnit() const { return unit_; }
  [[nodiscard]] const tessarine::PrimeMeridian& PrimeMeridian() const { return prime_meridian_; }
  /// The same reference with degrees as its unit; null where its unit is the degree.
  [[nodiscard]] const std::shared_ptr<const GeographicCoordinateSystem>& InDegrees() const { return in_degrees_; }
  [[nodiscard]] ObjectRef Clone() const override;

 private:
  std::shared_ptr<const tessarine::Datum> datum_;
  tessarine::CoordinateUnit unit_;
  tessarine::PrimeMeridian prime_meridian_;
  std::shared_ptr<const GeographicCoordinateSystem> in_degrees_;
};

class ProjectedCoordinateSystem final : public SpatialReference {
 public:
  ProjectedCoordinateSystem(std::string name, std::string wkt, std::int32_t factory_code, double xy_tolerance,
                            std::shared_ptr<const tessarine::GeographicCoordinateSystem> geographic,
                            tessarine::CoordinateUnit unit)
      : SpatialReference(std::move(name), std::move(wkt), factory_code, xy_tolerance),
        geographic_(std::move(geographic)),
        unit_(std::move(unit)) {}

  /// The geographic reference beneath the projection, in degrees whatever the unit of the projection's definition is.
  [[nodiscard]] const std::shared_ptr<const tessarine::GeographicCoordinateSystem>& GeographicCoordinateSystem() const {
    return geographic_;
  }
  /// The linear unit, its factor in metres.
  [[nodiscard]] const tessarine::CoordinateUnit& CoordinateUnit() const { return unit_; }
  [[nodiscard]] ObjectRef Clone() const override;

 private:
  std::shared_ptr<const tessarine::GeographicCoordinateSystem> geographic_;
  tessarine::CoordinateUnit unit_;
};

/// The reference of data that has none declared.
class UnknownCoordinateSystem final : public SpatialReference {
 public:
  UnknownCoordinateSystem() : SpatialReference("Unknown", "", 0, 0.0) {}

  [[nodiscard]] ObjectRef Clone() const override;
};

/// Makes predefined references. Codes are those of the EPSG authority and, above them, of the ESRI authority.
class SpatialReferenceEnvironment final {
 public:
  /// Fault 5 names the code when the database doesn't hold it.
  [[nodiscard]] static std::shared_ptr<const GeographicCoordinateSystem> CreateGeographicCoordinateSystem(
      std::int32_t code);
  [[nodiscard]] static std::shared_ptr<const Spheroid> CreateSpheroid(std::int32_t code);
  /// From well-known text, "EPSG:32612", "ESRI:104905" or a PROJ string; an empty text gives the unknown reference.
  /// Fault 5 when the text describes no reference.
  [[nodiscard]] static SpatialReferenceRef CreateFromText(std::string_view text);
};

/// The reference itself where it is geographic, the one beneath where it is projected; null for any other and for null.
[[nodiscard]] std::shared_ptr<const GeographicCoordinateSystem> GeographicOf(const SpatialReferenceRef& reference);

}  // namespace tessarine
