// SPDX-License-Identifier: GPL-2.0-or-later
// A copy in a format that can't be changed in place.
//
// The run works on a GeoPackage with the records. When it is published, the source's records are written in the copy's
// own format, each attribute as the source has it, or, where the run has changed it, as the GeoPackage has it; so
// what a GeoPackage can't keep isn't lost on the way. Then the file is read again and compared.
#pragma once

#include <memory>

#include "engine/copy_classes.h"
#include "engine/copy_columns.h"
#include "engine/copy_rows.h"
#include "engine/reprojection.h"

namespace tessarine::engine {

/// What is to be written, and where.
struct Conversion {
  std::shared_ptr<OgrClass> source;
  ChosenOids chosen;
  const Format* format = nullptr;
  std::filesystem::path target, shown;  ///< where it is made, and what the user calls it
  std::string layer;
  std::vector<std::string> result_fields;
  std::vector<std::string> clocks;  ///< attributes of the source whose texts stand for times of day
  StagedOutput::Standing standing = StagedOutput::Standing::Keep;
  ShapeFacts shapes;
  /// In the source's reference, of the data that the output is planned for; empty where that isn't known.
  Envelope extent;
  /// Of the GeoPackage; null where the source itself was worked on.
  std::shared_ptr<const CopyColumns> worked_columns;
  /// To the reference that the output shall be in; null where that is the source's own.
  std::shared_ptr<const Reprojection> way;
  std::vector<std::int64_t> worked_oids;  ///< in it, in the order of the source's chosen records
};

/// Writes the records in their own format, reads them again, compares, and puts the file in its place. A container
/// keeps its other layers. The notes take what became of values and shapes, and `facts` the rows. Polls the stop,
/// unless the run was stopped before.
void WriteConversion(const Conversion& conversion, const std::shared_ptr<OgrClass>& worked, CopyFacts& facts);

/// Where the GeoPackage is staged that a run works on for this target.
[[nodiscard]] std::filesystem::path PlaceOfWork(const Format& format, const std::filesystem::path& target);

/// The columns of a file, in the order of the source's attributes; empty for those that it has none for.
struct ProbedColumns {
  std::vector<std::string> names;
  std::vector<std::string> types;  ///< as `ColumnTypeWord` calls them
};

/// What the file of a conversion will be, found out by making an empty one in `folder`: the columns as the format has
/// them. `facts` takes what the format can't keep. Fault where there can be no such file.
[[nodiscard]] ProbedColumns ProbeConversion(const Conversion& conversion, const std::filesystem::path& folder,
                                            CopyFacts& facts);

class ConvertedCopy final : private CopyFactsHolder, public OgrFeatureClass, public IStagedDataset {
 public:
  /// The GeoPackage is in `work`.
  ConvertedCopy(std::shared_ptr<CopyFacts> facts, std::unique_ptr<StagedOutput> work, Conversion conversion);
  ~ConvertedCopy() override { Discard(); }
  ConvertedCopy(const ConvertedCopy&) = delete;
  ConvertedCopy& operator=(const ConvertedCopy&) = delete;

  [[nodiscard]] std::string FullName() const override { return Facts().full_name; }
  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter* filter) const override {
    return Facts().planned_rows ? *Facts().planned_rows : OgrFeatureClass::FeatureCount(filter);
  }
  [[nodiscard]] std::vector<LeftOutRecords> LeftOut() const override { return Facts().left_out; }
  [[nodiscard]] const RunJournal* Notes() const override { return &Facts().notes; }
  [[nodiscard]] std::vector<std::string> Foretold() const override { return Facts().foretold; }
  /// The conversion, filled in further while the copy is made.
  [[nodiscard]] Conversion& Target() { return conversion_; }

  void Publish() override;
  void Discard() override;

 private:
  std::unique_ptr<StagedOutput> work_;
  Conversion conversion_;
};

}  // namespace tessarine::engine
