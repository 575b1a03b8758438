// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/target_file.h"

#include <cmath>

#include "engine/copy_values.h"
#include "engine/kept_reference.h"
#include "engine/stamp.h"
#include "outputs/way_out.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

const std::string kRowLost = "The format doesn't take the record with its shape: this one isn't in the copy.";

void PutWorked(const OGRFeature& worked, int from, OGRFeature& row, int to) {
  if (worked.IsFieldSetAndNotNull(from) == 0) {
    row.SetFieldNull(to);
  } else if (worked.GetFieldDefnRef(from)->GetType() == row.GetFieldDefnRef(to)->GetType()) {
    row.SetField(to, worked.GetRawFieldRef(from));
  } else if (worked.GetFieldDefnRef(from)->GetType() == OFTReal) {
    row.SetField(to, worked.GetFieldAsDouble(from));
  } else {
    row.SetField(to, worked.GetFieldAsString(from));
  }
}

void NullUnlessFinite(OGRFeature& feature) {
  for (int index = 0; index < feature.GetFieldCount(); ++index) {
    const bool number = feature.GetFieldDefnRef(index)->GetType() == OFTReal;
    if (number && !std::isfinite(feature.GetFieldAsDouble(index))) feature.SetFieldNull(index);
  }
}

void RemoveControls(OGRFeature& feature) {
  for (int index = 0; index < feature.GetFieldCount(); ++index) {
    if (feature.GetFieldDefnRef(index)->GetType() != OFTString || feature.IsFieldSetAndNotNull(index) == 0) continue;
    std::string text = feature.GetFieldAsString(index);
    const auto is_control = [](char c) {
      return static_cast<unsigned char>(c) < 0x20U && c != '\t' && c != '\n' && c != '\r';
    };
    if (std::erase_if(text, is_control) > 0) feature.SetField(index, text.c_str());
  }
}

}  // namespace

TargetFile::TargetFile(const Conversion& conversion, const fs::path& path) : conversion_(conversion), path_(path) {
  LayerHandle source = conversion.source->Source()->Read();
  GDALDriver& driver = DriverOf(*conversion.format);
  const std::shared_ptr<const RowTraits> traits = conversion.source->Traits();
  columns_ = std::make_shared<CopyColumns>(*traits, *source.Layer().GetLayerDefn(), driver, *conversion.format, false);
  columns_->TakeForClocks(conversion.clocks, driver);
  ShapeFacts shapes = conversion.shapes;
  declared_ = source.Layer().GetGeomType();
  if (conversion.way) {
    declared_ = OGR_GT_GetLinear(declared_);
    shapes.curves = false;
  }
  type_ = LayerTypeFor(declared_, traits->shape_type, shapes, *conversion.format);
  const OGRSpatialReference* meant = conversion.way ? conversion.way->Target() : source.Layer().GetSpatialRef();
  if (meant != nullptr) meant_.reset(meant->Clone());
  extent_ = conversion.way ? conversion.way->Bring(conversion.extent) : conversion.extent;
  reference_.emplace(*conversion.format, meant_.get(), extent_, conversion.shown);
  dataset_ = OpenTarget(*conversion.format, path, conversion.shown);
  if (conversion.format->container && conversion.standing == StagedOutput::Standing::Replace) {
    if (conversion.format->server) belongings_.emplace(*dataset_, conversion.layer);
    RemoveLayer(*dataset_, conversion.layer);
  }
  CPLStringList options = LayerOptions(*conversion.format);
  NameOwnColumns(*conversion.format, {}, *traits, conversion.result_fields, options);
  AddStamp(*conversion.format, options);
  AddBounds(options);
  layer_ = CreateTargetLayer(*dataset_, conversion.layer, reference_->Target(), type_, options, conversion.shown);
  columns_->AddTo(*layer_, conversion.shown.string());
  kept_ = WhatIsKept(*layer_, *conversion.format);
  type_ = KeptType(type_, kept_);
}

TargetFile::~TargetFile() {
  const GdalErrorScope quiet;
  if (dataset_ && conversion_.format->server) (void)dataset_->RollbackTransaction();
  dataset_.reset();
}

void TargetFile::AddResults(const OGRFeatureDefn& worked, RunJournal& notes) {
  std::vector<std::string> standing, names;
  const OGRFeatureDefn& made = *layer_->GetLayerDefn();
  for (int index = 0; index < made.GetFieldCount(); ++index) {
    standing.emplace_back(made.GetFieldDefn(index)->GetNameRef());
  }
  int first = 0;
  if (!conversion_.worked_columns) return;
  for (const CopyColumn& column : conversion_.worked_columns->All()) first = std::max(first, column.target + 1);
  for (int index = first; index < worked.GetFieldCount(); ++index) {
    names.emplace_back(worked.GetFieldDefn(index)->GetNameRef());
  }
  const std::vector<std::string> legal = FreeLegalNames(conversion_.format->field_names, names, standing);
  for (int index = first; index < worked.GetFieldCount(); ++index) {
    const auto place = static_cast<std::size_t>(index - first);
    OGRFieldDefn definition(legal[place].c_str(), worked.GetFieldDefn(index)->GetType());
    const GdalErrorScope errors;
    const int before = made.GetFieldCount();
    if (layer_->CreateField(&definition) != OGRERR_NONE || made.GetFieldCount() != before + 1) {
      RaiseEngineFault("The field '" + names[place] + "' can't be added to '" + conversion_.shown.string() + "'" +
                       errors.Quote() + ".");
    }
    results_.push_back({index, before});
    notes.NoteName(names[place], made.GetFieldDefn(before)->GetNameRef());
  }
}

void TargetFile::PrepareRows() {
  auto traits = std::make_shared<RowTraits>();
  traits->fields = MapFields(*layer_, conversion_.source->Traits()->shape_type, nullptr, ColumnStore::Other);
  traits->writer = AttributeWriter(*layer_->GetLayerDefn(), ColumnStore::Other, false);
  traits_ = std::move(traits);
}

bool TargetFile::Write(const MergedRows& merged, RunJournal& notes) {
  const std::int64_t oid = merged.From().OID();
  OgrRow row(traits_, OgrFeatureHandle(OGRFeature::CreateFeature(layer_->GetLayerDefn())));
  const std::vector<CopyColumn>& columns = columns_->All();
  for (std::size_t index = 0; index < columns.size(); ++index) {
    if (columns[index].target < 0) continue;
    if (merged.IsChanged(index)) {
      const int worked = conversion_.worked_columns->All()[index].target;
      PutWorked(merged.Worked(), worked, row.Feature(), columns[index].target);
    } else {
      (void)columns_->Copy(columns[index], merged.From(), row);
    }
  }
  for (const ResultColumn& result : results_) PutWorked(merged.Worked(), result.worked, row.Feature(), result.written);
  OGRFeature& feature = row.Feature();
  if (conversion_.format->keeps_identifiers && !conversion_.shapes.repeated) feature.SetFID(oid);
  feature.SetGeometryDirectly(FitShape(std::move(brought_), type_, *conversion_.format, oid, notes).release());
  return Store(feature, oid, notes);
}

void TargetFile::Bring(const MergedRows& merged, RunJournal& notes) {
  brought_.reset(merged.Shape() == nullptr ? nullptr : merged.Shape()->clone());
  const std::int64_t oid = merged.From().OID();
  if (conversion_.way && !BringTo(*conversion_.way, brought_, oid, notes)) brought_.reset();
  brought_ = reference_->Bring(std::move(brought_), oid, notes);
}

std::string TargetFile::LossOfReference(const OGRSpatialReference* read) const {
  const Format& format = *conversion_.format;
  if (format.without_reference || (format.degrees && reference_->Target() == nullptr)) return "";
  return ReferenceLoss(format.degrees ? reference_->Target() : meant_.get(), read, extent_);
}

void TargetFile::MakeTable() {
  const GdalErrorScope errors;
  if (layer_->GetFeatureCount(1) < 0 || errors.Failed()) {
    Raise(kInvalidCall, "The table '" + conversion_.layer + "' can't be made" + errors.Quote() +
                            ": check the schema and the rights.");
  }
}

void TargetFile::EndRows(RunJournal& notes) {
  const GdalErrorScope errors;
  if (layer_->SyncToDisk() != OGRERR_NONE || errors.Failed()) RaiseUnfinished(errors);
  if (belongings_) belongings_->PutAgain(*dataset_, notes);
}

void TargetFile::Close() {
  const GdalErrorScope errors;
  layer_ = nullptr;
  const bool kept = !conversion_.format->server || dataset_->CommitTransaction() == OGRERR_NONE;
  dataset_.reset();
  if (!kept || errors.Failed()) RaiseUnfinished(errors);
}

// The library knows bounds by heart, and cuts off what lies beyond: for most references they are far too wide, for some
// too narrow.
void TargetFile::AddBounds(CPLStringList& options) const {
  const Envelope& own = conversion_.shapes.extent;
  const Envelope box = conversion_.way ? conversion_.way->Bring(own) : own;
  if (!conversion_.format->bounded || box.IsEmpty()) return;
  constexpr double kShare = 0.1, kLeast = 0.01;
  const double room = std::max(kShare * std::max(box.Width(), box.Height()), kLeast);
  std::string bounds;
  for (const double side : {box.XMin() - room, box.YMin() - room, box.XMax() + room, box.YMax() + room}) {
    bounds += (bounds.empty() ? "" : ",") + ExactNumberText(side);
  }
  options.SetNameValue("BOUNDS", bounds.c_str());
}

void TargetFile::RaiseUnfinished(const GdalErrorScope& errors) const {
  RaiseEngineFault("'" + conversion_.shown.string() + "' can't be written to its end" + errors.Quote() +
                   WayOut(path_.string(), errors.Text()));
}

// A shape that the format doesn't take costs the record its shape alone.
bool TargetFile::Store(OGRFeature& feature, std::int64_t oid, RunJournal& notes) {
  if (conversion_.format->finite_numbers) NullUnlessFinite(feature);
  if (conversion_.format->clean_texts) RemoveControls(feature);
  GdalErrorScope errors;
  if (TryToStore(feature, errors)) {
    if (!errors.Text().empty()) notes.NoteWarning("GDAL says: " + errors.Text(), oid);
    return true;
  }
  const std::string quote = errors.Quote(), complaint = errors.Text();
  if (feature.GetGeometryRef() == nullptr && complaint.find("geometry") != std::string::npos) {
    notes.NoteFault(RecordFault(kRowRefused, kNoPlaceWithoutShape), oid);
    return false;
  }
  const std::unique_ptr<OGRGeometry> shape(feature.StealGeometry());
  errors.Clear();
  if (shape && conversion_.format->needs_shapes && complaint.find("geometry type") != std::string::npos) {
    notes.NoteFault(RecordFault(kRowRefused, kRowLost + quote), oid);
    return false;
  }
  if (!shape || conversion_.format->needs_shapes || !TryToStore(feature, errors)) {
    RaiseEngineFault("Row " + std::to_string(oid) + " can't be written to '" + conversion_.shown.string() + "'" +
                     quote + WayOut(path_.string(), complaint));
  }
  if (!shape->IsEmpty()) {
    notes.NoteFault(RecordFault(kRowRefused, kShapeLost + quote), oid);
  }
  return true;
}

bool TargetFile::TryToStore(OGRFeature& feature, const GdalErrorScope& errors) {
  return layer_->CreateFeature(&feature) == OGRERR_NONE && !errors.Failed();
}

}  // namespace tessarine::engine
