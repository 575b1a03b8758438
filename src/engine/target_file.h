// SPDX-License-Identifier: GPL-2.0-or-later
// The file of a conversion while it is written: its layer, its columns, and what the format makes of each record.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/converted_copy.h"
#include "engine/copy_target.h"
#include "engine/merged_rows.h"
#include "engine/server_table.h"
#include "engine/target_reference.h"

namespace tessarine::engine {

inline constexpr const char* kNoPlaceWithoutShape =
    "The format keeps no record without a shape: this one isn't in the copy.";
inline constexpr const char* kShapeLost = "The format doesn't keep the shape.";

/// A field that the run has added: its index among the fields that were worked on, and among those of the file.
struct ResultColumn {
  int worked = 0, written = 0;
};

class TargetFile {
 public:
  /// Makes it at `path` with the columns of the source, but for a server's, which is made within a transaction. Fault
  /// where the format can't have such a file.
  TargetFile(const Conversion& conversion, const std::filesystem::path& path);
  /// A server takes back what wasn't closed.
  ~TargetFile();
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;

  /// Adds the fields that the run has added to what it worked on, under names that the format has; the notes tell them.
  void AddResults(const OGRFeatureDefn& worked, RunJournal& notes);

  /// To be called once all columns are there.
  void PrepareRows();

  /// Brings the shape of the record to where it is to be in the file. Where it has no place there, which the notes
  /// tell, there is none.
  void Bring(const MergedRows& merged, RunJournal& notes);

  /// The shape that was brought last; null where there is none.
  [[nodiscard]] const OGRGeometry* Brought() const { return brought_.get(); }

  /// False for a record without a shape where the format keeps none such.
  [[nodiscard]] bool Takes() const {
    return !conversion_.format->needs_shapes || (brought_ != nullptr && !brought_->IsEmpty());
  }

  /// Writes the record with the shape that was brought last. False, which the notes tell, where the format doesn't take
  /// it at all; where it only takes it without its shape, the notes tell that.
  [[nodiscard]] bool Write(const MergedRows& merged, RunJournal& notes);

  /// What the file, read again, makes of its reference, a sentence; empty where it keeps it.
  [[nodiscard]] std::string LossOfReference(const OGRSpatialReference* read) const;

  /// A server else makes the table with its first row.
  void MakeTable();

  /// All rows are with the format then; a server still takes them back.
  void EndRows(RunJournal& notes);

  void Close();

  [[nodiscard]] const std::shared_ptr<CopyColumns>& Columns() const { return columns_; }
  [[nodiscard]] const std::vector<ResultColumn>& Results() const { return results_; }
  [[nodiscard]] OGRLayer& Layer() const { return *layer_; }
  [[nodiscard]] GDALDataset& Dataset() const { return *dataset_; }
  [[nodiscard]] const std::optional<std::string>& ForetoldOfReference() const { return reference_->Foretold(); }
  [[nodiscard]] const KeptOfShapes& Kept() const { return kept_; }
  [[nodiscard]] OGRwkbGeometryType DeclaredType() const { return declared_; }

 private:
  void AddBounds(CPLStringList& options) const;
  [[noreturn]] void RaiseUnfinished(const GdalErrorScope& errors) const;
  [[nodiscard]] bool Store(OGRFeature& feature, std::int64_t oid, RunJournal& notes);
  [[nodiscard]] bool TryToStore(OGRFeature& feature, const GdalErrorScope& errors);

  const Conversion& conversion_;
  std::filesystem::path path_;
  std::shared_ptr<CopyColumns> columns_;
  OGRwkbGeometryType declared_ = wkbUnknown, type_ = wkbUnknown;
  KeptOfShapes kept_;
  OgrReference meant_;  // null for none
  Envelope extent_;     // of the shapes in it
  std::optional<TargetReference> reference_;
  std::unique_ptr<OGRGeometry> brought_;
  std::optional<TableBelongings> belongings_;  // of the table that is replaced
  DatasetHandle dataset_;
  OGRLayer* layer_ = nullptr;
  std::vector<ResultColumn> results_;
  std::shared_ptr<const RowTraits> traits_;
};

}  // namespace tessarine::engine
