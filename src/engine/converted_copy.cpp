// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/converted_copy.h"

#include <cmath>
#include <functional>
#include <vector>

#include "engine/copy_target.h"
#include "engine/copy_values.h"
#include "engine/kept_reference.h"
#include "engine/merged_rows.h"
#include "engine/reprojection.h"
#include "engine/server_table.h"
#include "engine/stamp.h"
#include "engine/target_reference.h"
#include "outputs/way_out.h"
#include "platform/run_stop.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

namespace fs = std::filesystem;

constexpr const char* kMoved =
    "The shape lies a little beside the source's: the format keeps coordinates with fewer digits.";
constexpr const char* kNoPlaceWithoutShape = "The format keeps no record without a shape: this one isn't in the copy.";
const std::string kRowLost = "The format doesn't take the record with its shape: this one isn't in the copy.";
const std::string kElsewhere =
    "The shape lies elsewhere than the source's, because the format can't keep where it is: write it to another "
    "format.";
const std::string kShapeLost = "The format doesn't keep the shape.";

// A field that the run has added.
struct Result {
  int worked = 0, written = 0;
};

/// The file that is written.
class TargetFile {
 public:
  TargetFile(const Conversion& conversion, const fs::path& path) : conversion_(conversion), path_(path) {
    LayerHandle source = conversion.source->Source()->Read();
    GDALDriver& driver = DriverOf(*conversion.format);
    const std::shared_ptr<const RowTraits> traits = conversion.source->Traits();
    columns_ =
        std::make_shared<CopyColumns>(*traits, *source.Layer().GetLayerDefn(), driver, *conversion.format, false);
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
  ~TargetFile() {
    const GdalErrorScope quiet;
    if (dataset_ && conversion_.format->server) (void)dataset_->RollbackTransaction();
    dataset_.reset();
  }
  TargetFile(const TargetFile&) = delete;
  TargetFile& operator=(const TargetFile&) = delete;

  void AddResults(const OGRFeatureDefn& worked, RunJournal& notes) {
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

  /// Made once all columns are there.
  void PrepareRows() {
    auto traits = std::make_shared<RowTraits>();
    traits->fields = MapFields(*layer_, conversion_.source->Traits()->shape_type, nullptr, ColumnStore::Other);
    traits->writer = AttributeWriter(*layer_->GetLayerDefn(), ColumnStore::Other, false);
    traits_ = std::move(traits);
  }

  /// A record that the format can't keep is left out, which the notes tell.
  [[nodiscard]] bool Takes() const {
    return !conversion_.format->needs_shapes || (brought_ != nullptr && !brought_->IsEmpty());
  }

  /// False, which the notes tell, where the format doesn't take the record at all.
  [[nodiscard]] bool Write(const MergedRows& merged, RunJournal& notes) {
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
    for (const Result& result : results_) PutWorked(merged.Worked(), result.worked, row.Feature(), result.written);
    OGRFeature& feature = row.Feature();
    if (conversion_.format->keeps_identifiers && !conversion_.shapes.repeated) feature.SetFID(oid);
    feature.SetGeometryDirectly(FitShape(std::move(brought_), type_, *conversion_.format, oid, notes).release());
    return Store(feature, oid, notes);
  }

  /// Brings the shape of the record to where it is to be in the file. Where it has no place there, which the notes
  /// tell, there is none.
  void Bring(const MergedRows& merged, RunJournal& notes) {
    brought_.reset(merged.Shape() == nullptr ? nullptr : merged.Shape()->clone());
    const std::int64_t oid = merged.From().OID();
    if (conversion_.way && !BringTo(*conversion_.way, brought_, oid, notes)) brought_.reset();
    brought_ = reference_->Bring(std::move(brought_), oid, notes);
  }

  /// The shape that was brought last; null where there is none.
  [[nodiscard]] const OGRGeometry* Brought() const { return brought_.get(); }

  /// What the file, read again, makes of its reference, a sentence; empty where it keeps it.
  [[nodiscard]] std::string LossOfReference(const OGRSpatialReference* read) const {
    const Format& format = *conversion_.format;
    if (format.without_reference || (format.degrees && reference_->Target() == nullptr)) return "";
    return ReferenceLoss(format.degrees ? reference_->Target() : meant_.get(), read, extent_);
  }

  /// A server else makes the table with its first row.
  void MakeTable() {
    const GdalErrorScope errors;
    if (layer_->GetFeatureCount(1) < 0 || errors.Failed()) {
      Raise(kInvalidCall, "The table '" + conversion_.layer + "' can't be made" + errors.Quote() +
                              ": check the schema and the rights.");
    }
  }

  /// All rows are with the format then; a server still takes them back.
  void EndRows(RunJournal& notes) {
    const GdalErrorScope errors;
    if (layer_->SyncToDisk() != OGRERR_NONE || errors.Failed()) RaiseUnfinished(errors);
    if (belongings_) belongings_->PutAgain(*dataset_, notes);
  }

  void Close() {
    const GdalErrorScope errors;
    layer_ = nullptr;
    const bool kept = !conversion_.format->server || dataset_->CommitTransaction() == OGRERR_NONE;
    dataset_.reset();
    if (!kept || errors.Failed()) RaiseUnfinished(errors);
  }

  [[nodiscard]] const std::shared_ptr<CopyColumns>& Columns() const { return columns_; }
  [[nodiscard]] const std::vector<Result>& Results() const { return results_; }
  [[nodiscard]] OGRLayer& Layer() const { return *layer_; }
  [[nodiscard]] GDALDataset& Dataset() const { return *dataset_; }
  [[nodiscard]] const std::optional<std::string>& ForetoldOfReference() const { return reference_->Foretold(); }
  [[nodiscard]] const KeptOfShapes& Kept() const { return kept_; }
  [[nodiscard]] OGRwkbGeometryType DeclaredType() const { return declared_; }

 private:
  // A MapInfo table counts coordinates in steps between bounds that its driver knows by heart, and cuts off what lies
  // beyond: for most references they are far too wide, for some too narrow.
  void AddBounds(CPLStringList& options) const {
    const Envelope& own = conversion_.shapes.extent;
    const Envelope box = conversion_.way ? conversion_.way->Bring(own) : own;
    if (conversion_.format->driver != "MapInfo File" || box.IsEmpty()) return;
    constexpr double kShare = 0.1, kLeast = 0.01;
    const double room = std::max(kShare * std::max(box.Width(), box.Height()), kLeast);
    std::string bounds;
    for (const double side : {box.XMin() - room, box.YMin() - room, box.XMax() + room, box.YMax() + room}) {
      bounds += (bounds.empty() ? "" : ",") + ExactNumberText(side);
    }
    options.SetNameValue("BOUNDS", bounds.c_str());
  }

  [[noreturn]] void RaiseUnfinished(const GdalErrorScope& errors) const {
    RaiseEngineFault("'" + conversion_.shown.string() + "' can't be written to its end" + errors.Quote() +
                     WayOut(path_.string(), errors.Text()));
  }

  static void PutWorked(const OGRFeature& worked, int from, OGRFeature& row, int to) {
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

  static void NullUnlessFinite(OGRFeature& feature) {
    for (int index = 0; index < feature.GetFieldCount(); ++index) {
      const bool number = feature.GetFieldDefnRef(index)->GetType() == OFTReal;
      if (number && !std::isfinite(feature.GetFieldAsDouble(index))) feature.SetFieldNull(index);
    }
  }

  static void RemoveControls(OGRFeature& feature) {
    for (int index = 0; index < feature.GetFieldCount(); ++index) {
      if (feature.GetFieldDefnRef(index)->GetType() != OFTString || feature.IsFieldSetAndNotNull(index) == 0) continue;
      std::string text = feature.GetFieldAsString(index);
      const auto is_control = [](char c) {
        return static_cast<unsigned char>(c) < 0x20U && c != '\t' && c != '\n' && c != '\r';
      };
      if (std::erase_if(text, is_control) > 0) feature.SetField(index, text.c_str());
    }
  }

  // A shape that the format doesn't take costs the record its shape alone.
  bool Store(OGRFeature& feature, std::int64_t oid, RunJournal& notes) {
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

  bool TryToStore(OGRFeature& feature, const GdalErrorScope& errors) {
    return layer_->CreateFeature(&feature) == OGRERR_NONE && !errors.Failed();
  }

  const Conversion& conversion_;
  fs::path path_;
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
  std::vector<Result> results_;
  std::shared_ptr<const RowTraits> traits_;
};

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
    for (const Result& result : file.Results()) {
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
    for (const Result& result : results_) {
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
  std::vector<Result> results_;
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
    return OpenDatasetAt(path.string(), false);
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
