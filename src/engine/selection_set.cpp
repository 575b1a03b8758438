// SPDX-License-Identifier: GPL-2.0-or-later
// Selections: the identifiers of rows, in order.
#include <algorithm>

#include "engine/data_source.h"
#include "engine/engine_fault.h"
#include "engine/ogr_class.h"
#include "outputs/layer_copy.h"
#include "platform/run_stop.h"

namespace tessarine {
namespace {

// Up to this share of the rows, each is fetched by its identifier; above it, all rows are read in order.
constexpr double kFetchShare = 0.1;

/// Passes on only the selected rows of a cursor over the class.
class SelectedRows final : public IFeatureCursor {
 public:
  SelectedRows(std::shared_ptr<const std::vector<std::int64_t>> oids, std::shared_ptr<IFeatureCursor> rows)
      : oids_(std::move(oids)), rows_(std::move(rows)) {}

  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override {
    while (std::shared_ptr<IFeature> feature = rows_->NextFeature()) {
      if (std::ranges::binary_search(*oids_, feature->OID())) return feature;
    }
    return nullptr;
  }
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return NextFeature(); }
  void UpdateFeature(const std::shared_ptr<IFeature>& feature) override { rows_->UpdateFeature(feature); }
  void UpdateRow(const std::shared_ptr<IRow>& row) override { rows_->UpdateRow(row); }
  std::int64_t InsertFeature(const IFeatureBuffer& buffer) override { return rows_->InsertFeature(buffer); }
  std::int64_t InsertRow(const IRowBuffer& buffer) override { return rows_->InsertRow(buffer); }
  void Flush() override { rows_->Flush(); }
  void Close() override { rows_->Close(); }

 private:
  std::shared_ptr<const std::vector<std::int64_t>> oids_;
  std::shared_ptr<IFeatureCursor> rows_;
};

/// Fetches the selected rows one by one.
class FetchedRows final : public IFeatureCursor {
 public:
  FetchedRows(std::shared_ptr<IFeatureClass> features, std::shared_ptr<const std::vector<std::int64_t>> oids,
              Recycling recycling)
      : features_(std::move(features)), oids_(std::move(oids)), recycling_(recycling) {}

  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override {
    if (next_ >= oids_->size()) return nullptr;
    std::shared_ptr<IFeature> feature = features_->GetFeature((*oids_)[next_++]);
    if (recycling_ == Recycling::No) return feature;
    if (recycled_) {
      Cast<engine::OgrRow>(recycled_)->TakeFrom(*Cast<engine::OgrRow>(feature));
    } else {
      recycled_ = std::move(feature);
    }
    return recycled_;
  }
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return NextFeature(); }
  void UpdateFeature(const std::shared_ptr<IFeature>& feature) override { feature->Store(); }
  void UpdateRow(const std::shared_ptr<IRow>& row) override { row->Store(); }
  std::int64_t InsertFeature(const IFeatureBuffer&) override { Raise(kInvalidCall, "This cursor can't insert rows."); }
  std::int64_t InsertRow(const IRowBuffer&) override { Raise(kInvalidCall, "This cursor can't insert rows."); }
  void Flush() override {}

 private:
  std::shared_ptr<IFeatureClass> features_;
  std::shared_ptr<const std::vector<std::int64_t>> oids_;
  Recycling recycling_;
  std::shared_ptr<IFeature> recycled_;
  std::size_t next_ = 0;
};

class SelectionSet final : public ISelectionSet2 {
 public:
  SelectionSet(std::shared_ptr<IFeatureClass> features, std::vector<std::int64_t> oids)
      : features_(std::move(features)), oids_(std::make_shared<const std::vector<std::int64_t>>(std::move(oids))) {}

  [[nodiscard]] std::int32_t Count() const override { return static_cast<std::int32_t>(oids_->size()); }
  [[nodiscard]] const std::vector<std::int64_t>& Oids() const { return *oids_; }

  [[nodiscard]] std::shared_ptr<ICursor> Search(const QueryFilter* filter, Recycling recycling) override {
    const bool few = static_cast<double>(oids_->size()) < kFetchShare * features_->FeatureCount(nullptr);
    // Only the engine's own rows can be refilled with what was fetched.
    const bool fetches = few && filter == nullptr && (recycling == Recycling::No || Cast<engine::OgrClass>(features_));
    if (fetches) return std::make_shared<FetchedRows>(features_, oids_, recycling);
    return std::make_shared<SelectedRows>(oids_, features_->Search(filter, recycling));
  }

  [[nodiscard]] std::shared_ptr<ICursor> Update(const QueryFilter* filter, Recycling recycling) override {
    if (const auto own = Cast<engine::OgrClass>(features_)) return own->OpenUpdater(filter, recycling, oids_);
    return std::make_shared<SelectedRows>(oids_, features_->Update(filter, recycling));
  }

 private:
  std::shared_ptr<IFeatureClass> features_;
  std::shared_ptr<const std::vector<std::int64_t>> oids_;
};

bool HasRow(IFeatureClass& features, std::int64_t oid) {
  try {
    return features.GetFeature(oid) != nullptr;
  } catch (const Fault&) {
    return false;
  }
}

}  // namespace

std::vector<std::int64_t> OidsOf(ISelectionSet& selection) {
  if (const auto* own = dynamic_cast<const SelectionSet*>(&selection)) return own->Oids();
  std::vector<std::int64_t> oids;
  const auto cursor = selection.Search(nullptr, Recycling::Yes);
  while (const auto row = cursor->NextRow()) oids.push_back(row->OID());
  std::ranges::sort(oids);
  return oids;
}

std::shared_ptr<ISelectionSet> SelectByWhere(const std::shared_ptr<IFeatureClass>& features, const std::string& where) {
  QueryFilter filter;
  filter.WhereClause = where;
  std::vector<std::int64_t> oids;
  const auto cursor = features->Search(&filter, Recycling::Yes);
  while (const auto feature = cursor->NextFeature()) {
    EndIfStopped();
    oids.push_back(feature->OID());
  }
  return SelectByOids(features, std::move(oids));
}

std::vector<std::int64_t> OidsThatExist(IFeatureClass& features, std::vector<std::int64_t> oids) {
  std::ranges::sort(oids);
  const auto repeated = std::ranges::unique(oids);
  oids.erase(repeated.begin(), repeated.end());
  if (oids.empty()) return oids;
  if (static_cast<double>(oids.size()) < kFetchShare * features.FeatureCount(nullptr)) {
    std::erase_if(oids, [&](std::int64_t oid) { return !HasRow(features, oid); });
    return oids;
  }
  std::vector<std::int64_t> there;
  const auto cursor = features.Search(nullptr, Recycling::Yes);
  while (const auto feature = cursor->NextFeature()) {
    EndIfStopped();
    if (std::ranges::binary_search(oids, feature->OID())) there.push_back(feature->OID());
  }
  std::ranges::sort(there);
  return there;
}

std::shared_ptr<ISelectionSet> SelectByOids(const std::shared_ptr<IFeatureClass>& features,
                                            std::vector<std::int64_t> oids) {
  std::ranges::sort(oids);
  const auto repeated = std::ranges::unique(oids);
  oids.erase(repeated.begin(), repeated.end());
  return std::make_shared<SelectionSet>(features, std::move(oids));
}

}  // namespace tessarine
