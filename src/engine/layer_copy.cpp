// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/layer_copy.h"

#include <algorithm>

#include "engine/brought_copy.h"
#include "engine/converted_copy.h"
#include "engine/copy_classes.h"
#include "engine/copy_rows.h"
#include "engine/copy_target.h"
#include "engine/data_source.h"
#include "engine/geodatabase_class.h"
#include "engine/kept_reference.h"
#include "engine/personal_geodatabase_classes.h"
#include "engine/reprojection.h"
#include "engine/target_reference.h"
#include "outputs/brought_output.h"
#include "outputs/staged_output.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using namespace engine;

constexpr std::int64_t kMostGeodatabaseRow = 2147483647;
constexpr const char* kGeoPackage = ".gpkg";

/// Makes one copy.
class Copier {
 public:
  Copier(const LayerCopyRequest& request, std::shared_ptr<OgrClass> source)
      : request_(request),
        source_(std::move(source)),
        place_(request.place),
        format_(*request.place.format),
        facts_(std::make_shared<CopyFacts>()) {
    facts_->full_name = FromNativePath(ShownPath());
    if (!request_.question.empty()) facts_->notes.planned_questions.push_back(request_.question);
    if (place_.InContainer()) facts_->notes.NoteName(place_.name, place_.ClassName());
    RequireRoomForFields();
    if (BringsElsewhere(source_->Traits()->reference, request_.reference)) {
      way_ =
          std::make_shared<Reprojection>(source_->Traits()->reference, request_.reference, request_.source->Extent());
      facts_->notes.brought = BroughtTo{way_->To(), way_->Told()};
    }
    if (!request_.only) facts_->left_out = request_.source->LeftOut();
    if (request_.plan_only) {
      MoveToScratch();
      const auto count =
          request_.only ? static_cast<std::int32_t>(request_.only->size()) : request_.source->FeatureCount(nullptr);
      facts_->planned_rows = count;
    } else {
      shapes_ = LookAtShapes(source_, request_.only);
    }
  }

  LayerCopy Make() {
    LayerCopy copy = !format_.updated_in_place ? MakeConverted() : way_ ? MakeBrought() : Filled(MakeTarget());
    TellReference();
    if (way_) TellWay();
    return copy;
  }

 private:
  // The class that the copy is, empty.
  std::shared_ptr<OgrFeatureClass> MakeTarget() {
    if (format_.feature_datasets) return format_.folder ? MakeInFileGeodatabase() : MakeInPersonalGeodatabase();
    return format_.container ? MakeInGeoPackage() : MakeShapefile();
  }

  // In the copy's reference.
  [[nodiscard]] Envelope ExtentOfCopy() const {
    return way_ ? way_->Bring(request_.source->Extent()) : request_.source->Extent();
  }

  void TellReference() {
    const LayerHandle source = source_->Source()->Read();
    const OGRSpatialReference* meant = way_ ? way_->Target() : source.Layer().GetSpatialRef();
    for (const std::string& sentence : TryReference(format_, meant, ExtentOfCopy())) {
      facts_->foretold.push_back(sentence);
      // Of the others it is told when they have been read again.
      if (format_.updated_in_place && !request_.plan_only) facts_->notes.warnings.push_back({sentence, 0, {}});
    }
  }

  void TellWay() {
    std::vector<std::string>& foretold = facts_->foretold;
    foretold.insert(foretold.begin(), way_->Told());
    if (shapes_.curves) foretold.emplace_back("Arcs become lines of many short segments in the other reference.");
  }

  [[nodiscard]] std::string ShownPath() const {
    return format_.container
               ? (fs::path(place_.container) / place_.dataset / place_.ClassName()).lexically_normal().string()
               : place_.NativePath();
  }

  [[nodiscard]] fs::path ShownFile() const {
    const OutputPlace& place = request_.place;
    return place.InContainer() ? place.container : place.NativePath();
  }

  void RequireRoomForFields() const {
    if (format_.most_fields == 0) return;
    std::size_t count = request_.result_fields.size();
    for (const FieldRef& field : *source_->Traits()->fields.fields) {
      const bool own = field->Type == esriFieldTypeOID || field->Type == esriFieldTypeGeometry;
      if (!own) ++count;
    }
    if (count <= format_.most_fields) return;
    Raise(kInvalidCall, "'" + ToNativePath(facts_->full_name) + "' can't be made: it would have " +
                            std::to_string(count) + " fields, and a " + LowerCase(format_.name) + " keeps " +
                            std::to_string(format_.most_fields) + " in a class. Name another format.");
  }

  // A copy that is only planned is made where nobody looks.
  void MoveToScratch() {
    const fs::path folder = facts_->scratch.emplace("plan").Path();
    place_.dataset.clear();
    if (format_.server) return;
    place_.container = (place_.InContainer() ? folder / fs::path(place_.container).filename() : folder).string();
  }

  [[nodiscard]] fs::path TargetFile() const { return place_.InContainer() ? place_.container : place_.NativePath(); }
  [[nodiscard]] StagedOutput::Standing Standing() const {
    return request_.replaces ? StagedOutput::Standing::Replace : StagedOutput::Standing::Keep;
  }
  [[nodiscard]] ChosenOids Chosen() const { return request_.only; }

  void TellNames(const OGRFeatureDefn& made) {
    for (const CopyColumn& column : columns_->All()) {
      names_.push_back(columns_->MadeName(column, made));
      if (!names_.back().empty()) facts_->notes.NoteName(column.field->Name, names_.back());
    }
    facts_->foretold = columns_->Foretold(made);
  }

  enum class LayerRole : std::uint8_t { Target, Worked };

  // Makes the layer with its columns, and returns its name.
  std::string MakeLayer(GDALDataset& dataset, const std::string& name, const Format& format, CPLStringList options,
                        const fs::path& shown, LayerRole role = LayerRole::Target) {
    LayerHandle source = source_->Source()->Read();
    const bool same_format = format.driver == source.Dataset().GetDriverName();
    NameOwnColumns(
        format,
        same_format ? OwnColumns{source.Layer().GetFIDColumn(), source.Layer().GetGeometryColumn()} : OwnColumns{},
        *source_->Traits(), request_.result_fields, options);
    const bool brought = role == LayerRole::Target && way_ != nullptr;
    ShapeFacts shapes = shapes_;
    OGRwkbGeometryType declared = source.Layer().GetGeomType();
    if (brought) {
      declared = OGR_GT_GetLinear(declared);
      shapes.curves = false;
    }
    type_ = LayerTypeFor(declared, source_->Traits()->shape_type, shapes, format);
    columns_ = std::make_shared<CopyColumns>(*source_->Traits(), *source.Layer().GetLayerDefn(), DriverOf(format),
                                             format, same_format);
    if (same_format) CopyDomains(source.Dataset(), dataset);
    // What is only worked on is read from end to end, and what is published gets its index when it is whole.
    if (role == LayerRole::Worked || format.indexed_at_end) options.SetNameValue("SPATIAL_INDEX", "NO");
    const OGRSpatialReference* reference = brought ? way_->Target() : source.Layer().GetSpatialRef();
    OGRLayer* layer = CreateTargetLayer(dataset, name, reference, type_, options, shown);
    columns_->AddTo(*layer, shown.string());
    for (const CopyColumn& column : columns_->All()) {
      worked_names_.push_back(columns_->MadeName(column, *layer->GetLayerDefn()));
    }
    if (role == LayerRole::Target) {
      TellNames(*layer->GetLayerDefn());
      for (std::string& sentence : ForetoldOfShapes(declared, shapes, WhatIsKept(*layer, format))) {
        facts_->foretold.push_back(std::move(sentence));
      }
    }
    return layer->GetName();
  }

  // Fields of the same format keep their domains.
  void CopyDomains(GDALDataset& from, GDALDataset& to) {
    const GdalErrorScope quiet;
    for (const CopyColumn& column : columns_->All()) {
      const std::string name = column.definition->GetDomainName();
      if (name.empty() || to.GetFieldDomain(name) != nullptr) continue;
      const OGRFieldDomain* domain = from.GetFieldDomain(name);
      std::string reason;
      const bool added =
          domain != nullptr && to.AddFieldDomain(std::unique_ptr<OGRFieldDomain>(domain->Clone()), reason);
      if (!added) column.definition->SetDomainName("");
    }
  }

  std::shared_ptr<OgrFeatureClass> MakeShapefile() {
    auto staged = std::make_unique<StagedOutput>(TargetFile(), StagedOutput::Begin::Empty);
    std::string layer;
    {
      const DatasetHandle dataset = CreateFile(DriverOf(format_), staged->Path(), ShownFile());
      layer = MakeLayer(*dataset, staged->Path().stem().string(), format_, LayerOptions(format_), ShownFile());
    }
    const LayerHandle source = source_->Source()->Read();
    KeepBesideShapefile(staged->Path(), way_ ? way_->Target() : source.Layer().GetSpatialRef(), ExtentOfCopy());
    return std::make_shared<CopyOf<StagedFeatureClass>>(facts_, std::move(staged), layer, Standing());
  }

  std::shared_ptr<OgrFeatureClass> MakeInGeoPackage() {
    const bool stands = fs::exists(TargetFile());
    auto staged =
        std::make_unique<StagedOutput>(TargetFile(), stands ? StagedOutput::Begin::Copy : StagedOutput::Begin::Empty);
    std::string layer;
    {
      const DatasetHandle dataset = stands ? OpenDatasetAt(staged->Path().string(), FileAccess::Change)
                                           : CreateFile(DriverOf(format_), staged->Path(), ShownFile());
      if (request_.replaces) RemoveLayer(*dataset, place_.ClassName());
      layer = MakeLayer(*dataset, place_.ClassName(), format_, LayerOptions(format_), ShownFile());
    }
    const auto standing = stands ? StagedOutput::Standing::Replace : StagedOutput::Standing::Keep;
    return std::make_shared<CopyOf<StagedFeatureClass>>(facts_, std::move(staged), layer, standing);
  }

  [[nodiscard]] GeodatabaseWish InGeodatabase() const {
    return {{place_.format, place_.container, place_.dataset, place_.ClassName()},
            request_.replaces && !request_.plan_only,
            way_ ? way_->To() : source_->Traits()->reference,
            way_ ? way_->Bring(shapes_.extent) : shapes_.extent};
  }

  [[nodiscard]] LayerMaker GeodatabaseLayer() {
    return [this](GDALDataset& dataset, CPLStringList options) {
      return MakeLayer(dataset, place_.ClassName(), format_, std::move(options), ShownFile());
    };
  }

  std::shared_ptr<OgrFeatureClass> MakeInFileGeodatabase() {
    const NewGeodatabaseClass made = MakeInGeodatabase(InGeodatabase(), GeodatabaseLayer());
    return std::make_shared<CopyOf<StagedGeodatabaseClass>>(facts_, place_.container, made.name, made.edit);
  }

  std::shared_ptr<OgrFeatureClass> MakeInPersonalGeodatabase() {
    const MadePersonalClass made = engine::MakeInPersonalGeodatabase(InGeodatabase(), GeodatabaseLayer());
    return std::make_shared<CopyOf<StagedPersonalClass>>(facts_, place_.container, made.name, made.edit);
  }

  // Identifiers are kept where all of them can be.
  [[nodiscard]] bool KeepsIdentifiers(const Format& format) const {
    if (!format.keeps_identifiers || shapes_.repeated) return false;
    return !format.feature_datasets || (shapes_.least > 0 && shapes_.most < kMostGeodatabaseRow);
  }

  LayerCopy Filled(const std::shared_ptr<OgrFeatureClass>& output) {
    LayerCopy copy{output, {}, {}};
    FillIn(output, format_, facts_->notes, copy);
    return copy;
  }

  // Returns the identifiers of the rows, in order.
  std::vector<std::int64_t> FillIn(const std::shared_ptr<OgrFeatureClass>& output, const Format& format,
                                   RunJournal& notes, LayerCopy& copy) {
    NameFields(copy);
    if (request_.plan_only) return {};
    CopiedRows rows = CopyRows(source_, Chosen(), *columns_, type_, format, KeepsIdentifiers(format), output, notes);
    facts_->rows = rows.count;
    if (request_.selected.empty()) return std::move(rows.oids);
    for (std::size_t index = 0; index < rows.oids.size(); ++index) {
      if (rows.oids[index] != kNoRow) copy.oids.emplace_back(shapes_.oids[index], rows.oids[index]);
    }
    std::ranges::sort(copy.oids);
    return std::move(rows.oids);
  }

  void NameFields(LayerCopy& copy) const {
    const std::vector<CopyColumn>& columns = columns_->All();
    for (std::size_t index = 0; index < columns.size(); ++index) {
      copy.fields.push_back({columns[index].field->Name, names_.at(index), worked_names_.at(index)});
    }
  }

  LayerCopy MakeConverted() {
    Conversion conversion;
    conversion.source = source_;
    conversion.chosen = request_.only;
    conversion.format = &format_;
    conversion.target = TargetFile();
    conversion.shown = request_.place.NativePath();
    conversion.layer = format_.container ? place_.ClassName() : conversion.target.stem().string();
    conversion.standing = Standing();
    conversion.result_fields = request_.result_fields;
    conversion.shapes = shapes_;
    conversion.shapes.oids = {};
    conversion.extent = request_.source->Extent();
    conversion.way = way_;
    const fs::path beside = PlaceOfWork(format_, conversion.target);
    {
      const StagedOutput probe(beside, StagedOutput::Begin::Empty);
      names_ = ProbeConversion(conversion, probe.Path().parent_path(), *facts_).names;
    }
    const Format& worked = *FormatOfPath(kGeoPackage);
    auto work = std::make_unique<StagedOutput>(beside, StagedOutput::Begin::Empty);
    {
      const DatasetHandle dataset = CreateFile(DriverOf(worked), work->Path(), ShownFile());
      (void)MakeLayer(*dataset, conversion.layer, worked, LayerOptions(worked), ShownFile(), LayerRole::Worked);
    }
    conversion.worked_columns = columns_;
    const auto output = std::make_shared<ConvertedCopy>(facts_, std::move(work), std::move(conversion));
    LayerCopy copy{output, {}, {}};
    // What a GeoPackage makes of a value isn't what the copy has of it.
    RunJournal notes;
    output->Target().worked_oids = FillIn(output, worked, notes, copy);
    notes.changed.clear();
    facts_->notes.TakeNotes(notes);
    return copy;
  }

  // The run works on a GeoPackage in the source's own reference.
  LayerCopy MakeBrought() {
    BroughtTarget target{MakeTarget(), columns_, type_, &format_, KeepsIdentifiers(format_)};
    worked_names_.clear();
    const Format& worked = *FormatOfPath(kGeoPackage);
    auto work = std::make_unique<StagedOutput>(PlaceOfWork(format_, TargetFile()), StagedOutput::Begin::Empty);
    Conversion conversion;
    conversion.source = source_;
    conversion.chosen = request_.only;
    conversion.shown = request_.place.NativePath();
    conversion.layer = place_.ClassName();
    conversion.way = way_;
    {
      const DatasetHandle dataset = CreateFile(DriverOf(worked), work->Path(), ShownFile());
      (void)MakeLayer(*dataset, conversion.layer, worked, LayerOptions(worked), ShownFile(), LayerRole::Worked);
    }
    conversion.worked_columns = columns_;
    const auto output =
        std::make_shared<BroughtCopy>(facts_, std::move(work), std::move(conversion), std::move(target));
    LayerCopy copy{output, {}, {}};
    // What a GeoPackage makes of a value isn't what the copy has of it.
    RunJournal notes;
    output->Rows().worked_oids = FillIn(output, worked, notes, copy);
    notes.changed.clear();
    facts_->notes.TakeNotes(notes);
    return copy;
  }

  const LayerCopyRequest& request_;
  std::shared_ptr<const Reprojection> way_;  // null where the copy stays in the source's reference
  std::shared_ptr<OgrClass> source_;
  OutputPlace place_;
  const Format& format_;
  std::shared_ptr<CopyFacts> facts_;
  ShapeFacts shapes_;
  std::shared_ptr<CopyColumns> columns_;
  OGRwkbGeometryType type_ = wkbUnknown;
  std::vector<std::string> names_, worked_names_;  // of the source's attributes
};

// A GeoPackage without layers opens for writing alone.
DatasetHandle OpenContainer(const OutputPlace& place) {
  try {
    return OpenDataset(place.container);
  } catch (const Fault&) {
    if (place.format->store != FileStore::GeoPackage) throw;
    const auto quietly = [&]() -> DatasetHandle {
      try {
        return OpenDataset(place.container, FileAccess::Change);
      } catch (const Fault&) {
        return {};
      }
    };
    DatasetHandle empty = quietly();
    if (!empty || empty->GetLayerCount() > 0) throw;
    return empty;
  }
}

}  // namespace

bool Stands(const OutputPlace& place) {
  if (!place.InContainer()) {
    // A run may have died in its last step.
    FinishInterrupted(place.NativePath());
    return !place.Files().empty();
  }
  if (!place.format->server && !fs::exists(place.container)) return false;
  const DatasetHandle dataset = OpenContainer(place);
  for (int index = 0; index < dataset->GetLayerCount(); ++index) {
    if (EqualsIgnoringCase(dataset->GetLayer(index)->GetName(), place.ClassName())) return true;
  }
  return false;
}

bool CanBeCopied(const std::shared_ptr<IFeatureClass>& source) { return Is<OgrClass>(source); }

LayerCopy MakeLayerCopy(const LayerCopyRequest& request) {
  const auto source = Cast<OgrClass>(request.source);
  LayerCopy copy = Copier(request, Require(source, "IFeatureClass")).Make();
  if (request.selected.empty()) return copy;
  std::vector<std::int64_t> selected;
  for (const auto& [own, oid] : copy.oids) {
    if (std::ranges::binary_search(request.selected, own)) selected.push_back(oid);
  }
  copy.selection = SelectByOids(copy.output, request.plan_only ? request.selected : selected);
  return copy;
}

}  // namespace tessarine
