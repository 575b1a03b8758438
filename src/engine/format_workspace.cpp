// SPDX-License-Identifier: GPL-2.0-or-later
// Outputs in the formats that have no workspace of their own.
//
// A class of a GeoPackage is made in a copy of its file. In all other formats a run works on a GeoPackage beside the
// target; when it is published, its records are written in the format of the target.
#include "outputs/format_workspace.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "engine/converted_copy.h"
#include "engine/copy_classes.h"
#include "engine/copy_target.h"
#include "engine/data_source.h"
#include "engine/engine_fault.h"
#include "engine/staged_class.h"
#include "engine/workspace_common.h"
#include "outputs/layer_copy.h"
#include "outputs/scratch_folder.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;
using namespace engine;

// A class with the columns that were asked for, and what becomes of them.
class PlannedFacts {
 public:
  PlannedFacts() : facts_(std::make_shared<CopyFacts>()) {}
  [[nodiscard]] CopyFacts& Facts() const { return *facts_; }
  [[nodiscard]] PlannedClass& Plan() { return plan_; }
  [[nodiscard]] const PlannedClass& Plan() const { return plan_; }

 private:
  std::shared_ptr<CopyFacts> facts_;
  PlannedClass plan_;
};

/// A new class of a GeoPackage.
class NewGeoPackageClass final : private PlannedFacts, public StagedFeatureClass, public IPlannedClass {
 public:
  NewGeoPackageClass(PlannedFacts planned, std::unique_ptr<StagedOutput> staged, const std::string& layer,
                     StagedOutput::Standing standing)
      : PlannedFacts(std::move(planned)), StagedFeatureClass(std::move(staged), layer, standing) {}
  [[nodiscard]] const PlannedClass& Planned() const override { return Plan(); }
  [[nodiscard]] std::vector<std::string> Foretold() const override { return Plan().foretold; }
};

/// A new class of another format, worked on in a GeoPackage. Published, it is what stands in its place.
class NewConvertedClass final : private PlannedFacts,
                                public OgrFeatureClass,
                                public IStagedDataset,
                                public IPlannedClass {
 public:
  NewConvertedClass(PlannedFacts planned, std::unique_ptr<StagedOutput> work, Conversion conversion,
                    esriGeometryType kind)
      : PlannedFacts(std::move(planned)),
        OgrFeatureClass(
            std::make_shared<OgrSource>(conversion.shown.string(), work->Path().string(), conversion.layer, kind)),
        work_(std::move(work)),
        conversion_(std::move(conversion)) {
    Facts().full_name = FromNativePath(conversion_.shown.string());
  }
  ~NewConvertedClass() override { Discard(); }
  NewConvertedClass(const NewConvertedClass&) = delete;
  NewConvertedClass& operator=(const NewConvertedClass&) = delete;

  [[nodiscard]] std::string FullName() const override { return Facts().full_name; }
  // Some formats have to be read as a whole for it; the rows were counted when it was published.
  [[nodiscard]] std::int32_t FeatureCount(const QueryFilter* filter) const override {
    return filter == nullptr && !work_ ? static_cast<std::int32_t>(Facts().rows)
                                       : OgrFeatureClass::FeatureCount(filter);
  }
  [[nodiscard]] const PlannedClass& Planned() const override { return Plan(); }
  [[nodiscard]] const RunJournal* Notes() const override { return &Facts().notes; }
  [[nodiscard]] std::vector<std::string> Foretold() const override { return Plan().foretold; }

  void Publish() override {
    if (!work_) Raise(kInvalidCall, "'" + Name() + "' was published or given up already.");
    const auto self = std::dynamic_pointer_cast<OgrClass>(shared_from_this());
    // Nothing may own itself, whatever ends the writing.
    const auto let_go = [this](void*) { conversion_.source.reset(); };
    const std::unique_ptr<void, decltype(let_go)> own(this, let_go);
    conversion_.source = self;
    // A run that was stopped publishes what it has done.
    const bool stopped = StopRequested();
    conversion_.shapes = LookAtShapes(self, std::nullopt, [stopped] {
      if (!stopped) EndIfStopped();
    });
    Facts().rows = static_cast<std::int64_t>(conversion_.shapes.oids.size());
    WriteConversion(conversion_, self, Facts());
    MoveToTarget();
    work_.reset();
  }
  void Discard() override {
    if (!work_) return;
    Source()->Renew();
    work_.reset();
  }

 private:
  void MoveToTarget() {
    const std::string path = conversion_.target.string();
    const auto published = std::make_shared<OgrSource>(path, path, Facts().layer, ShapeType());
    published->Renew();
    MoveTo(published);
  }

  std::unique_ptr<StagedOutput> work_;
  Conversion conversion_;
};

class FormatWorkspace final : public IFeatureWorkspace, public IClassPlanner {
 public:
  FormatWorkspace(const Format& format, std::string place) : format_(format), place_(std::move(place)) {}

  [[nodiscard]] std::string PathName() const override { return FromNativePath(place_); }

  [[nodiscard]] std::shared_ptr<IFeatureClass> OpenFeatureClass(const std::string& name) override {
    return Source(name)->OpenFeatureClass(format_.container ? name : "");
  }
  [[nodiscard]] std::shared_ptr<ITable> OpenTable(const std::string& name) override {
    return Source(name)->OpenTable(format_.container ? name : "");
  }
  [[nodiscard]] std::shared_ptr<IFeatureDataset> OpenFeatureDataset(const std::string& name) override {
    RaiseEngineFault("'" + place_ + "' has no feature dataset '" + name + "'.");
  }

  [[nodiscard]] bool HoldsName(const std::string& name) override { return Stands(PlaceOf(name)); }
  void AllowReplacing(const std::string& name) override { replaced_.insert(LowerCase(name)); }

  [[nodiscard]] std::shared_ptr<IFeatureClass> CreateFeatureClass(const std::string& name, const FieldsRef& fields,
                                                                  const std::shared_ptr<UID>&,
                                                                  const std::shared_ptr<UID>&, esriFeatureType,
                                                                  const std::string& shape_field,
                                                                  const std::string&) override {
    const bool replaces = replaced_.erase(LowerCase(name)) > 0;
    if (!format_.server) RequireWritableFolder(TargetOf(name).parent_path().string());
    if (!replaces && HoldsName(name)) RaiseEngineFault("'" + PlaceOf(name).NativePath() + "' exists already.");
    const NewClass request{name, fields.get(), shape_field};
    if (format_.updated_in_place) return MakeInGeoPackage(request, replaces);
    return MakeConverted(request, replaces);
  }

  [[nodiscard]] PlannedClass PlanClass(const std::string& name, const FieldsRef& fields,
                                       const std::string& shape_field) override {
    const ScratchFolder scratch("plan");
    const fs::path target = scratch.Path() / TargetOf(name).filename();
    const fs::path& place = format_.container ? target : scratch.Path();
    FormatWorkspace beside(format_, format_.server ? place_ : place.string());
    beside.shown_place_ = place_;
    // On a server the layer of the name may stand already; nothing of the plan stays there.
    beside.AllowReplacing(name);
    const auto made = beside.CreateFeatureClass(name, fields, nullptr, nullptr, esriFTSimple, shape_field, "");
    return Require(Cast<IPlannedClass>(made), "IPlannedClass")->Planned();
  }

 private:
  [[nodiscard]] OutputPlace PlaceOf(const std::string& name) const { return {&format_, place_, "", name}; }
  // What the user calls it, also where it is only planned.
  [[nodiscard]] std::string ShownOf(const std::string& name) const {
    return OutputPlace{&format_, shown_place_, "", name}.NativePath();
  }
  [[nodiscard]] fs::path TargetOf(const std::string& name) const {
    return format_.container ? fs::path(place_) : fs::path(place_) / name;
  }
  [[nodiscard]] std::shared_ptr<DataSource> Source(const std::string& name) const {
    return DataSource::Open(TargetOf(name).string());
  }

  std::shared_ptr<IFeatureClass> MakeInGeoPackage(const NewClass& request, bool replaces) {
    const fs::path target = TargetOf(request.name);
    const bool stands = fs::exists(target);
    auto staged =
        std::make_unique<StagedOutput>(target, stands ? StagedOutput::Begin::Copy : StagedOutput::Begin::Empty);
    PlannedFacts planned;
    std::string layer;
    {
      const GdalErrorScope quiet;
      const DatasetHandle dataset = OpenTarget(format_, staged->Path(), ShownOf(request.name));
      if (replaces) RemoveLayer(*dataset, request.name);
      std::vector<std::string> clocks;
      layer = MakeLayer(*dataset, request, format_, ShapeDefinition(request).GeometryType, clocks);
      for (const std::string& name : clocks) {
        planned.Plan().foretold.push_back("In the field '" + name + "', times of day become texts.");
      }
      PlanColumns(*dataset->GetLayerByName(layer.c_str()), request, planned.Plan());
    }
    return std::make_shared<NewGeoPackageClass>(
        std::move(planned), std::move(staged), layer,
        stands ? StagedOutput::Standing::Replace : StagedOutput::Standing::Keep);
  }

  std::shared_ptr<IFeatureClass> MakeConverted(const NewClass& request, bool replaces) {
    PlannedFacts planned;
    Conversion conversion;
    conversion.format = &format_;
    conversion.extent = ShapeDefinition(request).Extent;
    conversion.target = TargetOf(request.name);
    conversion.shown = ShownOf(request.name);
    conversion.layer = format_.container ? request.name : conversion.target.stem().string();
    conversion.standing = replaces ? StagedOutput::Standing::Replace : StagedOutput::Standing::Keep;
    const Format& worked = *FormatOfPath(".gpkg");
    const esriGeometryType kind = ShapeDefinition(request).GeometryType;
    auto work = std::make_unique<StagedOutput>(PlaceOfWork(format_, conversion.target), StagedOutput::Begin::Empty);
    {
      const GdalErrorScope quiet;
      const DatasetHandle dataset = OpenTarget(worked, work->Path(), conversion.shown);
      const std::string layer = MakeLayer(*dataset, {conversion.layer, request.fields, request.shape_field}, worked,
                                          esriGeometryNull, conversion.clocks);
      conversion.layer = layer;
    }
    const auto source = std::make_shared<OgrFeatureClass>(
        std::make_shared<OgrSource>(conversion.shown.string(), work->Path().string(), conversion.layer, kind));
    PlanConversion(conversion, source, work->Path().parent_path(), request, planned);
    return std::make_shared<NewConvertedClass>(std::move(planned), std::move(work), std::move(conversion), kind);
  }

  // The columns of the file, found out by an empty one.
  void PlanConversion(Conversion conversion, const std::shared_ptr<OgrClass>& source, const fs::path& folder,
                      const NewClass& request, PlannedFacts& planned) const {
    conversion.source = source;
    const ProbedColumns probed = ProbeConversion(conversion, folder, planned.Facts());
    PlannedClass& plan = planned.Plan();
    plan.fields.clear();
    std::size_t index = 0;
    for (const FieldRef& field : *request.fields) {
      if (!IsAttribute(*field)) continue;
      plan.fields.push_back({field->Name, probed.names.at(index), probed.types.at(index)});
      ++index;
    }
    for (const std::string& sentence : planned.Facts().foretold) plan.foretold.push_back(sentence);
  }

  // Makes the layer with its columns, and returns its name. With no kind, the layer is one of any shapes. Times of day
  // become texts, and `clocks` takes their fields.
  std::string MakeLayer(GDALDataset& dataset, const NewClass& request, const Format& format, esriGeometryType kind,
                        std::vector<std::string>& clocks) const {
    CPLStringList options = LayerOptions(format);
    std::vector<std::string> names;
    Fields columns;
    for (const FieldRef& field : *request.fields) {
      if (!IsAttribute(*field)) {
        columns.AddField(field);
        continue;
      }
      const FieldRef own = CloneOf(*field);
      names.push_back(own->Name);
      if (own->Type == esriFieldTypeDate && own->Content == DateContent::Time) {
        own->Type = esriFieldTypeString;
        own->Length = 0;
        clocks.push_back(own->Name);
      }
      columns.AddField(own);
    }
    NameOwnColumns(format, names, options);
    // What is only worked on is read from end to end, and what is published gets its index when it is whole.
    options.SetNameValue("SPATIAL_INDEX", "NO");
    return CreateLayer(dataset, {request.name, &columns, request.shape_field}, options,
                       kind == esriGeometryNull ? LayerShapes::Any : LayerShapes::Multiple);
  }

  static void PlanColumns(OGRLayer& layer, const NewClass& request, PlannedClass& plan) {
    const OGRFeatureDefn& made = *layer.GetLayerDefn();
    int index = 0;
    for (const FieldRef& field : *request.fields) {
      if (!IsAttribute(*field)) continue;
      const OGRFieldDefn& column = *made.GetFieldDefn(index++);
      plan.fields.push_back({field->Name, column.GetNameRef(), ColumnTypeWord(column)});
    }
  }

  const Format& format_;
  std::string place_, shown_place_ = place_;
  std::set<std::string> replaced_;  // what the next class of the name may replace
};

class FormatFactory final : public IWorkspaceFactory {
 public:
  explicit FormatFactory(const Format& format) : format_(format) {}

  [[nodiscard]] std::shared_ptr<IFeatureWorkspace> OpenFromFile(const std::string& path, std::int32_t) override {
    const std::string native = ToNativePath(path);
    if (format_.IsFile() && !fs::is_directory(native)) RaiseEngineFault("There is no folder '" + native + "'.");
    return std::make_shared<FormatWorkspace>(format_, native);
  }
  [[nodiscard]] bool IsWorkspace(const std::string& path) const override {
    const std::string native = ToNativePath(path);
    return format_.IsFile() ? fs::is_directory(native) : FormatOfPath(native) == &format_;
  }
  [[nodiscard]] bool ContainsWorkspace(const std::string& folder) const override {
    std::error_code error;
    const fs::directory_iterator entries(ToNativePath(folder), error);
    return !error && std::any_of(begin(entries), end(entries), [&](const fs::directory_entry& entry) {
      return FormatOfPath(entry.path().string()) == &format_;
    });
  }

 private:
  const Format& format_;
};

}  // namespace

std::shared_ptr<IWorkspaceFactory> CreateFormatWorkspaceFactory(const Format& format) {
  return std::make_shared<FormatFactory>(format);
}

void CreateGeoPackage(const std::string& native_path) {
  const fs::path path = fs::absolute(native_path);
  if (fs::exists(path)) RaiseEngineFault("'" + native_path + "' exists already: name another GeoPackage.");
  RequireWritableFolder(path.parent_path().string());
  StagedOutput staged(path, StagedOutput::Begin::Empty);
  (void)OpenTarget(*FormatOfPath(".gpkg"), staged.Path(), path);
  staged.Publish(StagedOutput::Standing::Keep);
}

}  // namespace tessarine
