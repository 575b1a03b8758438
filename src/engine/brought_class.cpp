// SPDX-License-Identifier: GPL-2.0-or-later
// A class that is worked on in one reference and written in another.
#include "engine/converted_copy.h"
#include "engine/copy_target.h"
#include "engine/engine_fault.h"
#include "engine/ogr_cursor.h"
#include "engine/reprojection.h"
#include "engine/workspace_common.h"
#include "outputs/brought_output.h"
#include "outputs/format_workspace.h"
#include "outputs/staged_output.h"
#include "platform/run_scope.h"
#include "platform/run_stop.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using namespace engine;

/// Notes the record that each row is made of.
class TracingCursor final : public IFeatureCursor {
 public:
  TracingCursor(std::shared_ptr<IFeatureCursor> beneath, std::vector<std::int64_t>& records)
      : beneath_(std::move(beneath)), records_(records) {}

  [[nodiscard]] std::shared_ptr<IFeature> NextFeature() override { return beneath_->NextFeature(); }
  [[nodiscard]] std::shared_ptr<IRow> NextRow() override { return beneath_->NextRow(); }
  void UpdateFeature(const std::shared_ptr<IFeature>& feature) override { beneath_->UpdateFeature(feature); }
  void UpdateRow(const std::shared_ptr<IRow>& row) override { beneath_->UpdateRow(row); }
  std::int64_t InsertFeature(const IFeatureBuffer& buffer) override { return InsertRow(buffer); }
  std::int64_t InsertRow(const IRowBuffer& buffer) override {
    const std::int64_t row = beneath_->InsertRow(buffer);
    const auto number = static_cast<std::int64_t>(records_.size() + 1);
    records_.push_back(RecordInHand::Oid().value_or(number));
    return row;
  }
  void Flush() override { beneath_->Flush(); }
  void Close() override { beneath_->Close(); }

 private:
  std::shared_ptr<IFeatureCursor> beneath_;
  std::vector<std::int64_t>& records_;
};

// The attributes of a class, by their places among its fields.
std::vector<std::int32_t> AttributesOf(const Fields& fields) {
  std::vector<std::int32_t> places;
  std::int32_t index = 0;
  for (const FieldRef& field : fields) {
    if (IsAttribute(*field)) places.push_back(index);
    ++index;
  }
  return places;
}

struct AttributePairs {
  std::vector<std::int32_t> from, to;
};

class BroughtClass final : public OgrFeatureClass, public IStagedDataset, public IPlannedClass {
 public:
  BroughtClass(const std::shared_ptr<IFeatureClass>& target, std::unique_ptr<StagedOutput> work,
               const std::string& layer, Reprojection way)
      : OgrFeatureClass(std::make_shared<OgrSource>(work->Path().string(), layer, std::nullopt)),
        target_(target),
        work_(std::move(work)),
        way_(std::move(way)) {
    notes_.brought = BroughtTo{way_.To(), way_.Told()};
    if (const auto planned = Cast<IPlannedClass>(target)) plan_ = planned->Planned();
    plan_.foretold.insert(plan_.foretold.begin(), way_.Told());
  }
  ~BroughtClass() override { Discard(); }
  BroughtClass(const BroughtClass&) = delete;
  BroughtClass& operator=(const BroughtClass&) = delete;

  // It is what its target will be.
  [[nodiscard]] std::string Name() const override { return target_->Name(); }
  [[nodiscard]] std::string FullName() const override { return target_->FullName(); }
  [[nodiscard]] std::string BrowseName() const override { return target_->BrowseName(); }
  [[nodiscard]] std::string Category() const override { return target_->Category(); }
  [[nodiscard]] std::string AliasName() const override { return target_->AliasName(); }
  [[nodiscard]] std::shared_ptr<IWorkspace> Workspace() const override { return target_->Workspace(); }
  [[nodiscard]] const PlannedClass& Planned() const override { return plan_; }
  [[nodiscard]] const RunJournal* Notes() const override { return &notes_; }
  [[nodiscard]] std::vector<std::string> Foretold() const override { return plan_.foretold; }

  [[nodiscard]] std::shared_ptr<IFeatureCursor> Insert(bool) override {
    return std::make_shared<TracingCursor>(OpenInserter(), records_);
  }

  void Publish() override {
    if (!work_) Raise(kInvalidCall, "'" + Name() + "' was published or given up already.");
    WriteRows();
    IStagedDataset& staged = Staged();
    staged.Publish();
    if (const RunJournal* notes = staged.Notes()) {
      notes_.TakeNotes(*notes);
      notes_.written = std::min(notes_.written, notes->written);
    }
    Source()->Renew();
    work_.reset();
    MoveTo(Require(Cast<OgrClass>(target_), "IFeatureClass")->Source());
  }
  void Discard() override {
    if (!work_) return;
    Source()->Renew();
    Staged().Discard();
    work_.reset();
  }

 private:
  [[nodiscard]] IStagedDataset& Staged() const { return *Require(Cast<IStagedDataset>(target_), "IStagedDataset"); }

  void WriteRows() {
    // What a stopped run has done is written to its end.
    const bool stopped = StopRequested();
    const std::shared_ptr<IFeatureCursor> reader = Search(nullptr, Recycling::Yes);
    const std::shared_ptr<IFeatureCursor> writer = target_->Insert(true);
    const AttributePairs attributes{AttributesOf(*Fields()), AttributesOf(*target_->Fields())};
    const std::shared_ptr<IFeatureBuffer> buffer = target_->CreateFeatureBuffer();
    std::size_t row = 0;
    while (const std::shared_ptr<IFeature> feature = reader->NextFeature()) {
      if (!stopped) EndIfStopped();
      const std::int64_t record = row < records_.size() ? records_[row] : feature->OID();
      ++row;
      if (WriteOne(*feature, record, attributes, *buffer, *writer)) ++notes_.written;
      writer->Flush();
    }
    writer->Close();
  }

  bool WriteOne(const IFeature& feature, std::int64_t record, const AttributePairs& attributes, IFeatureBuffer& buffer,
                IFeatureCursor& writer) {
    for (std::size_t index = 0; index < attributes.from.size(); ++index) {
      const std::int32_t place = attributes.to.at(index);
      const ValueChange change = buffer.SetValue(place, feature.Value(attributes.from[index]));
      if (change != ValueChange::None) {
        notes_.NoteChange(target_->Fields()->Field(place)->Name, change, record);
      }
    }
    const auto written = [&](const GeometryRef& shape) {
      return WorkOnRecord(notes_, record, [&] {
        buffer.SetShape(shape);
        WriteRow([&] { writer.InsertFeature(buffer); });
      });
    };
    const GeometryRef shape = feature.ShapeCopy();
    if (!shape || shape->IsEmpty()) return written(shape);
    // What the target can't hold is the shape, as a rule; the record isn't lost with it.
    return (BringTo(way_, *shape, record, notes_) && written(shape)) || written(nullptr);
  }

  std::shared_ptr<IFeatureClass> target_;
  std::unique_ptr<StagedOutput> work_;
  Reprojection way_;
  std::vector<std::int64_t> records_;  // that the rows were made of, in their order
  RunJournal notes_;
  PlannedClass plan_;
};

// The fields of the target, in the run's own reference.
std::shared_ptr<Fields> FieldsInOwnReference(const IFeatureClass& target, const SpatialReferenceRef& own,
                                             std::string& shape_field) {
  auto fields = std::make_shared<Fields>();
  for (const FieldRef& field : *target.Fields()) {
    if (field->Type == esriFieldTypeOID) continue;
    if (field->Type != esriFieldTypeGeometry) {
      fields->AddField(field);
      continue;
    }
    auto shape = std::make_shared<Field>();
    shape->Name = shape_field = field->Name;
    shape->Type = esriFieldTypeGeometry;
    shape->GeometryDef = std::make_shared<GeometryDef>();
    shape->GeometryDef->GeometryType = target.ShapeType();
    shape->GeometryDef->SpatialReference = own;
    fields->AddField(shape);
  }
  return fields;
}

}  // namespace

bool BringsElsewhere(const SpatialReferenceRef& own, const SpatialReferenceRef& wished) {
  return wished && !(own && wished->IsEqual(*own));
}

std::string WayTo(const SpatialReferenceRef& wished, const SpatialReferenceRef& own, const Envelope& extent) {
  return Reprojection(own, wished, extent).Told();
}

Envelope ExtentIn(const SpatialReferenceRef& wished, const SpatialReferenceRef& own, const Envelope& extent) {
  return Reprojection(own, wished, extent).Bring(extent);
}

std::shared_ptr<IFeatureClass> WorkedInOwnReference(const std::shared_ptr<IFeatureClass>& target,
                                                    const OutputPlace& place, const SpatialReferenceRef& own,
                                                    const SpatialReferenceRef& wished, const Envelope& extent) {
  Reprojection way(own, wished, extent);
  const Format& worked = *FormatOfPath(".gpkg");
  const fs::path file = place.InContainer() ? fs::path(place.container) : fs::path(place.NativePath());
  auto work = std::make_unique<StagedOutput>(PlaceOfWork(*place.format, file), StagedOutput::Begin::Empty);
  std::string shape_field, layer;
  {
    const GdalErrorScope quiet;
    const std::shared_ptr<Fields> fields = FieldsInOwnReference(*target, own, shape_field);
    const DatasetHandle dataset = OpenTarget(worked, work->Path(), work->Path());
    CPLStringList options = LayerOptions(worked);
    options.SetNameValue("SPATIAL_INDEX", "NO");
    std::vector<std::string> names;
    for (const FieldRef& field : *fields) {
      if (IsAttribute(*field)) names.push_back(field->Name);
    }
    NameOwnColumns(worked, names, options);
    layer = CreateLayer(*dataset, {target->Name(), fields.get(), shape_field}, options, LayerShapes::Multiple);
  }
  return std::make_shared<BroughtClass>(target, std::move(work), layer, std::move(way));
}

}  // namespace tessarine
