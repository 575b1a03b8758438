// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/calculation_copy.h"

#include <algorithm>

#include "calculator/calculation_report.h"
#include "outputs/output_argument.h"
#include "platform/run_stop.h"
#include "platform/text_formats.h"
#include "support/foretold_changes.h"

namespace tessarine {
namespace {

std::shared_ptr<ISelectionSet> SelectionOf(const IFeatureLayer& layer) {
  const auto* selection = dynamic_cast<const IFeatureSelection*>(&layer);
  return selection != nullptr ? selection->SelectionSet() : nullptr;
}

LayerCopyRequest RequestOf(const CopyForMeasures& wish) {
  LayerCopyRequest request;
  request.source = Require(wish.source->FeatureClass(), "FeatureClass");
  request.place = PlaceOf(wish.output);
  request.reference = wish.reference;
  for (const ToolMeasure& measure : wish.measures) {
    request.result_fields.insert(request.result_fields.end(), measure.fields.begin(), measure.fields.end());
  }
  const std::shared_ptr<ISelectionSet> selection = SelectionOf(*wish.source);
  if (!selection || wish.records == ToolRecords::All) return request;
  if (wish.records == ToolRecords::Selected) {
    request.only = OidsOf(*selection);
  } else {
    request.selected = OidsOf(*selection);
  }
  return request;
}

// A field of the source may have got another name in the copy, and a name that the format reserves is changed for a new
// field as for one of the source.
std::vector<ToolMeasure> MeasuresOfCopy(std::vector<ToolMeasure> measures, const LayerCopy& copy,
                                        const NameRule& rule) {
  for (ToolMeasure& measure : measures) {
    for (std::string& name : measure.fields) {
      const auto same = [&](const CopiedField& field) {
        return !field.worked.empty() && EqualsIgnoringCase(field.source, name);
      };
      const auto field = std::ranges::find_if(copy.fields, same);
      if (field != copy.fields.end()) {
        name = field->worked;
      } else if (std::ranges::find(rule.reserved, LowerCase(name)) != rule.reserved.end()) {
        name = LegalName(rule, name);
      }
    }
  }
  return measures;
}

LayerForMeasures LayerOf(const LayerCopy& copy, std::string name, const CopyForMeasures& wish,
                         const OutputPlace& place) {
  return {std::make_shared<CopiedLayer>(std::move(name), copy),
          MeasuresOfCopy(wish.measures, copy, place.format->field_names)};
}

// Empty where the user stopped it or it failed, which the journal tells.
std::optional<LayerCopy> CopyRecords(const LayerCopyRequest& request, RunJournal& journal) {
  try {
    std::optional<LayerCopy> copy;
    if (!UnlessStopped([&] { copy = MakeLayerCopy(request); })) journal.stopped = true;
    return copy;
  } catch (const Fault& fault) {
    if (fault.Number() != kInvalidCall) {
      journal.Fail(fault.Description());
      return std::nullopt;
    }
    // The format can't hold such data: who reads it names another.
    journal.cancelled = true;
    journal.failure = fault.Description();
    return std::nullopt;
  }
}

}  // namespace

bool AnySelected(const IFeatureLayer& layer) {
  const std::shared_ptr<ISelectionSet> selection = SelectionOf(layer);
  return selection && selection->Count() > 0;
}

LayerForMeasures TryCopy(const CopyForMeasures& wish) {
  LayerCopyRequest request = RequestOf(wish);
  request.plan_only = true;
  return LayerOf(MakeLayerCopy(request), wish.source->Name(), wish, request.place);
}

LayerForMeasures PlanCopy(const CopyForMeasures& wish) {
  LayerCopyRequest request = RequestOf(wish);
  request.plan_only = true;
  if (Stands(request.place)) {
    request.question = kWouldAskToReplace;
  }
  const LayerCopy copy = MakeLayerCopy(request);
  return LayerOf(copy, copy.output->Name(), wish, request.place);
}

std::optional<LayerForMeasures> MakeCopy(RunScope& scope, const CopyForMeasures& wish,
                                         const std::optional<RunSpheroid>& spheroid, std::string& report) {
  const RunContext& context = scope.Run();
  RunJournal& journal = scope.Journal();
  LayerCopyRequest request = RequestOf(wish);
  request.replaces = Stands(request.place);
  if (request.replaces && !context.feedback.Ask(RunQuestion::ReplaceOutput,
                                                "The Feature Class '" + request.place.ClassName() +
                                                    "' already exists!  Do you wish to overwrite it?",
                                                kOutputStands)) {
    journal.cancelled = true;
    return std::nullopt;
  }
  // Some formats take their stamp when the class is made.
  journal.reference = request.source->SpatialReference();
  journal.spheroid = spheroid;
  const std::optional<LayerCopy> copy = CopyRecords(request, journal);
  if (!copy) {
    if (!journal.cancelled) report = NoCopyReport(journal, wish.source->Name());
    return std::nullopt;
  }
  for (const std::string& sentence : Require(Cast<IStagedDataset>(copy->output), "IStagedDataset")->Foretold()) {
    context.feedback.Announce(sentence);
  }
  return LayerOf(*copy, copy->output->Name(), wish, request.place);
}

}  // namespace tessarine
