// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/brought_copy.h"

#include "engine/merged_rows.h"
#include "engine/reading_warnings.h"
#include "engine/reprojection.h"
#include "platform/run_scope.h"
#include "platform/run_stop.h"

namespace tessarine::engine {

BroughtCopy::BroughtCopy(std::shared_ptr<CopyFacts> facts, std::unique_ptr<StagedOutput> work, Conversion rows,
                         BroughtTarget target)
    : CopyFactsHolder(std::move(facts)),
      OgrFeatureClass(std::make_shared<OgrSource>(rows.shown.string(), work->Path().string(), rows.layer)),
      work_(std::move(work)),
      rows_(std::move(rows)),
      target_(std::move(target)) {}

void BroughtCopy::AddFields(std::span<const FieldRef> fields) {
  for (const FieldRef& field : fields) {
    target_.copy->AddField(field);
    const FieldsRef made = target_.copy->Fields();
    const std::int32_t written = made->FieldCount() - 1;
    const FieldRef own = CloneOf(*field);
    own->Name = made->Field(written)->Name;
    OgrFeatureClass::AddFields({&own, 1});
    results_.push_back({Fields()->FieldCount() - 1, written});
  }
}

void BroughtCopy::Publish() {
  if (!work_ || Facts().planned_rows) Raise(kInvalidCall, "'" + Name() + "' can't be published.");
  RunJournal notes;
  Fill(notes);
  Facts().notes.TakeNotes(notes);
  Require(Cast<IStagedDataset>(target_.copy), "IStagedDataset")->Publish();
  Source()->Renew();
  work_.reset();
}

void BroughtCopy::Discard() {
  if (!work_) return;
  Source()->Renew();
  Require(Cast<IStagedDataset>(target_.copy), "IStagedDataset")->Discard();
  work_.reset();
}

void BroughtCopy::Fill(RunJournal& notes) {
  // What a stopped run has done is written to its end.
  const bool stopped = StopRequested();
  const auto self = std::dynamic_pointer_cast<OgrClass>(shared_from_this());
  MergedRows merged(rows_, self);
  InsertingCursor writer(target_.copy, target_.copy->Source()->Write());
  target_.copy->RowsChange();
  if (target_.keeps_identifiers) writer.KeepIdentifiers();
  Facts().rows = 0;
  while (merged.Next()) {
    if (!stopped) EndIfStopped();
    const std::int64_t oid = merged.From().OID();
    std::unique_ptr<OGRGeometry> shape(merged.Shape() == nullptr ? nullptr : merged.Shape()->clone());
    const bool has_shape = shape != nullptr && BringTo(*rows_.way, shape, oid, notes);
    if (!has_shape) shape.reset();
    OgrRow row(target_.copy->Traits(), OgrFeatureHandle(OGRFeature::CreateFeature(&writer.Definition())));
    TakeValues(merged, row, notes);
    const auto written = [&](std::unique_ptr<OGRGeometry> fitting) {
      row.Feature().SetFID(oid);
      row.Feature().SetGeometryDirectly(fitting.release());
      return WorkOnRecord(notes, oid, [&] { WriteRow([&] { writer.InsertRow(row); }); });
    };
    bool is_written = written(FitShape(std::move(shape), target_.type, *target_.format, oid, notes));
    // What the copy can't hold is the shape, as a rule.
    if (!is_written && has_shape) is_written = written(nullptr);
    if (is_written) ++Facts().rows;
    writer.Flush();
  }
  writer.Close();
  TellReadingWarnings(rows_.source->Source()->DataPath(), notes);
}

void BroughtCopy::TakeValues(const MergedRows& merged, OgrRow& row, RunJournal& notes) const {
  const OgrFeature worked(Traits(), OgrFeatureHandle(merged.Worked().Clone()), {});
  const std::int64_t oid = merged.From().OID();
  const tessarine::Fields& fields = *target_.copy->Fields();
  const auto take = [&](std::int32_t from, std::int32_t to) {
    notes.NoteChange(fields.Field(to)->Name, row.SetValue(to, worked.Value(from)), oid);
  };
  const OGRFeatureDefn& made = *row.Feature().GetDefnRef();
  const std::vector<CopyColumn>& columns = target_.columns->All();
  for (std::size_t index = 0; index < columns.size(); ++index) {
    if (columns[index].target < 0) continue;
    const std::string name = target_.columns->MadeName(columns[index], made);
    if (merged.IsChanged(index)) {
      const CopyColumn& column = rows_.worked_columns->All()[index];
      take(FindField(rows_.worked_columns->MadeName(column, *merged.Worked().GetDefnRef())),
           target_.copy->FindField(name));
    } else if (const ValueChange change = target_.columns->Copy(columns[index], merged.From(), row);
               change != ValueChange::None) {
      notes.NoteChange(name, change, oid);
    }
  }
  for (const Result& result : results_) take(result.worked, result.written);
}

}  // namespace tessarine::engine
