// SPDX-License-Identifier: GPL-2.0-or-later
// A copy in another reference than its source.
//
// The run works on a GeoPackage with the records in the source's reference. When it is published, they are written
// into the copy, which has been made empty before: each attribute as the source has it, or, where the run has changed
// it, as the GeoPackage has it, and each shape brought to the copy's reference.
#pragma once

#include <memory>
#include <vector>

#include "engine/converted_copy.h"

namespace tessarine::engine {

class MergedRows;

/// The copy while it is empty.
struct BroughtTarget {
  std::shared_ptr<OgrFeatureClass> copy;  ///< an `IStagedDataset`
  std::shared_ptr<const CopyColumns> columns;
  OGRwkbGeometryType type = wkbUnknown;
  const Format* format = nullptr;
  bool keeps_identifiers = false;
};

class BroughtCopy final : private CopyFactsHolder, public OgrFeatureClass, public IStagedDataset {
 public:
  /// The GeoPackage is in `work`.
  BroughtCopy(std::shared_ptr<CopyFacts> facts, std::unique_ptr<StagedOutput> work, Conversion rows,
              BroughtTarget target);
  ~BroughtCopy() override { Discard(); }
  BroughtCopy(const BroughtCopy&) = delete;
  BroughtCopy& operator=(const BroughtCopy&) = delete;

  /// New fields are made in both, under the names that the copy gives them.
  void AddField(const FieldRef& field) override { AddFields({&field, 1}); }
  void AddFields(std::span<const FieldRef> fields) override;

  [[nodiscard]] std::string FullName() const override { return Facts().full_name; }
  [[nodiscard]] std::string Category() const override { return target_.copy->Category(); }
  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter* filter) const override {
    return Facts().planned_rows ? *Facts().planned_rows : OgrFeatureClass::FeatureCount(filter);
  }
  [[nodiscard]] std::vector<LeftOutRecords> LeftOut() const override { return Facts().left_out; }
  [[nodiscard]] const RunJournal* Notes() const override { return &Facts().notes; }
  [[nodiscard]] std::vector<std::string> Foretold() const override { return Facts().foretold; }
  /// Filled in further while the copy is made.
  [[nodiscard]] Conversion& Rows() { return rows_; }

  void Publish() override;
  void Discard() override;

 private:
  struct Result {
    std::int32_t worked = 0, written = 0;  // places among the fields
  };

  void Fill(RunJournal& notes);
  void TakeValues(const MergedRows& merged, OgrRow& row, RunJournal& notes) const;

  std::unique_ptr<StagedOutput> work_;
  Conversion rows_;
  BroughtTarget target_;
  std::vector<Result> results_;
};

}  // namespace tessarine::engine
