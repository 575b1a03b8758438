// SPDX-License-Identifier: GPL-2.0-or-later
// A class or table of a personal geodatabase as a layer of GDAL's, so that the rest of the engine reads and writes it
// as any other.
//
// Rows are read as they lie where that is the order of their identifiers, else by identifier. An insert, a change and a
// delete write the row and the row of the table that tells the cells of shapes; indexes, maps and counts follow with
// the commit of the database (jet/table.h), and `Settle` writes extents once, at the end. Finding a row by identifier
// makes a map of all of them once; from then on a row costs the same however many there are.
#pragma once

#include <ogrsf_frmts.h>

#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "engine/personal_geodatabase_catalog.h"
#include "engine/personal_geodatabase_xml.h"
#include "jet/database.h"

namespace tessarine::engine {

class PersonalLayer final : public OGRLayer {
 public:
  enum class Access { Read, Write };
  PersonalLayer(std::shared_ptr<jet::Database> database, PersonalClass description, Access access, bool can_write);
  ~PersonalLayer() override;

  OGRFeatureDefn* GetLayerDefn() override;
  const char* GetFIDColumn() override { return fid_name_.c_str(); }
  const char* GetGeometryColumn() override { return description_.shape_column.c_str(); }
  void ResetReading() override;
  OGRFeature* GetNextFeature() override;
  OGRFeature* GetFeature(GIntBig fid) override;
  GIntBig GetFeatureCount(int force) override;
  OGRErr GetExtent(OGREnvelope* extent, int force) override;
  OGRErr GetExtent(int geometry, OGREnvelope* extent, int force) override {
    return OGRLayer::GetExtent(geometry, extent, force);
  }
  int TestCapability(const char* capability) override;

  OGRErr CreateField(OGRFieldDefn* field, int approximate) override;
  OGRErr ICreateFeature(OGRFeature* feature) override;
  OGRErr ISetFeature(OGRFeature* feature) override;
  OGRErr DeleteFeature(GIntBig fid) override;

  /// Writes these attributes of a row, and nothing else of it. A `jet::Error` where that fails.
  void WriteAttributes(const OGRFeature& feature, std::span<const int> attributes);
  [[nodiscard]] const PersonalClass& Description() const { return description_; }
  /// Writes what the geodatabase's own tables tell of the class anew. A `jet::Error` where that fails.
  void Settle();

 private:
  void DefineFields();
  [[nodiscard]] std::unique_ptr<OGRFeature> FeatureOf(GIntBig fid, jet::RowValues values) const;
  [[nodiscard]] std::unique_ptr<OGRFeature> NextRow();
  [[nodiscard]] GIntBig FidOf(const jet::RowValues& values, GIntBig row) const;
  [[nodiscard]] std::map<std::int32_t, jet::RowId>& Places();
  [[nodiscard]] jet::RowId PlaceOf(GIntBig fid);
  [[nodiscard]] jet::Value ValueOf(const OGRFeature& feature, int attribute) const;
  [[nodiscard]] bool ReadsByNumber();
  enum class Row { New, Stored };
  struct PlacedShape {
    std::optional<OGREnvelope> box;  // none without a shape
    NumberRange heights, measures;
  };
  [[nodiscard]] PlacedShape AddShape(const OGRFeature& feature, jet::ValueChanges& changes);
  void TakeShape(std::int32_t fid, Row row, const PlacedShape& placed);
  [[nodiscard]] const ClassFacts& Facts();
  void MoveInIndex(std::int32_t fid, Row row, const OGREnvelope* box);
  void FindMeasures();

  // The rows of the table that tells the cells of shapes.
  struct ShapeIndex {
    jet::Table& table;
    std::size_t number, left, bottom, right, top;              // columns
    std::optional<std::map<std::int32_t, jet::RowId>> places;  // once one was asked for
  };
  void RequireWritable() const;

  std::shared_ptr<jet::Database> database_;
  PersonalClass description_;
  jet::Table& table_;
  Access access_;
  bool can_write_;
  OGRFeatureDefn* definition_ = nullptr;
  std::string fid_name_;
  std::optional<std::size_t> fid_column_, shape_column_, length_column_, area_column_;
  std::vector<std::size_t> columns_;  // of the attributes
  std::optional<jet::Table::Scan> scan_;
  GIntBig rows_read_ = 0;
  std::optional<std::map<std::int32_t, jet::RowId>> places_;
  std::optional<ShapeIndex> shape_index_;
  std::optional<bool> by_number_;
  std::int64_t last_number_ = kBeforeAll;  // of the walk
  std::optional<ClassFacts> facts_;
  bool failed_ = false, settled_ = true, measures_found_ = false, aliases_set_ = false;

  static constexpr std::int64_t kBeforeAll = std::numeric_limits<std::int64_t>::min();
};

}  // namespace tessarine::engine
