// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/ogr_cursor.h"

#include <cmath>

#include "engine/engine_fault.h"
#include "engine/filegdb_edit.h"
#include "engine/filegdb_polygons.h"
#include "engine/ogr_geometry.h"
#include "engine/sql.h"
#include "outputs/way_out.h"
#include "platform/exact_class.h"

namespace tessarine::engine {
namespace {

// Names that the filter leaves out, as OGR wants them.
std::vector<std::string> IgnoredFields(OGRLayer& layer, const std::string& wanted) {
  std::vector<std::string> ignored;
  const CPLStringList names(CSLTokenizeString2(wanted.c_str(), ",", CSLT_STRIPLEADSPACES | CSLT_STRIPENDSPACES));
  const OGRFeatureDefn& definition = *layer.GetLayerDefn();
  for (int index = 0; index < definition.GetFieldCount(); ++index) {
    const char* name = definition.GetFieldDefn(index)->GetNameRef();
    if (names.FindString(name) < 0) ignored.emplace_back(name);
  }
  return ignored;
}

// A database looks at a condition only when rows are read.
bool CompilesInDatabase(const LayerHandle& handle, const std::string& condition) {
  return AskSql(handle.Dataset(),
                "EXPLAIN SELECT 1 FROM " + SqlName(handle.Layer().GetName()) + " WHERE " + condition) != nullptr;
}

[[noreturn]] void RaiseWrongUse(const char* what) {
  Raise(kInvalidCall, std::string("This cursor can't ") + what + ".");
}

}  // namespace

void ApplyFilter(LayerHandle& handle, const QueryFilter& filter) {
  OGRLayer& layer = handle.Layer();
  if (!filter.WhereClause.empty()) {
    const GdalErrorScope errors;
    bool usable = layer.SetAttributeFilter(filter.WhereClause.c_str()) == OGRERR_NONE;
    if (usable && handle.IsDatabase()) usable = CompilesInDatabase(handle, filter.WhereClause);
    if (!usable || errors.Failed()) {
      RaiseEngineFault("The condition \"" + filter.WhereClause + "\" can't be used on '" + layer.GetName() + "'" +
                       errors.Quote() + ". Check its field names and quotes.");
    }
  }
  if (filter.Geometry) {
    const Envelope box = filter.Geometry->Envelope();
    layer.SetSpatialFilterRect(box.XMin(), box.YMin(), box.XMax(), box.YMax());
  }
  if (!filter.SubFields.empty() && filter.SubFields != "*") {
    CPLStringList names;
    for (const std::string& name : IgnoredFields(layer, filter.SubFields)) names.AddString(name.c_str());
    if (layer.SetIgnoredFields(const_cast<const char**>(names.List())) != OGRERR_NONE) {
      RaiseEngineFault("The fields of '" + std::string(layer.GetName()) + "' can't be restricted.");
    }
  }
}

ReadingCursor::ReadingCursor(std::shared_ptr<OgrClass> owner, LayerHandle handle, const QueryFilter* filter,
                             Recycling recycling)
    : owner_(std::move(owner)), handle_(std::move(handle)), recycling_(recycling) {
  if (filter != nullptr) {
    ApplyFilter(handle_, *filter);
    region_ = filter->Geometry;
  }
  handle_.Layer().ResetReading();
  TellReadingWarnings(owner_->Source()->DataPath());
}

std::string ShapeFaultOf(const OGRFeature& feature, const ReadingScope& errors, const std::string& path) {
  if (!errors.Failed() || feature.GetGeometryRef() != nullptr || feature.GetGeomFieldCount() == 0) return "";
  return "The shape of a record of '" + path + "' can't be read" + errors.Quote() +
         ". Mend the file, or get a whole copy of it.";
}

void ReadingCursor::TakeComplaints(const OGRFeature& feature, const ReadingScope& errors) {
  const std::string& path = owner_->Source()->DataPath();
  shape_fault_ = ShapeFaultOf(feature, errors, owner_->Source()->Path());
  if (errors.Warnings().empty()) return;
  KeepReadingWarnings(path, errors);
  TellReadingWarnings(path);
}

OgrFeatureHandle ReadingCursor::FetchOgr(std::int64_t oid) {
  const ReadingScope errors;
  OgrFeatureHandle feature(handle_.Layer().GetFeature(oid));
  if (feature) TakeComplaints(*feature, errors);
  return feature;
}

bool ReadingCursor::Matches(const OGRFeature& feature) const {
  const auto kind = owner_->Source()->Kind();
  const OGRGeometry* geometry = feature.GetGeometryRef();
  if (kind) {
    const bool belongs =
        geometry == nullptr ? owner_->Source()->HasOnlyKind() : ShapeTypeOf(geometry->getGeometryType()) == *kind;
    if (!belongs) return false;
  }
  if (!region_) return true;
  const GeometryRef shape = ShapeFromOgr(geometry, owner_->Traits()->shape_type, owner_->Traits()->reference);
  return shape && !shape->IsEmpty() && !dynamic_cast<const IRelationalOperator&>(*region_).Disjoint(*shape);
}

OgrFeatureHandle ReadingCursor::NextOgr() {
  ReadingScope errors;
  for (;;) {
    errors.Clear();
    OgrFeatureHandle feature = handle_.NextFeature();
    if (!feature) {
      if (errors.Failed()) {
        RaiseEngineFault("'" + owner_->Source()->Path() + "' can't be read to its end" + errors.Quote() +
                         ": the file is damaged or was cut off.");
      }
      return nullptr;
    }
    TakeComplaints(*feature, errors);
    if (Matches(*feature)) return feature;
  }
}

std::shared_ptr<IFeature> ReadingCursor::NextFeature() {
  OgrFeatureHandle feature = NextOgr();
  if (!feature) return nullptr;
  std::shared_ptr<OgrFeature> row;
  if (recycling_ == Recycling::Yes && recycled_) {
    recycled_->Refill(std::move(feature));
    row = recycled_;
  } else {
    row = std::make_shared<OgrFeature>(owner_->Traits(), std::move(feature), owner_);
    if (recycling_ == Recycling::Yes) recycled_ = row;
  }
  row->LackShape(shape_fault_);
  return row;
}

void ReadingCursor::UpdateRow(const std::shared_ptr<IRow>&) { RaiseWrongUse("update rows"); }
std::int64_t ReadingCursor::InsertFeature(const IFeatureBuffer&) { RaiseWrongUse("insert rows"); }
std::int64_t ReadingCursor::InsertRow(const IRowBuffer&) { RaiseWrongUse("insert rows"); }

void ReadingCursor::Close() { handle_.Close(); }

InsertingCursor::InsertingCursor(std::shared_ptr<OgrClass> owner, LayerHandle handle)
    : owner_(std::move(owner)),
      handle_(std::move(handle)),
      points_(ShapefilePoints::Open(*owner_->Source(), handle_->Layer())),
      grid_(GridOfClass(owner_->Source()->Path(), owner_->Source()->LayerName())),
      commits_midway_(!IsFileGdb(owner_->Source()->Path())),
      transactions_(handle_->Layer().TestCapability(OLCTransactions) != 0) {}

InsertingCursor::~InsertingCursor() {
  const GdalErrorScope quiet;
  if (in_transaction_) (void)(handle_->Layer().CommitTransaction() == OGRERR_NONE);
}

void InsertingCursor::UpdateFeature(const std::shared_ptr<IFeature>&) { RaiseWrongUse("update rows"); }
void InsertingCursor::UpdateRow(const std::shared_ptr<IRow>&) { RaiseWrongUse("update rows"); }

std::int64_t InsertingCursor::InsertRow(const IRowBuffer& buffer) {
  // Buffers are made by the class that they go into; the row is its own layout of it. Nearly all are rows and nothing
  // more, which is told without the search that a cast makes.
  const auto* given = ExactlyAs<OgrRow>(buffer);
  auto* row = const_cast<OgrRow*>(given != nullptr ? given : dynamic_cast<const OgrRow*>(&buffer));
  if (row == nullptr) Raise(kTypeMismatch, "The buffer was not made by this feature class.");
  row->Rebind(Definition());
  row->StoreShape();
  OGRFeature& feature = row->Feature();
  if (!keeps_identifiers_) feature.SetFID(OGRNullFID);
  const std::int64_t kept = feature.GetFID();
  if (const OGRGeometry* shape = feature.GetGeometryRef(); shape != nullptr && !HasFinitePositions(*shape)) {
    Raise(kCoordinateRange, "A shape can't be written to '" + owner_->Source()->Path() +
                                "': a coordinate of it is infinite or no number.");
  }
  if (grid_) {
    RequireOnGrid(*grid_, feature, owner_->Name());
    KeepValidOnGrid(*grid_, feature);
  }
  if (points_) {
    if (row->Exponents().empty() && points_->Append(feature)) return feature.GetFID();
    LeaveRowsToGdal();
    return InsertRow(buffer);
  }
  OGRLayer& layer = handle_->Layer();
  const GdalErrorScope errors;
  if (transactions_ && !in_transaction_) in_transaction_ = layer.StartTransaction() == OGRERR_NONE;
  exponents_.TakeOut(feature, row->Exponents());
  if (layer.CreateFeature(&feature) != OGRERR_NONE || errors.Failed()) {
    RaiseRowNotWritten("A row can't be written to '" + owner_->Source()->Path() + "'", errors,
                       WayOut(owner_->Source()->Path(), errors.Text()));
  }
  exponents_.PutBack(feature);
  ++since_commit_;
  // Some drivers take 0 for none.
  return keeps_identifiers_ ? kept : feature.GetFID();
}

void InsertingCursor::Flush() {
  if (commits_midway_ && since_commit_ >= kRowsPerCommit) Commit();
}

// Those from here on. Handles know what stood in the file when they were opened.
void InsertingCursor::LeaveRowsToGdal() {
  handle_->Close();
  points_->Finish();
  points_.reset();
  handle_.emplace(owner_->Source()->Write());
}

void InsertingCursor::Close() {
  Commit();
  handle_->Close();
  if (points_) points_->Finish();
  points_.reset();
  exponents_.Write(*owner_->Source());
}

void InsertingCursor::Commit() {
  since_commit_ = 0;
  const GdalErrorScope errors;
  OGRErr result = OGRERR_NONE;
  if (in_transaction_) {
    in_transaction_ = false;
    result = handle_->Layer().CommitTransaction();
  } else {
    result = handle_->Layer().SyncToDisk();
  }
  if (result != OGRERR_NONE || errors.Failed()) {
    RaiseEngineFault("Rows can't be written to '" + owner_->Source()->Path() + "'" + errors.Quote() +
                     WayOut(owner_->Source()->Path(), errors.Text()));
  }
}

}  // namespace tessarine::engine
