// SPDX-License-Identifier: GPL-2.0-or-later
#include <algorithm>

#include "engine/engine_fault.h"
#include "engine/ogr_cursor.h"
#include "outputs/way_out.h"
#include "platform/exact_class.h"

namespace tessarine::engine {
namespace {

// Up to this share of the rows, each is fetched by its identifier; above it, all rows are read in order.
constexpr double kFetchShare = 0.1;

std::unique_ptr<AttributeUpdate> OpenUpdate(const OgrClass& owner, const LayerHandle& handle) {
  switch (owner.FormatFacts().store) {
    case FileStore::Shapefile:
      return OpenDbaseUpdate(*owner.Source(), handle.Layer());
    case FileStore::GeoPackage:
      return OpenGeoPackageUpdate(handle.Dataset(), handle.Layer());
    case FileStore::FileGeodatabase:
      return OpenFileGdbUpdate(*owner.Source(), handle.Layer());
    case FileStore::PersonalGeodatabase:
      return OpenPersonalUpdate(handle.Layer());
    default:
      return nullptr;
  }
}

}  // namespace

UpdatingCursor::UpdatingCursor(std::shared_ptr<OgrClass> owner, LayerHandle handle, const QueryFilter* filter,
                               Recycling recycling, ChosenRows chosen)
    : ReadingCursor(std::move(owner), std::move(handle), filter, recycling),
      chosen_(std::move(chosen)),
      update_(OpenUpdate(*Owner(), Handle())),
      transactions_(Handle().Layer().TestCapability(OLCTransactions) != 0) {
  // Reading from a server takes place in a transaction of its own. One that began within it would be given up as it
  // ends, with all rows that were written.
  if (Owner()->FormatFacts().server) BeginTransaction();
  if (!chosen_ || filter != nullptr || Owner()->Source()->Kind()) return;
  const auto all = static_cast<double>(Handle().Layer().GetFeatureCount(1));
  fetches_ = static_cast<double>(chosen_->size()) < kFetchShare * all;
}

UpdatingCursor::~UpdatingCursor() {
  const GdalErrorScope quiet;
  try {
    UpdatingCursor::Flush();
  } catch (const Fault&) {
    // Whoever wanted to know has called Close.
  }
}

OgrFeatureHandle UpdatingCursor::NextOgr() {
  if (fetches_) {
    if (next_ >= chosen_->size()) return nullptr;
    const std::int64_t oid = (*chosen_)[next_++];
    OgrFeatureHandle feature = FetchOgr(oid);
    if (!feature) Raise(kInvalidCall, "'" + Owner()->Name() + "' has no row " + std::to_string(oid) + " any more.");
    return feature;
  }
  OgrFeatureHandle feature = ReadingCursor::NextOgr();
  while (feature && chosen_ && !std::ranges::binary_search(*chosen_, feature->GetFID())) {
    feature = ReadingCursor::NextOgr();
  }
  return feature;
}

void UpdatingCursor::UpdateRow(const std::shared_ptr<IRow>& row) {
  const auto* own = ExactlyAs<OgrFeature>(*Require(row, "row"));
  if (own == nullptr) Raise(kTypeMismatch, "The row was not read by this cursor.");
  BeginTransaction();
  WriteRow(*own);
  // Of what is staged nothing is undone, and its journal lies in memory.
  const bool staged = Owner()->Source()->DataPath() != Owner()->Source()->Path();
  if (staged && ++since_commit_ >= kRowsPerCommit) Commit();
}

void UpdatingCursor::BeginTransaction() {
  if (transactions_ && !in_transaction_) in_transaction_ = Handle().Layer().StartTransaction() == OGRERR_NONE;
}

void UpdatingCursor::WriteRow(const OgrRow& row) {
  if (!row.ShapeChanged() && update_ && update_->Write(row.Feature(), row.ChangedAttributes())) return;
  // The row as it was read would take the place of the shape.
  row.RequireReadable();
  WriteWhole(row);
}

void UpdatingCursor::WriteWhole(const OgrRow& row) {
  if (Owner()->FormatFacts().store == FileStore::FileGeodatabase) {
    WriteWholeToFileGdb(row);
    return;
  }
  row.StoreAll();
  if (update_) update_->Finish();
  const GdalErrorScope errors;
  ExponentCells exponents;
  exponents.TakeOut(row.Feature(), row.Exponents());
  const bool written = Handle().Layer().SetFeature(&row.Feature()) == OGRERR_NONE &&
                       (!update_ || in_transaction_ || Handle().Layer().SyncToDisk() == OGRERR_NONE);
  if (!written) {
    RaiseRowNotWritten(
        "Row " + std::to_string(row.Feature().GetFID()) + " of '" + Owner()->Source()->Path() + "' can't be written",
        errors, WayOut(Owner()->Source()->Path(), errors.Text()));
  }
  exponents.PutBack(row.Feature());
  if (!row.Exponents().empty() && !(update_ && update_->Write(row.Feature(), row.Exponents()))) {
    RaiseEngineFault("Row " + std::to_string(row.Feature().GetFID()) + " of '" + Owner()->Source()->Path() +
                     "' has numbers too large for their columns.");
  }
}

// Two writers of one table must not know it at different states: from the first row that our writer can't take, GDAL
// writes all of them, on a handle of its own that is opened after our last byte. Its closing costs a walk over the
// table.
void UpdatingCursor::WriteWholeToFileGdb(const OgrRow& row) {
  if (update_) update_->Finish();
  update_ = nullptr;
  if (!whole_rows_) {
    whole_rows_.emplace(Owner()->Source()->Write());
    Owner()->RowsChange();
    grid_ = GridOfClass(Owner()->Source()->Path(), Owner()->Source()->LayerName());
  }
  row.StoreAll();
  if (grid_ && row.ShapeChanged()) RequireOnGrid(*grid_, row.Feature(), Owner()->Name());
  const GdalErrorScope errors;
  if (whole_rows_->Layer().SetFeature(&row.Feature()) == OGRERR_NONE) return;
  RaiseEngineFault("Row " + std::to_string(row.Feature().GetFID()) + " of '" + Owner()->Source()->Path() +
                   "' can't be written" + errors.Quote() + WayOut(Owner()->Source()->Path(), errors.Text()));
}

void UpdatingCursor::CloseWholeRows() {
  if (!whole_rows_) return;
  whole_rows_->Close();
  whole_rows_.reset();
}

void UpdatingCursor::Flush() {
  if (update_) update_->Finish();
  Commit();
}

void UpdatingCursor::Commit() {
  since_commit_ = 0;
  if (!in_transaction_) return;
  in_transaction_ = false;
  const GdalErrorScope errors;
  if (Handle().Layer().CommitTransaction() != OGRERR_NONE) {
    RaiseEngineFault("Rows of '" + Owner()->Source()->Path() + "' can't be written" + errors.Quote() +
                     WayOut(Owner()->Source()->Path(), errors.Text()));
  }
}

void UpdatingCursor::Close() {
  Flush();
  CloseWholeRows();
  update_ = nullptr;
  ReadingCursor::Close();
}

}  // namespace tessarine::engine
