#include "planetary/feature_rewrite.h"

#include "planetary/carried_fields.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"
#include "support/attempt.h"
#include "support/attribute_copy.h"
#include "support/frmOrlProgressMeter.h"
#include "support/run_progress.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr std::int32_t kReportFontSize = 8;
constexpr const char* kTask = "Converting Features...";
constexpr const char* kPartial = "  [Partial]";
constexpr const char* kChanged = "The output holds another area, length or number of places than the input.";

// The described class, and the place that it got in the end: the user may have named another one.
struct CreatedOutput {
  std::shared_ptr<IFeatureClass> features;
  OutputChoice place;

  [[nodiscard]] bool IsShapefile() const { return Cast<IDataset>(features)->Category().starts_with("Shapefile"); }
};

CreatedOutput CreateOutput(const OutputDescription& description, const Envelope& extent) {
  CreatedOutput output{nullptr, description.Place()};
  OutputChoice& place = output.place;
  esriGeometryType shape_type = description.ShapeType();
  output.features = CreateGeneralFeatureClass(
      shape_type, description.Reference(), place.Directory, place.Name, place.Kind, description.Fields(),
      description.DialogTitle(), place.IsFeatureDataset, place.FeatureDatasetName, false, false, &extent, 0);
  place.Directory = WithoutTrailingSlash(place.Directory);
  if (output.features && output.IsShapefile()) {
    place.IsFeatureDataset = false;
    if (!EndsWithIgnoringCase(place.Name, ".shp")) place.Name += ".shp";
  }
  return output;
}

std::string ShownName(const OutputChoice& place) {
  return place.IsFeatureDataset ? place.FeatureDatasetName + ":" + place.Name : place.Name;
}

// All carried fields, in the order that the output was created with.
AttributeCopy CopyOf(const IFeatureClass& from, const IFeatureClass& to) {
  const std::vector<std::int32_t> sources = CarriedPositions(*from.Fields());
  return {sources, LastAttributes(*to.Fields(), sources.size()), *to.Fields()};
}

RewrittenShape Rewrite(const FeatureRewrite& run, const IFeature& feature, const KeepGoing& keep_going) {
  const GeometryRef shape = feature.ShapeCopy();
  if (!shape || shape->IsEmpty()) {
    return {shape, "  --> Feature at OID #" + std::to_string(feature.OID()) + " is empty..."};
  }
  return run.rewrite(shape, feature.OID(), keep_going);
}

// The features one by one. False when the user stopped the run.
bool RewriteAll(const FeatureRewrite& run, IFeatureClass& input, const std::shared_ptr<IFeatureClass>& output,
                RunProgress& progress, RewriteFacts& facts) {
  RunJournal& journal = Host().Journal();
  const AttributeCopy attributes = CopyOf(input, *output);
  const std::shared_ptr<IFeatureCursor> reader = input.Search(nullptr, false);
  const std::shared_ptr<IFeatureCursor> writer = output->Insert(true);
  const std::shared_ptr<IFeatureBuffer> buffer = output->CreateFeatureBuffer();
  const KeepGoing keep_going = [&progress] { return progress.GoesOn(); };
  bool finished = true;
  while (const std::shared_ptr<IFeature> feature = reader->NextFeature()) {
    finished = progress.Step(++facts.records_done);
    if (!finished) break;
    ++journal.read;
    const RewrittenShape rewritten = Rewrite(run, *feature, keep_going);
    finished = !rewritten.stopped;
    if (!finished) break;
    if (facts.measures.Add(rewritten.measure, feature->OID())) journal.NoteWarning(kChanged, feature->OID());
    if (rewritten.steps.holds_north) facts.poles.north.push_back(feature->OID());
    if (rewritten.steps.holds_south) facts.poles.south.push_back(feature->OID());
    if (!rewritten.problem.empty()) facts.problems += ProblemLine(rewritten.problem);
    buffer->SetShape(rewritten.shape);
    attributes.Copy(*feature, *buffer, journal);
    writer->InsertFeature(*buffer);
    ++journal.written;
  }
  writer->Close();
  return finished;
}

void ShowResult(const CreatedOutput& output, bool partial, const std::shared_ptr<IMxDocument>& document) {
  const std::shared_ptr<IFeatureLayer> layer = Host().CreateFeatureLayer();
  layer->SetFeatureClass(output.features);
  layer->SetName(output.features->AliasName() + (partial ? kPartial : ""));
  layer->SetVisible(true);
  document->AddLayer(layer);
  document->UpdateContents();
}

// Overwriting what is being read would leave neither.
bool ReadsItsOutput(const FeatureRewrite& run) {
  const OutputChoice place = run.output.Place();
  const std::string path = place.FullPath();
  const std::string own = run.layer->FeatureClass()->FullName();
  return EqualsIgnoringCase(own, path) || EqualsIgnoringCase(own, place.Directory + "\\" + place.Name);
}

std::string EndWithoutOutput(const FeatureRewrite& run, const char* reason) {
  Host().MessageBox().Show(std::string("No Feature Class Created:\r\n") + reason, "");
  RunJournal& journal = Host().Journal();
  journal.failed = true;
  journal.end = Host().Clock().Now();
  return NoOutputReport(run.conversion);
}

std::string RunBody(const FeatureRewrite& run, const std::shared_ptr<IApplication>& application,
                    const std::shared_ptr<IMxDocument>& document, const std::shared_ptr<clsExtension>& extension,
                    bool show_progress, RewriteFacts& facts) {
  RunJournal& journal = Host().Journal();
  const std::shared_ptr<IFeatureClass> input = Require(Require(run.layer, "layer")->FeatureClass(), "FeatureClass");
  RunProgress progress({"Converting " + run.layer->Name(), std::string(kTask) + "\r\n", kTask}, application, extension,
                       input->FeatureCount(nullptr), show_progress ? std::make_shared<frmOrlProgressMeter>() : nullptr);
  if (ReadsItsOutput(run)) {
    progress.Abandon();
    return EndWithoutOutput(run, "The output is the feature class that is to be converted...");
  }
  const CreatedOutput output = CreateOutput(run.output, input->Extent());
  if (!output.features) {
    progress.Abandon();
    return EndWithoutOutput(run, "Bailing out...");
  }
  journal.output_path = output.place.FullPath();
  facts.measures.type = input->ShapeType();
  journal.reference = output.features->SpatialReference();

  facts.stopped = !RewriteAll(run, *input, output.features, progress, facts);
  journal.stopped = facts.stopped;
  facts.stopped ? progress.Stop() : progress.Finish();
  ShowResult(output, facts.stopped, document);
  journal.end = Host().Clock().Now();
  facts.time_spent = ReturnTimeElapsedRTF(journal.begin, journal.end, kReportFontSize);
  return RewriteReport(run.title, run.sections,
                       {ShownName(output.place), output.place.Directory, output.features->FeatureCount(nullptr)},
                       facts);
}

bool NameIsTaken(const OutputChoice& place) {
  const auto factory = FactoryOfCategory(CategoryOfKind(place.Kind));
  if (!factory || place.Name.empty()) return false;
  const auto workspace = Attempt([&] { return factory->OpenFromFile(place.Directory, 0); });
  return workspace && CheckIfFeatureClassExists(workspace, place.Name);
}

}  // namespace

std::string RewriteFeatures(const FeatureRewrite& run, const std::shared_ptr<IApplication>& application,
                            const std::shared_ptr<IMxDocument>& document,
                            const std::shared_ptr<clsExtension>& extension, bool show_progress) {
  RewriteFacts facts;
  RunJournal& journal = Host().Journal();
  journal = RunJournal();
  journal.begin = Host().Clock().Now();
  const auto body = [&] { return RunBody(run, application, document, extension, show_progress, facts); };
  const auto on_fault = [&](const Fault& fault) {
    journal.failed = true;
    journal.end = Host().Clock().Now();
    return FaultReport(run.conversion, run.worker, facts, fault);
  };
  return TrapWith(run.worker, body, on_fault);
}

std::string PlanRewrite(const FeatureRewrite& run) {
  const OutputChoice place = run.output.Place();
  std::vector<ReportSection> sections = run.sections;
  sections.push_back({"Output:",
                      {"  ** Feature Class:  " + ShownName(place), "  ** Workspace:  " + ToNativePath(place.Directory),
                       "  ** " + DirectoryTypeText(place.Kind)}});
  ReportSection fields{"Fields:", {}};
  for (const Variant& element : *run.output.FieldNames()) {
    const auto names = element.AsObject<StrArray>();
    const bool renamed = names->Element(0) != names->Element(1);
    fields.lines.push_back("       " + names->Element(1) + (renamed ? "  <--  " + names->Element(0) : ""));
  }
  if (fields.lines.empty()) fields.lines.emplace_back("       <-- No Fields -->");
  sections.push_back(fields);
  sections.push_back(
      {"Questions:",
       {NameIsTaken(place) ? "  ** Feature Class Already Exists: the run would ask whether to overwrite it."
                           : "  ** None"}});
  return PlanReport(run.conversion, sections);
}

}  // namespace tessarine
