// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/converted_copy.h"

#include <functional>
#include <vector>

#include "engine/copy_values.h"
#include "engine/target_file.h"
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

fs::path PlaceOfWork(const Format& format, const fs::path& target) {
  return format.server ? fs::temp_directory_path() / "tessarine.gpkg" : fs::path(target.string() + ".gpkg");
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

LayerDefinition WriteRows(const Conversion& conversion, const std::shared_ptr<OgrClass>& worked,
                          const std::function<void()>& poll, TargetFile& file, CopyFacts& facts, RunJournal& notes,
                          std::vector<bool>& left_out) {
  MergedRows merged(conversion, worked);
  file.AddResults(merged.WorkedDefinition(), notes);
  file.PrepareRows();
  while (merged.Next()) {
    poll();
    file.Bring(merged, notes);
    const bool takes = file.Takes();
    left_out.push_back(!takes || !file.Write(merged, notes));
    if (!left_out.back()) continue;
    --facts.rows;
    if (!takes) notes.NoteFault(RecordFault(kRowRefused, kNoPlaceWithoutShape), merged.From().OID());
  }
  return KeptDefinition(file.Layer());
}

// Some drivers don't tell that a disk is full.
DatasetHandle OpenWritten(const fs::path& path, const fs::path& shown) {
  try {
    return OpenDatasetAt(path.string());
  } catch (const Fault&) {
    RaiseEngineFault("'" + shown.string() + "' can't be read again when it is written" + WayOut(path.string(), ""));
  }
}

}  // namespace

void WriteConversion(const Conversion& conversion, const std::shared_ptr<OgrClass>& worked, CopyFacts& facts) {
  // What a stopped run has done is written to its end.
  const bool stopped = StopRequested();
  const auto poll = [&] {
    if (!stopped) EndIfStopped();
  };
  const GdalErrorScope quiet;
  const Format& format = *conversion.format;
  const bool enters = format.container && !format.server && fs::exists(conversion.target);
  std::optional<StagedOutput> staged;
  if (!format.server) {
    staged.emplace(conversion.target, enters ? StagedOutput::Begin::Copy : StagedOutput::Begin::Empty);
  }
  TargetFile file(conversion, staged ? staged->Path() : conversion.target);
  RunJournal notes;
  std::vector<bool> left_out;  // of the merged rows
  const LayerDefinition made = WriteRows(conversion, worked, poll, file, facts, notes, left_out);
  const auto tell_reference = [&](const OGRSpatialReference* read) {
    if (std::string loss = file.LossOfReference(read); !loss.empty()) {
      notes.warnings.push_back({std::move(loss), 0, {}});
    }
  };
  const auto check = [&](GDALDataset& dataset) {
    Readback readback(dataset, conversion, file, *made, notes);
    facts.layer = readback.LayerName();
    if (!format.reorders) {
      MergedRows merged(conversion, worked);
      for (std::size_t row = 0; merged.Next(); ++row) {
        poll();
        if (!left_out[row]) readback.Compare(merged, conversion);
      }
    }
    RequireAllRows(facts, readback.Count());
    if (!format.server) tell_reference(readback.Reference());
    notes.written = facts.rows;
  };
  if (format.server) {
    file.EndRows(notes);
    check(file.Dataset());
    file.Close();
    // Who made the table goes on with the reference that it was made with.
    const DatasetHandle again = OpenWritten(conversion.target, conversion.shown);
    if (OGRLayer* layer = again->GetLayerByName(conversion.layer.c_str())) tell_reference(layer->GetSpatialRef());
  } else {
    file.Close();
    check(*OpenWritten(staged->Path(), conversion.shown));
  }
  worked->Source()->Renew();
  if (staged) staged->Publish(enters ? StagedOutput::Standing::Replace : conversion.standing);
  facts.notes.TakeNotes(notes);
  facts.notes.written = notes.written;
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
