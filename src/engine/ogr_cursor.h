// Cursors over OGR layers.
#pragma once

#include <memory>

#include "engine/ogr_class.h"

namespace tessarine::engine {

/// Sets the filters of a handle; a condition that OGR refuses raises a fault that quotes it.
void ApplyFilter(LayerHandle& handle, const QueryFilter& filter);

/// Reads rows, and writes those back that it read when it was opened for update.
class ReadingCursor final : public IFeatureCursor {
 public:
  ReadingCursor(std::shared_ptr<OgrClass> owner, LayerHandle handle, const QueryFilter* filter, bool recycling);
  ~ReadingCursor() override;

  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override;
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return NextFeature(); }
  void UpdateFeature(const std::shared_ptr<IFeature>& feature) override;
  void UpdateRow(const std::shared_ptr<IRow>& row) override;
  std::int64_t InsertFeature(const IFeatureBuffer&) override;
  std::int64_t InsertRow(const IRowBuffer&) override;
  void Flush() override;
  void Close() override;

 private:
  [[nodiscard]] OgrFeatureHandle NextOgr();
  [[nodiscard]] bool Matches(const OGRFeature& feature) const;

  std::shared_ptr<OgrClass> owner_;
  LayerHandle handle_;
  GeometryRef region_;
  bool recycling_;
  std::shared_ptr<OgrFeature> recycled_;
  bool in_transaction_ = false;
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

 private:
  void Commit();

  std::shared_ptr<OgrClass> owner_;
  LayerHandle handle_;
  bool transactions_;
  bool in_transaction_ = false;
  std::int64_t since_commit_ = 0;
};

}  // namespace tessarine::engine
