// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/output_datasets.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "outputs/brought_output.h"
#include "outputs/column_loss.h"
#include "outputs/foretold_reference.h"
#include "outputs/staged_output.h"
#include "outputs/temporary_layers.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/aml_func_mod.h"
#include "support/attempt.h"
#include "support/dataset_names.h"
#include "support/foretold_changes.h"
#include "support/new_classes.h"
#include "support/output_chooser.h"
#include "support/output_kinds.h"
#include "support/rows_on_disk.h"

namespace tessarine::MyGeneralOperations {
namespace {

using namespace aml_func_mod;

// What a column of a shapefile or geodatabase holds.
std::string TypeWordOf(const Field& field, std::int32_t kind) {
  switch (field.Type) {
    case esriFieldTypeSmallInteger:
    case esriFieldTypeInteger:
    case esriFieldTypeInteger64:
      return "whole number";
    case esriFieldTypeSingle:
    case esriFieldTypeDouble:
      return "number";
    case esriFieldTypeDate:
      if (field.Content == DateContent::Time) return "text";
      return kind == kShapefile || field.Content == DateContent::Day ? "date" : "date and time";
    case esriFieldTypeString: {
      const std::int32_t width = kind == kShapefile ? std::min(field.Length, kLongestDbaseText) : field.Length;
      return width > 0 ? "text of " + std::to_string(width) : "text";
    }
    default:
      return "text";
  }
}

bool IsFolderCategory(const std::string& category) { return category == "Shapefile" || category == "Folder"; }

// Asks for directory, name and dataset; the category of the place, empty when the user gave up.
std::optional<std::string> AskForPlace(RunContext& context, OutputRequest& request) {
  const std::shared_ptr<IGxDialog> dialog = context.services.CreateGxDialog();
  dialog->AddFilter(GxFilter::FeatureClasses, true);
  dialog->SetTitle(request.dialog_title);
  dialog->SetAllowMultiSelect(false);
  dialog->SetButtonCaption("Enter");
  if (!dialog->DoModalSave(0)) {
    context.journal.cancelled = true;
    return std::nullopt;
  }
  const auto location = Require(dialog->FinalLocation(), "FinalLocation");
  const OutputKind kind = KindOfCategory(location->Category());
  OutputPlace& place = request.place;
  place = PlaceIn(kind, location->FullName(), dialog->Name(), place.dataset);
  if (const auto item = Cast<IGxDataset>(location)) {
    const std::shared_ptr<IDataset> dataset = item->Dataset();
    // Any dataset at the place but a class of its own is a feature dataset.
    const bool holds_classes =
        Is<IFeatureDataset>(dataset) || EndsWithIgnoringCase(location->Category(), "Feature Dataset");
    place =
        PlaceIn(kind, dataset->Workspace()->PathName(), place.name, holds_classes ? dataset->Name() : place.dataset);
  }
  const bool in_folder = place.dataset.empty() && kind == kShapefile;
  if (!in_folder || !FollowNamedFormat(place.Path(), place)) return location->Category();
  return DirectoryTypeText(place.Kind());
}

// The category of a place that the caller named; nothing, and the user told, for a kind that there is none of.
std::optional<std::string> CategoryOf(RunContext& context, OutputRequest& request) {
  const std::string category = CategoryOfKind(request.place.Kind());
  if (category.empty()) {
    context.feedback.Tell(
        "PROBLEM:  This function can only create shapefiles, file geodatabase feature classes, or "
        "\r\npersonal geodatabase feature classes.  Bailing out...",
        "Invalid Output Type:");
    return std::nullopt;
  }
  if (request.place.Kind() == kShapefile) request.place.name = SetExtension(request.place.name, "shp");
  return category;
}

// The place with an ending where its format has one.
OutputPlace WithEnding(OutputPlace place) {
  const Format& format = *place.format;
  // Some formats go by several endings, and a user may name the format of any.
  const std::string_view ending = format.HasOwnWorkspace() ? format.ending : ".";
  const bool ends =
      ending == "." ? place.name.find('.') != std::string::npos : EndsWithIgnoringCase(place.name, ending);
  if (format.IsFile() && !ends) place.name += format.ending;
  return place;
}

// Why the output can't be made here, as a sentence.
std::optional<std::string> PlaceProblem(const OutputRequest& request, const OutputPlace& place) {
  if (const auto problem = NameProblem(place)) return problem;
  if (!place.InContainer()) {
    if (const auto problem = ReplacingProblem(place.NativePath())) return problem;
  }
  for (const std::shared_ptr<IClass>& source : request.sources) {
    const auto files = Cast<IDatasetFiles>(source);
    if (files && place.Overlaps(files->Files())) {
      return "'" + place.NativePath() + "' is read by this run: name another output.";
    }
  }
  return std::nullopt;
}

// Classes and feature datasets of a geodatabase share their names.
std::optional<std::string> NameConflict(IFeatureWorkspace& workspace, const OutputPlace& place) {
  if (Attempt([&] { return workspace.OpenFeatureDataset(place.name); })) {
    return "'" + place.name + "' is a feature dataset of '" + place.container + "': name another class.";
  }
  if (!place.dataset.empty() && workspace.HoldsName(place.dataset)) {
    return "'" + place.dataset + "' is a class of '" + place.container +
           "' and no feature dataset: name another dataset, or none.";
  }
  return std::nullopt;
}

// True when the name is free, or the user agrees that what bears it goes when the new class is whole.
bool MakeNameFree(RunContext& context, const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name,
                  const std::string& shown_name) {
  if (!workspace->HoldsName(name) && !CheckIfFeatureClassExists(workspace, name)) return true;
  if (!context.feedback.Ask(RunQuestion::ReplaceOutput,
                            "The Feature Class '" + shown_name + "' already exists!  Do you wish to overwrite it?",
                            kOutputStands))
    return false;
  workspace->AllowReplacing(name);
  return true;
}

// The classes of a dataset share its reference; shapes of another would lie elsewhere.
void RefuseOtherReference(const IFeatureDataset& dataset, const SpatialReferenceRef& reference) {
  const SpatialReferenceRef own = dataset.SpatialReference();
  if (!own || !reference || own->IsEqual(*reference)) return;
  Raise(kInvalidCall, "The feature dataset '" + dataset.Name() + "' is in '" + own->Name() + "', but the output in '" +
                          reference->Name() + "': name another dataset, or none.");
}

Envelope ExtentOf(const OutputRequest& request) { return request.envelope != nullptr ? *request.envelope : Envelope(); }

std::shared_ptr<IFeatureClass> CreateAt(OutputRequest& request, const std::string& category,
                                        const std::shared_ptr<IFeatureWorkspace>& workspace,
                                        const std::shared_ptr<IFeatureDataset>& dataset) {
  if (dataset) {
    return NewDatasetClass(dataset, request.place.name, esriFTSimple, request.geometry_type, request.fields, nullptr,
                           nullptr, "", request.envelope);
  }
  if (IsFolderCategory(category)) {
    return NewPlainClass(*workspace, WithoutShapefileEnding(request.place.name), request.reference,
                         request.geometry_type, request.fields, request.add_unique_id, ExtentOf(request));
  }
  if (!FormatOfKind(KindOfCategory(category))->HasOwnWorkspace()) {
    return NewPlainClass(*workspace, request.place.name, request.reference, request.geometry_type, request.fields,
                         request.add_unique_id, ExtentOf(request));
  }
  return NewGeodatabaseClass(workspace, request.place.name, esriFTSimple, request.reference, request.geometry_type,
                             request.fields, nullptr, nullptr, "", request.envelope, request.feature_count);
}

// What the format makes of the output's reference, the wished one or the tool's own.
std::vector<std::string> LossesOfReference(const OutputRequest& request, const Format& format,
                                           const SpatialReferenceRef& wished) {
  if (!BringsElsewhere(request.reference, wished)) {
    return ForetoldOfReference(format, request.reference, ExtentOf(request));
  }
  return ForetoldOfReference(format, wished, ExtentIn(wished, request.reference, ExtentOf(request)));
}

// The reference that a user wants the output in; null where the tool's own is to stay.
SpatialReferenceRef WishedReference(const RunContext& context, const OutputRequest& request) {
  return request.projects ? nullptr : context.services.Wishes().reference;
}

// The class in the reference that its features are brought to.
std::shared_ptr<IFeatureClass> CreateElsewhere(OutputRequest& request, const SpatialReferenceRef& wished,
                                               const std::string& category,
                                               const std::shared_ptr<IFeatureWorkspace>& workspace,
                                               const std::shared_ptr<IFeatureDataset>& dataset) {
  OutputRequest elsewhere = request;
  elsewhere.reference = wished;
  const Envelope extent = ExtentIn(wished, request.reference, ExtentOf(request));
  elsewhere.envelope = &extent;
  std::shared_ptr<IFeatureClass> output = CreateAt(elsewhere, category, workspace, dataset);
  request.geometry_type = elsewhere.geometry_type;
  return output;
}

// The attributes of a class in their order: what it was asked for, then, under the names that the format chose.
void TakeMadeNames(RunContext& context, const IFeatureClass& output, OutputRequest& request) {
  RunJournal& journal = context.journal;
  OutputPlace& place = request.place;
  const bool named = place.format != nullptr && !place.format->HasOwnWorkspace()
                         ? place.format->container
                         : !output.Category().starts_with(CategoryOfKind(kShapefile));
  if (output.Name() != place.name && named) {
    journal.NoteName(place.name, output.Name());
    place.name = output.Name();
  }
  if (!request.fields) return;
  std::vector<FieldRef> made;
  for (const FieldRef& field : *output.Fields()) {
    if (field->Type != esriFieldTypeOID && field->Type != esriFieldTypeGeometry) made.push_back(field);
  }
  const auto count = static_cast<std::size_t>(request.fields->Count());
  if (made.size() < count) Raise(kInvalidCall, "'" + output.Name() + "' was made with too few fields.");
  for (std::size_t index = 0; index < count; ++index) {
    const auto asked = request.fields->Element(static_cast<std::int32_t>(index)).AsObject<Field>();
    const std::string& name = made[made.size() - count + index]->Name;
    journal.NoteName(asked->Name, name);
    asked->Name = name;
  }
}

// Where the class is going to be made.
struct OutputSite {
  std::string category;
  OutputPlace place;           // with its format and ending
  SpatialReferenceRef wished;  // null where the run's own reference stays
  std::shared_ptr<IFeatureWorkspace> workspace;
  std::shared_ptr<IFeatureDataset> dataset;  // null outside of one
};

// The name of the request as the format has it; the journal is told where that is another.
void TakeNameOfFormat(RunContext& context, OutputPlace& asked, const OutputPlace& place) {
  if (asked.format->container && place.ClassName() != asked.name) {
    context.journal.NoteName(asked.name, place.ClassName());
    asked.name = place.ClassName();
  }
  if (asked.format->IsFile() && !asked.format->HasOwnWorkspace()) asked.name = place.name;
}

// The site of the request, ready for the class; none, and the user told why, where the class can't come there. Faults
// are of what no other name would mend.
std::optional<OutputSite> PrepareSite(RunContext& context, OutputRequest& request, const std::string& category,
                                      IWorkspaceFactory& factory) {
  OutputPlace& asked = request.place;
  asked.format = FormatOfKind(KindOfCategory(category));
  if (!asked.format->feature_datasets) asked.dataset.clear();
  OutputSite site{category, WithEnding(asked), WishedReference(context, request), nullptr, nullptr};
  const auto refuse = [&](const std::string& problem) {
    context.feedback.Tell(problem, "Failed to Create Feature Class:");
    return std::nullopt;
  };
  if (const auto problem = PlaceProblem(request, site.place)) return refuse(*problem);
  TakeNameOfFormat(context, asked, site.place);
  site.workspace = factory.OpenFromFile(asked.Directory(), 0);
  if (asked.format->container) {
    if (const auto conflict = NameConflict(*site.workspace, asked)) return refuse(*conflict);
  }
  if (!asked.dataset.empty()) {
    site.dataset = site.workspace->OpenFeatureDataset(asked.dataset);
    const bool brings = BringsElsewhere(request.reference, site.wished);
    if (!request.projects) RefuseOtherReference(*site.dataset, brings ? site.wished : request.reference);
  }
  const std::string shown_name = site.dataset ? asked.dataset + ":" + asked.name : asked.name;
  if (!MakeNameFree(context, site.workspace, asked.name, shown_name)) return std::nullopt;
  return site;
}

// Tells what the format can't keep of the class.
void AnnounceLosses(RunContext& context, const OutputRequest& request, const OutputSite& site,
                    const std::shared_ptr<IFeatureClass>& output) {
  for (const std::string& sentence : LossesOfReference(request, *site.place.format, site.wished)) {
    context.feedback.Announce(sentence);
    // The others tell of it when they have been read again.
    if (site.place.format->updated_in_place) context.journal.warnings.push_back({sentence, 0, {}});
  }
  if (const auto planned = Cast<IPlannedClass>(output)) {
    for (const std::string& sentence : planned->Planned().foretold) context.feedback.Announce(sentence);
  }
}

std::shared_ptr<IFeatureClass> MakeOutput(RunContext& context, OutputRequest& request, const OutputSite& site) {
  MakeFieldNamesLegal(context, request.fields, KindOfCategory(site.category));
  const bool brings = BringsElsewhere(request.reference, site.wished);
  std::shared_ptr<IFeatureClass> output =
      brings ? CreateElsewhere(request, site.wished, site.category, site.workspace, site.dataset)
             : CreateAt(request, site.category, site.workspace, site.dataset);
  if (output) TakeMadeNames(context, *output, request);
  if (brings && output) {
    output = WorkedInOwnReference(output, site.place, request.reference, site.wished, ExtentOf(request));
  }
  AnnounceLosses(context, request, site, output);
  return output;
}

}  // namespace

std::string FieldNameFor(std::int32_t kind, const std::string& name, const std::shared_ptr<VarArray>& taken) {
  const Format* format = FormatOfKind(kind);
  if (format == nullptr || format->HasOwnWorkspace()) return ReturnDBASEFieldName(name, taken);
  return FreeLegalName(format->field_names, name, [&](const std::string& candidate) {
    return std::ranges::any_of(
        *taken, [&](const Variant& element) { return EqualsIgnoringCase(element.AsObject<Field>()->Name, candidate); });
  });
}

void MakeFieldNamesLegal(RunContext& context, const std::shared_ptr<VarArray>& fields, std::int32_t kind) {
  const Format* format = FormatOfKind(kind);
  if (!fields || format == nullptr) return;
  std::vector<std::string> asked;
  for (const Variant& element : *fields) asked.push_back(Require(element.AsObject<Field>(), "IField")->Name);
  const std::vector<std::string> legal = FreeLegalNames(format->field_names, asked);
  for (std::size_t index = 0; index < legal.size(); ++index) {
    fields->Element(static_cast<std::int32_t>(index)).AsObject<Field>()->Name = legal[index];
    context.journal.NoteName(asked[index], legal[index]);
    if (asked[index] == legal[index]) continue;
    context.feedback.Announce("The field '" + asked[index] + "' is written as '" + legal[index] + "'.");
  }
}

std::shared_ptr<IFeatureClass> CreateOutput(RunContext& context, OutputRequest& request) {
  return TrapAndPassOn("CreateGeneralFeatureClass", [&]() -> std::shared_ptr<IFeatureClass> {
    for (;;) {
      const bool named = !request.place.container.empty() && !request.place.name.empty();
      const std::optional<std::string> category = named ? CategoryOf(context, request) : AskForPlace(context, request);
      if (!category) return nullptr;
      const std::shared_ptr<IWorkspaceFactory> factory = FactoryOfCategory(*category);
      if (!factory) {
        context.feedback.Tell("Unexpected Feature Class Type (" + *category + ")!  Need to write new code for this...",
                              "");
        return nullptr;
      }
      if (const auto site = PrepareSite(context, request, *category, *factory)) {
        return MakeOutput(context, request, *site);
      }
      // The user is asked for another.
      request.place.name.clear();
    }
  });
}

OutputPlan PlanOutput(RunContext& context, OutputRequest& request) {
  OutputPlace& place = request.place;
  const Format* format = place.format;
  if (format == nullptr || place.name.empty()) return {place.Path(), false, {}, {}};
  if (!format->feature_datasets) place.dataset.clear();
  if (place.Kind() == kShapefile) place.name = SetExtension(place.name, "shp");
  const std::string asked = place.name;
  place = WithEnding(place);
  if (const auto problem = PlaceProblem(request, place)) Raise(kInvalidCall, *problem);
  if (format->container) context.journal.NoteName(asked, place.ClassName());
  place.name = place.ClassName();
  MakeFieldNamesLegal(context, request.fields, place.Kind());
  const auto workspace = Attempt([&] { return FactoryOfKind(place.Kind())->OpenFromFile(place.Directory(), 0); });
  if (const auto conflict = workspace && format->container ? NameConflict(*workspace, place) : std::nullopt) {
    Raise(kInvalidCall, *conflict);
  }
  const bool exists =
      workspace && (workspace->HoldsName(place.name) || CheckIfFeatureClassExists(workspace, place.name));
  OutputPlan plan{FromNativePath(place.NativePath()), exists, {}, {}};
  const SpatialReferenceRef wished = WishedReference(context, request);
  const bool brings = BringsElsewhere(request.reference, wished);
  if (const auto planner = Cast<IClassPlanner>(workspace)) {
    const Envelope own = ExtentOf(request);
    const FieldsRef fields =
        PlainFields(brings ? wished : request.reference, request.geometry_type, request.fields, request.add_unique_id,
                    brings ? ExtentIn(wished, request.reference, own) : own);
    PlannedClass planned = planner->PlanClass(place.name, fields, "Shape");
    plan.fields = std::move(planned.fields);
    plan.foretold = std::move(planned.foretold);
  } else {
    const bool numbers = request.add_unique_id && place.Kind() == kShapefile;
    const FieldsRef fields =
        PlainFields(request.reference, request.geometry_type, request.fields, numbers, ExtentOf(request));
    for (const FieldRef& field : *fields) {
      if (!IsAttribute(*field)) continue;
      plan.fields.push_back({field->Name, field->Name, TypeWordOf(*field, place.Kind())});
    }
  }
  for (std::string& sentence : LossesOfReference(request, *format, wished)) {
    plan.foretold.push_back(std::move(sentence));
  }
  if (brings) {
    std::string way = WayTo(wished, request.reference, ExtentOf(request));
    context.journal.brought = BroughtTo{wished, way};
    plan.foretold.insert(plan.foretold.begin(), std::move(way));
  }
  return plan;
}

std::string NotePlan(RunContext& context, const OutputPlan& plan) {
  RunJournal& journal = context.journal;
  journal.output_path = plan.path;
  for (const PlannedField& field : plan.fields) {
    if (!field.name.empty()) journal.planned_fields.push_back(field.name);
  }
  if (!plan.exists) return "None";
  std::string question = kWouldAskToReplace;
  journal.planned_questions.push_back(question);
  return question;
}

void DiscardUnpublished(RunContext& context, const std::shared_ptr<IFeatureClass>& output) {
  RunJournal& journal = context.journal;
  if (!journal.output_path.empty()) {
    journal.written = ReadableRows(output);
    return;
  }
  if (const auto staged = Cast<IStagedDataset>(output)) staged->Discard();
  journal.written = 0;
}

std::string OutputPath(const IFeatureClass& output, const OutputRequest& request) {
  const bool shapefile = output.Category().starts_with(CategoryOfKind(kShapefile));
  if (shapefile || request.place.dataset.empty()) return output.FullName();
  OutputPlace place = request.place;
  place.name = output.Name();
  return place.Path();
}

void PublishOutput(RunContext& context, IFeatureClass& output, const OutputRequest& request) {
  const Format* temporary = TemporaryLayers();
  if (context.journal.stopped && temporary != nullptr && request.place.format == temporary) {
    Raise(kInvalidCall, "The run was stopped, and no temporary layer '" + output.Name() + "' is left of it.");
  }
  if (auto* staged = dynamic_cast<IStagedDataset*>(&output)) {
    staged->Publish();
    if (const RunJournal* notes = staged->Notes()) {
      context.journal.TakeNotes(*notes);
      if (notes->brought) context.journal.written = notes->written;
    }
  }
  context.journal.output_path = OutputPath(output, request);
}

}  // namespace tessarine::MyGeneralOperations
