// SPDX-License-Identifier: GPL-2.0-or-later
// Cursors over OGR layers.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "engine/attribute_update.h"
#include "engine/exponent_cells.h"
#include "engine/filegdb_grid.h"
#include "engine/ogr_class.h"
#include "engine/reading_warnings.h"
#include "engine/shapefile_points.h"
#include "platform/reads_aside.h"

namespace tessarine::engine {

/// Sets the filters of a handle; a condition that OGR refuses raises a fault that quotes it.
void ApplyFilter(LayerHandle& handle, const QueryFilter& filter);

/// Why the shape of a row can't be had, by what GDAL said at reading it; empty where it was read, or there is none.
[[nodiscard]] std::string ShapeFaultOf(const OGRFeature& feature, const ReadingScope& errors, const std::string& path);

/// Reads rows.
class ReadingCursor : public IFeatureCursor, public IReadsAside {
 public:
  ReadingCursor(std::shared_ptr<OgrClass> owner, LayerHandle handle, const QueryFilter* filter, Recycling recycling);

  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override;
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return NextFeature(); }
  void UpdateFeature(const std::shared_ptr<IFeature>& feature) override { UpdateRow(feature); }
  void UpdateRow(const std::shared_ptr<IRow>& row) override;
  std::int64_t InsertFeature(const IFeatureBuffer&) override;
  std::int64_t InsertRow(const IRowBuffer&) override;
  void Flush() override {}
  void Close() override;
  /// Its handle is its own. Whoever writes the file may have to take the rest of the rows into memory, though.
  [[nodiscard]] bool MayReadAside() const override { return !handle_.IsFileBeingWritten(); }

  /// The next row that belongs to the class and meets the filter.
  [[nodiscard]] virtual OgrFeatureHandle NextOgr();
  /// Why the shape of the row that was read last can't be had; empty where it was read, or the row has none.
  [[nodiscard]] const std::string& ShapeFault() const { return shape_fault_; }

 protected:
  /// The row of this identifier, or null.
  [[nodiscard]] OgrFeatureHandle FetchOgr(std::int64_t oid);
  [[nodiscard]] const std::shared_ptr<OgrClass>& Owner() const { return owner_; }
  [[nodiscard]] LayerHandle& Handle() { return handle_; }

 private:
  [[nodiscard]] bool Matches(const OGRFeature& feature) const;
  void TakeComplaints(const OGRFeature& feature, const ReadingScope& errors);

  std::shared_ptr<OgrClass> owner_;
  LayerHandle handle_;
  GeometryRef region_;
  Recycling recycling_;
  std::shared_ptr<OgrFeature> recycled_;
  std::string shape_fault_;
};

/// Rows that are written between two commits, where a commit may come midway.
inline constexpr std::int64_t kRowsPerCommit = 20000;

/// The rows that an updating cursor is restricted to: identifiers in order; null means all rows.
using ChosenRows = std::shared_ptr<const std::vector<std::int64_t>>;

/// Reads rows and writes them back. Only what was set since a row was read is written: attributes without the shape,
/// where the format allows it.
class UpdatingCursor final : public ReadingCursor {
 public:
  UpdatingCursor(std::shared_ptr<OgrClass> owner, LayerHandle handle, const QueryFilter* filter, Recycling recycling,
                 ChosenRows chosen);
  ~UpdatingCursor() override;

  void UpdateRow(const std::shared_ptr<IRow>& row) override;
  void Flush() override;
  void Close() override;
  /// Rows are read and written by one handle.
  [[nodiscard]] bool MayReadAside() const override { return false; }

  [[nodiscard]] OgrFeatureHandle NextOgr() override;

 private:
  void BeginTransaction();
  void WriteRow(const OgrRow& row);
  void WriteWhole(const OgrRow& row);
  void WriteWholeToFileGdb(const OgrRow& row);
  void CloseWholeRows();
  void Commit();

  ChosenRows chosen_;
  bool fetches_ = false;  ///< each chosen row is fetched by its identifier
  std::size_t next_ = 0;
  std::unique_ptr<AttributeUpdate> update_;
  std::optional<LayerHandle> whole_rows_;
  std::optional<GdbGrid> grid_;  ///< of the class that `whole_rows_` writes to
  bool transactions_;
  bool in_transaction_ = false;
  std::int64_t since_commit_ = 0;
};

/// Appends rows.
class InsertingCursor final : public IFeatureCursor {
 public:
  InsertingCursor(std::shared_ptr<OgrClass> owner, LayerHandle handle);
  ~InsertingCursor() override;

  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override { return nullptr; }
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return nullptr; }
  void UpdateFeature(const std::shared_ptr<IFeature>&) override;
  void UpdateRow(const std::shared_ptr<IRow>&) override;
  std::int64_t InsertFeature(const IFeatureBuffer& buffer) override { return InsertRow(buffer); }
  std::int64_t InsertRow(const IRowBuffer& buffer) override;
  /// Rows count as written from here on; the format itself is asked to write after many rows, and at the end.
  void Flush() override;
  void Close() override;

  /// From here on rows keep the identifiers that they come with.
  void KeepIdentifiers() {
    keeps_identifiers_ = true;
    points_.reset();
  }
  /// The layout that rows are written in.
  [[nodiscard]] OGRFeatureDefn& Definition() { return *handle_->Layer().GetLayerDefn(); }

 private:
  void LeaveRowsToGdal();
  void Commit();

  std::shared_ptr<OgrClass> owner_;
  std::optional<LayerHandle> handle_;
  std::unique_ptr<ShapefilePoints> points_;  ///< as long as rows go past GDAL
  bool keeps_identifiers_ = false;
  std::optional<GdbGrid> grid_;  ///< of a class of a file geodatabase
  /// False for file geodatabases: GDAL would make all their indexes anew each time.
  bool commits_midway_;
  bool transactions_;
  bool in_transaction_ = false;
  std::int64_t since_commit_ = 0;
  ExponentCells exponents_;
};

}  // namespace tessarine::engine
