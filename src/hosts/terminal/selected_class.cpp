// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/selected_class.h"

#include "engine/data_source.h"
#include "hosts/document/class_over_class.h"

namespace tessarine {
namespace {

class RowsOfClass final : public ClassOverClass, public IDatasetFiles {
 public:
  RowsOfClass(const std::shared_ptr<IFeatureClass>& features, std::vector<std::int64_t> oids)
      : ClassOverClass(features), rows_(SelectByOids(features, std::move(oids))) {}

  void AddField(const FieldRef&) override { RaiseReadOnly(); }
  void AddFields(std::span<const FieldRef>) override { RaiseReadOnly(); }
  [[nodiscard]] std::shared_ptr<IEdit> BeginEdit() override { return nullptr; }
  void Delete() override { RaiseReadOnly(); }

  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter* filter) const override {
    if (filter == nullptr) return rows_->Count();
    std::int32_t count = 0;
    const auto cursor = rows_->Search(filter, Recycling::Yes);
    while (cursor->NextRow()) ++count;
    return count;
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Search(const QueryFilter* filter, Recycling recycling) override {
    return Require(Cast<IFeatureCursor>(rows_->Search(filter, recycling)), "IFeatureCursor");
  }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Update(const QueryFilter*, Recycling) override { RaiseReadOnly(); }
  [[nodiscard]] std::shared_ptr<IFeatureCursor> Insert(bool) override { RaiseReadOnly(); }
  /// Nobody selects what isn't among the rows.
  [[nodiscard]] std::vector<LeftOutRecords> LeftOut() const override { return {}; }

  [[nodiscard]] DatasetFiles Files() const override {
    const auto files = Cast<IDatasetFiles>(Beneath());
    return files ? files->Files() : DatasetFiles();
  }

 private:
  [[noreturn]] static void RaiseReadOnly() { Raise(kInvalidCall, "The selected rows are only read."); }

  std::shared_ptr<ISelectionSet> rows_;
};

}  // namespace

std::shared_ptr<IFeatureClass> SelectedClass(const std::shared_ptr<IFeatureClass>& features,
                                             std::vector<std::int64_t> oids) {
  return std::make_shared<RowsOfClass>(features, std::move(oids));
}

}  // namespace tessarine
