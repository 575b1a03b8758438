// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/copy_rows.h"

#include "engine/engine_fault.h"
#include "engine/ogr_cursor.h"
#include "engine/reading_warnings.h"
#include "platform/run_scope.h"
#include "platform/run_stop.h"

namespace tessarine::engine {
namespace {

/// Writes row by row.
class RowCopier {
 public:
  RowCopier(const CopyColumns& columns, OGRwkbGeometryType type, const Format& format, bool keeps,
            const std::shared_ptr<OgrClass>& target, RunJournal& notes)
      : columns_(columns),
        type_(type),
        format_(format),
        target_(target),
        cursor_(target, target->Source()->Write()),
        notes_(notes) {
    target->RowsChange();
    if (keeps) cursor_.KeepIdentifiers();
  }

  // The identifier in the copy, or `kNoRow`.
  std::int64_t Copy(const OgrRow& from, std::int64_t oid) {
    OgrRow row = NewRow();
    for (const CopyColumn& column : columns_.All()) {
      const ValueChange change = columns_.Copy(column, from, row);
      if (change != ValueChange::None) {
        notes_.NoteChange(columns_.MadeName(column, cursor_.Definition()), change, oid);
      }
    }
    row.Feature().SetFID(oid);
    row.Feature().SetGeometryDirectly(
        FitShape(std::unique_ptr<OGRGeometry>(from.Feature().StealGeometry()), type_, format_, oid, notes_).release());
    try {
      return cursor_.InsertRow(row);
    } catch (const Fault& fault) {
      if (!ConcernsOneRow(fault)) throw;
      notes_.NoteFault(fault, oid);
    }
    return CopyWithoutShape(row, oid);
  }

  void Flush() { cursor_.Flush(); }
  void Close() { cursor_.Close(); }

 private:
  OgrRow NewRow() { return {target_->Traits(), OgrFeatureHandle(OGRFeature::CreateFeature(&cursor_.Definition()))}; }

  std::int64_t CopyWithoutShape(OgrRow& row, std::int64_t oid) {
    if (row.Feature().GetGeometryRef() == nullptr) return kNoRow;
    row.Feature().SetGeometryDirectly(nullptr);
    row.Feature().SetFID(oid);
    try {
      return cursor_.InsertRow(row);
    } catch (const Fault& fault) {
      if (!ConcernsOneRow(fault)) throw;
      notes_.NoteFault(fault, oid);
      return kNoRow;
    }
  }

  const CopyColumns& columns_;
  OGRwkbGeometryType type_;
  const Format& format_;
  std::shared_ptr<OgrClass> target_;
  InsertingCursor cursor_;
  RunJournal& notes_;
};

}  // namespace

CopiedRows CopyRows(const std::shared_ptr<OgrClass>& source, const ChosenOids& chosen, const CopyColumns& columns,
                    OGRwkbGeometryType type, const Format& format, bool keeps, const std::shared_ptr<OgrClass>& target,
                    RunJournal& notes) {
  CopiedRows copied;
  ReadingCursor cursor(source, source->Source()->Read(), nullptr, Recycling::Yes);
  RowCopier copier(columns, type, format, keeps, target, notes);
  while (OgrFeatureHandle feature = cursor.NextOgr()) {
    EndIfStopped();
    const std::int64_t oid = feature->GetFID();
    if (!IsChosen(chosen, oid)) continue;
    const OgrFeature row(source->Traits(), std::move(feature), source);
    if (!cursor.ShapeFault().empty()) {
      notes.NoteFault(RecordFault(kEngine, cursor.ShapeFault()), oid);
    }
    copied.oids.push_back(copier.Copy(row, oid));
    if (copied.oids.back() != kNoRow) ++copied.count;
    copier.Flush();
  }
  copier.Close();
  TellReadingWarnings(source->Source()->DataPath(), notes);
  return copied;
}

}  // namespace tessarine::engine
