// SPDX-License-Identifier: GPL-2.0-or-later
// Fields, field lists and the shape definition of a geometry field.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/geometry_types.h"
#include "platform/object.h"
#include "platform/spatial_reference.h"

namespace tessarine {

enum esriFieldType : std::int32_t {
  esriFieldTypeSmallInteger = 0,
  esriFieldTypeInteger = 1,
  esriFieldTypeSingle = 2,
  esriFieldTypeDouble = 3,
  esriFieldTypeString = 4,
  esriFieldTypeDate = 5,
  esriFieldTypeOID = 6,
  esriFieldTypeGeometry = 7,
  esriFieldTypeBlob = 8,
  esriFieldTypeRaster = 9,
  esriFieldTypeGUID = 10,
  esriFieldTypeGlobalID = 11,
  esriFieldTypeXML = 12,
  esriFieldTypeInteger64 = 64,  ///< a whole number of 64 bits, which the fixed types above have no number for
};

/// What the values of a date field tell.
enum class DateContent : std::uint8_t { DayAndTime, Day, Time };

/// The shape definition of a geometry field.
class GeometryDef final : public virtual Object {
 public:
  esriGeometryType GeometryType = esriGeometryNull;
  std::int32_t GridCount = 0;
  std::int32_t AvgNumPoints = 0;
  bool HasM = false;
  bool HasZ = false;
  SpatialReferenceRef SpatialReference;
  /// Where the shapes of a new class will lie; empty where that isn't known. Formats that keep coordinates on a grid
  /// make it fit.
  Envelope Extent;

  /// The size of one grid level, 0 where none was set.
  [[nodiscard]] double GridSize(std::int32_t level) const;
  void SetGridSize(std::int32_t level, double size);

 private:
  std::vector<double> grid_sizes_;
};

/// One field of a table. A new field is empty: no name, type small integer, all numbers 0.
class Field final : public IClone {
 public:
  std::string Name;
  std::string AliasName;
  esriFieldType Type = esriFieldTypeSmallInteger;
  std::int32_t Length = 0;     ///< characters of a text, bytes of a number; 0 leaves it to the format
  std::int32_t Precision = 0;  ///< digits of a number; 0 leaves it to the format
  std::int32_t Scale = 0;      ///< digits after the point
  DateContent Content = DateContent::DayAndTime;
  bool Editable = true;
  bool IsNullable = true;
  std::shared_ptr<tessarine::GeometryDef> GeometryDef;

  [[nodiscard]] ObjectRef Clone() const override;
  [[nodiscard]] bool IsEqual(const Object& other) const override;
};

using FieldRef = std::shared_ptr<tessarine::Field>;

/// A list of fields, in order, indexes from 0.
class Fields final : public virtual Object {
 public:
  [[nodiscard]] std::int32_t FieldCount() const { return static_cast<std::int32_t>(fields_.size()); }
  /// Raises fault 5 for an index outside the list.
  [[nodiscard]] const FieldRef& Field(std::int32_t index) const;
  /// The position of the field of this name, ignoring case; -1 for an unknown name.
  [[nodiscard]] std::int32_t FindField(std::string_view name) const;
  /// The position of this very field. One of another list is found by its name among the attributes, with case first:
  /// never the identifier or the shape. -1 when there is none.
  [[nodiscard]] std::int32_t IndexOf(const tessarine::Field& field) const;
  void AddField(FieldRef field) { fields_.push_back(std::move(field)); }

  [[nodiscard]] auto begin() const { return fields_.begin(); }
  [[nodiscard]] auto end() const { return fields_.end(); }

 private:
  std::vector<FieldRef> fields_;
};

/// True for all but the identifier and the shape of a row.
[[nodiscard]] inline bool IsAttribute(const Field& field) {
  return field.Type != esriFieldTypeOID && field.Type != esriFieldTypeGeometry;
}

using FieldsRef = std::shared_ptr<const tessarine::Fields>;

}  // namespace tessarine
