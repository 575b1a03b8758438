// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/converted_copy.h"

#include <vector>

#include "engine/copy_values.h"
#include "engine/kept_digits.h"
#include "engine/target_file.h"
#include "outputs/shown_places.h"
#include "outputs/way_out.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMoved =
    "The shape lies a little beside the source's: the format keeps coordinates with fewer digits.";
const std::string kElsewhere =
    "The shape lies elsewhere than the source's, because the format can't keep where it is: write it to another "
    "format.";

/// Reads the file again, row by row beside what was meant.
class Readback {
 public:
  Readback(GDALDataset& dataset, const Conversion& conversion, TargetFile& file, const OGRFeatureDefn& made,
           RunJournal& notes)
      : layer_(LayerOf(dataset, conversion)), file_(file), kept_(file.Kept()), notes_(notes) {
    layer_.ResetReading();
    const OGRFeatureDefn& read = *layer_.GetLayerDefn();
    for (const CopyColumn& column : file.Columns()->All()) {
      columns_.push_back(column.target < 0 ? -1 : read.GetFieldIndex(made.GetFieldDefn(column.target)->GetNameRef()));
    }
    for (const ResultColumn& result : file.Results()) {
      results_.push_back({result.worked, read.GetFieldIndex(made.GetFieldDefn(result.written)->GetNameRef())});
    }
  }

  [[nodiscard]] std::string LayerName() const { return layer_.GetName(); }
  [[nodiscard]] const OGRSpatialReference* Reference() const { return layer_.GetSpatialRef(); }

  /// The rows up to the end, with those that were compared.
  [[nodiscard]] std::int64_t Count() {
    while (OGRFeatureUniquePtr(layer_.GetNextFeature())) ++count_;
    return count_;
  }

  void Compare(const MergedRows& merged, const Conversion& conversion) {
    const OGRFeatureUniquePtr row(layer_.GetNextFeature());
    if (!row) return;
    ++count_;
    const std::int64_t oid = merged.From().OID();
    for (std::size_t index = 0; index < columns_.size(); ++index) {
      if (columns_[index] < 0) continue;
      const bool changed = merged.IsChanged(index);
      const int worked = conversion.worked_columns->All()[index].target;
      CompareOne(changed ? merged.Worked() : merged.From().Feature(), changed ? worked : static_cast<int>(index), *row,
                 columns_[index], oid);
    }
    for (const ResultColumn& result : results_) {
      if (result.written >= 0) CompareOne(merged.Worked(), result.worked, *row, result.written, oid);
    }
    RunJournal told;
    file_.Bring(merged, told);
    CompareShapes(file_.Brought(), row->GetGeometryRef(), conversion, oid);
  }

 private:
  // Files may call their only layer as they like.
  static OGRLayer& LayerOf(GDALDataset& dataset, const Conversion& conversion) {
    OGRLayer* layer =
        conversion.format->container ? dataset.GetLayerByName(conversion.layer.c_str()) : dataset.GetLayer(0);
    if (layer != nullptr) return *layer;
    RaiseEngineFault("'" + conversion.shown.string() + "' reads back without the layer '" + conversion.layer + "'.");
  }

  void CompareOne(const OGRFeature& meant, int meant_index, const OGRFeature& row, int index, std::int64_t oid) {
    notes_.NoteChange(row.GetFieldDefnRef(index)->GetNameRef(), CompareValues(meant, meant_index, row, index), oid);
  }

  void CompareShapes(const OGRGeometry* meant, const OGRGeometry* written, const Conversion& conversion,
                     std::int64_t oid) {
    if (meant == nullptr || meant->IsEmpty()) return;
    if (written == nullptr || written->IsEmpty()) {
      notes_.NoteFault(RecordFault(kRowRefused, kShapeLost), oid);
      return;
    }
    const ShapeShift shift = ShiftOf(*meant, *written);
    if (shift == ShapeShift::Rounded) notes_.NoteWarning(kMoved, oid);
    if (shift == ShapeShift::Elsewhere) notes_.NoteFault(RecordFault(kRowRefused, kElsewhere), oid);
    if (!conversion.format->uniform_shapes) NoteHeights(*meant, *written, conversion.shapes, kept_, oid, notes_);
  }

  OGRLayer& layer_;
  TargetFile& file_;
  KeptOfShapes kept_;
  RunJournal& notes_;
  std::int64_t count_ = 0;
  std::vector<int> columns_;
  std::vector<ResultColumn> results_;
};

}  // namespace

namespace {

bool HasReals(const OGRFeatureDefn& columns) {
  for (int index = 0; index < columns.GetFieldCount(); ++index) {
    if (columns.GetFieldDefn(index)->GetType() == OFTReal) return true;
  }
  return false;
}

}  // namespace

fs::path PlaceOfWork(const Format& format, const fs::path& target) {
  return format.server ? fs::temp_directory_path() / "tessarine.gpkg"
                       : fs::path(target.string() + std::string(kWorkEnding));
}

ProbedColumns ProbeConversion(const Conversion& conversion, const fs::path& folder, CopyFacts& facts) {
  // What an empty file complains of is told elsewhere.
  const GdalErrorScope quiet;
  TargetFile file(conversion, conversion.format->server ? conversion.target : folder / conversion.target.filename());
  const OGRFeatureDefn& made = *file.Layer().GetLayerDefn();
  if (conversion.format->server) file.MakeTable();
  ProbedColumns probed;
  for (const CopyColumn& column : file.Columns()->All()) {
    const std::string name = file.Columns()->MadeName(column, made);
    probed.names.push_back(name);
    probed.types.push_back(name.empty() ? "" : ColumnTypeWord(*made.GetFieldDefn(column.target)));
    if (!name.empty()) facts.notes.NoteName(column.field->Name, name);
  }
  facts.foretold = file.Columns()->Foretold(made);
  if (conversion.format->nulls == Nulls::InDates && !probed.names.empty()) {
    facts.foretold.emplace_back("Null is written as 0 or as an empty text: the format knows none but in dates.");
  }
  const int digits = KeptDigits(*conversion.format);
  if (digits < kAllDigits && (HasReals(made) || !conversion.result_fields.empty())) {
    facts.foretold.push_back("Numbers are rounded to " + std::to_string(digits) +
                             " digits: the format writes no more of them.");
  }
  for (std::string& sentence : ForetoldOfShapes(file.DeclaredType(), conversion.shapes, file.Kept())) {
    facts.foretold.push_back(std::move(sentence));
  }
  if (file.ForetoldOfReference()) facts.foretold.push_back(*file.ForetoldOfReference());
  return probed;
}

ConvertedCopy::ConvertedCopy(std::shared_ptr<CopyFacts> facts, std::unique_ptr<StagedOutput> work,
                             Conversion conversion)
    : CopyFactsHolder(std::move(facts)),
      OgrFeatureClass(std::make_shared<OgrSource>(conversion.shown.string(), work->Path().string(), conversion.layer)),
      work_(std::move(work)),
      conversion_(std::move(conversion)) {}

namespace {

using LayerDefinition = std::unique_ptr<OGRFeatureDefn, void (*)(OGRFeatureDefn*)>;

// What stays of the columns when the file is closed.
LayerDefinition KeptDefinition(OGRLayer& layer) {
  LayerDefinition definition(layer.GetLayerDefn()->Clone(), [](OGRFeatureDefn* clone) { clone->Release(); });
  definition->Reference();
  return definition;
}

// Some drivers don't tell that a disk is full.
DatasetHandle OpenWritten(const fs::path& path, const fs::path& shown) {
  try {
    return OpenDatasetAt(path.string());
  } catch (const Fault&) {
    RaiseEngineFault("'" + shown.string() + "' can't be read again when it is written" + WayOut(path.string(), ""));
  }
}

// The copy written, read again and compared with what was meant, then put in its place.
class ConversionWriting {
 public:
  ConversionWriting(const Conversion& conversion, std::shared_ptr<OgrClass> worked, CopyFacts& facts)
      : conversion_(conversion), format_(*conversion.format), worked_(std::move(worked)), facts_(facts) {}

  void Run() {
    const GdalErrorScope quiet;
    if (format_.server) {
      WriteToServer();
    } else {
      WriteFile();
    }
    facts_.notes.TakeNotes(notes_);
    facts_.notes.written = notes_.written;
  }

 private:
  void WriteToServer() {
    TargetFile file(conversion_, conversion_.target);
    const LayerDefinition made = WriteRows(file);
    file.EndRows(notes_);
    Check(file.Dataset(), file, *made);
    file.Close();
    // Who made the table goes on with the reference that it was made with.
    const DatasetHandle again = OpenWritten(conversion_.target, conversion_.shown);
    if (OGRLayer* layer = again->GetLayerByName(conversion_.layer.c_str())) {
      NoteLossOfReference(file, layer->GetSpatialRef());
    }
    worked_->Source()->Renew();
  }

  void WriteFile() {
    const bool enters = format_.container && fs::exists(conversion_.target);
    StagedOutput staged(conversion_.target, enters ? StagedOutput::Begin::Copy : StagedOutput::Begin::Empty);
    TargetFile file(conversion_, staged.Path());
    const LayerDefinition made = WriteRows(file);
    file.Close();
    Check(*OpenWritten(staged.Path(), conversion_.shown), file, *made);
    worked_->Source()->Renew();
    staged.Publish(enters ? StagedOutput::Standing::Replace : conversion_.standing);
  }

  // Returns the columns as they were made.
  LayerDefinition WriteRows(TargetFile& file) {
    MergedRows merged(conversion_, worked_);
    file.AddResults(merged.WorkedDefinition(), notes_);
    file.PrepareRows();
    while (merged.Next()) {
      Poll();
      file.Bring(merged, notes_);
      const bool takes = file.Takes();
      left_out_.push_back(!takes || !file.Write(merged, notes_));
      if (!left_out_.back()) continue;
      --facts_.rows;
      if (!takes) notes_.NoteFault(RecordFault(kRowRefused, kNoPlaceWithoutShape), merged.From().OID());
    }
    return KeptDefinition(file.Layer());
  }

  void Check(GDALDataset& dataset, TargetFile& file, OGRFeatureDefn& made) {
    Readback readback(dataset, conversion_, file, made, notes_);
    facts_.layer = readback.LayerName();
    if (!format_.reorders) {
      MergedRows merged(conversion_, worked_);
      for (std::size_t row = 0; merged.Next(); ++row) {
        Poll();
        if (!left_out_[row]) readback.Compare(merged, conversion_);
      }
    }
    RequireAllRows(facts_, readback.Count());
    if (!format_.server) NoteLossOfReference(file, readback.Reference());
    notes_.written = facts_.rows;
  }

  void NoteLossOfReference(TargetFile& file, const OGRSpatialReference* read) {
    if (std::string loss = file.LossOfReference(read); !loss.empty()) {
      notes_.warnings.push_back({std::move(loss), 0, {}});
    }
  }

  void Poll() const {
    if (!stopped_before_) EndIfStopped();
  }

  const Conversion& conversion_;
  const Format& format_;
  std::shared_ptr<OgrClass> worked_;
  CopyFacts& facts_;
  // What a stopped run has done is written to its end.
  bool stopped_before_ = StopRequested();
  RunJournal notes_;
  std::vector<bool> left_out_;  // of the merged rows
};

}  // namespace

void WriteConversion(const Conversion& conversion, const std::shared_ptr<OgrClass>& worked, CopyFacts& facts) {
  ConversionWriting(conversion, worked, facts).Run();
}

void ConvertedCopy::Publish() {
  if (!work_ || Facts().planned_rows) Raise(kInvalidCall, "'" + Name() + "' can't be published.");
  WriteConversion(conversion_, std::dynamic_pointer_cast<OgrClass>(shared_from_this()), Facts());
  work_.reset();
}

void ConvertedCopy::Discard() {
  if (!work_) return;
  Source()->Renew();
  work_.reset();
}

}  // namespace tessarine::engine
