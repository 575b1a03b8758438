// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/graphics_tools.h"

#include "graphics/graphics_report.h"
#include "graphics/graphics_run.h"
#include "platform/rich_text.h"
#include "platform/run_scope.h"
#include "session/clsExtension.h"
#include "support/MyGeneralOperations.h"
#include "support/journal_report.h"
#include "support/output_chooser.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr const char* kLayoutLine = "Conversion Unavailable in Layout View...";
// What stands for the layer where elements met a fault.
constexpr const char* kGraphics = "graphics of the map";

const GraphicShape* ShapeCalled(const std::string& word) {
  for (const GraphicShape& row : kGraphicShapes) {
    if (word == row.word) return &row;
  }
  return nullptr;
}

Objection NoShape(const std::string& word) {
  return {"", "'" + word +
                  "' is no shape: give points, polylines or polygons. The output's reference is named by {reference}."};
}

SpatialReferenceRef ReferenceOf(const Arguments& arguments, const IMxDocument& document) {
  if (const auto* given = arguments.Find<SpatialReferenceRef>("reference")) return *given;
  return Require(document.FocusMap(), "IMap")->SpatialReference();
}

std::optional<Objection> ObjectionToReference(const Arguments& arguments, const IMxDocument& document) {
  if (IsKnown(ReferenceOf(arguments, document))) return std::nullopt;
  return Objection{"", "The map has no spatial reference: name that of the output with {reference}."};
}

// Without a word about it, the selected elements where there are any.
bool TakesSelected(const Arguments& arguments, const GraphicHarvest& harvest) {
  if (arguments.Get<bool>("all")) return false;
  return arguments.Get<bool>("selected") || harvest.selected.Count() > 0;
}

const GraphicSet& SetOf(const GraphicHarvest& harvest, bool selected) {
  return selected ? harvest.selected : harvest.all;
}

/// One run: its output, its report, and what was made.
class GraphicsMaker {
 public:
  GraphicsMaker(RunContext& context, const Arguments& arguments, const std::shared_ptr<IApplication>& application,
                GraphicsWork work)
      : context_(context),
        arguments_(arguments),
        application_(application),
        document_(Require(Cast<IMxDocument>(Require(application, "IApplication")->Document()), "IMxDocument")),
        work_(work),
        reference_(ReferenceOf(arguments, *document_)),
        place_(PlaceFor(arguments.Get<ToolOutput>("output"), kGraphicsOutput)) {
    if (const auto extension = FindExtension(application)) RememberOutput(place_, *extension);
  }

  std::string Convert() {
    const GraphicShape* shape = ShapeCalled(arguments_.Get<std::string>("to"));
    if (shape == nullptr) Raise(kInvalidCall, "No conversion is selected.");
    const GraphicConversion& conversion = ConversionAt(arguments_.Get<bool>("both") ? shape->both_line : shape->line);
    const GraphicsAtHand graphics = GraphicsOf(*document_);
    if (!graphics.harvest) Raise(kInvalidCall, graphics.why_none);
    const bool selected = TakesSelected(arguments_, *graphics.harvest);
    return Make([&] { return ConvertInto(conversion, SetOf(*graphics.harvest, selected), selected); });
  }

  std::string MakeEmpty() {
    const GraphicShape* shape = ShapeCalled(arguments_.Get<std::string>("shapes"));
    const EmptyClass& row = EmptyClassOf(shape != nullptr ? shape->type : esriGeometryNull);
    report_.title = work_ == GraphicsWork::Plan ? "Empty Shapefile, planned only: nothing was written"
                                                : "Empty Shapefile Created and Added to Map";
    report_.option_title = "Feature Class Option:";
    report_.option = row.text;
    report_.fields = EmptyFieldLines(row.measure);
    return Make([&] {
      if (!MakeClass(row.geometry_type, row.measure, false)) return false;
      if (class_) PublishOutput(context_, *class_, request_);
      return true;
    });
  }

 private:
  // `work` returns false where nothing was made.
  template <class Work>
  std::string Make(Work&& work) {
    RunScope scope(context_);
    try {
      if (!work()) {
        context_.journal.cancelled = true;
        return "";
      }
    } catch (...) {
      context_.journal.Fail(CurrentFault().Description());
      DiscardUnpublished(context_, class_);
      throw;
    }
    scope.End();
    if (class_) AddLayer();
    EnableSelectTool(application_);
    context_.feedback.Beep();
    return ReportText(report_);
  }

  bool ConvertInto(const GraphicConversion& conversion, const GraphicSet& set, bool selected) {
    const bool names = conversion.AnyNameIn(set);
    const SpatialReferenceRef map_reference = document_->FocusMap()->SpatialReference();
    report_.title = work_ == GraphicsWork::Plan
                        ? "Graphics to Feature Classes Conversion, planned only: nothing was written"
                        : "Graphics to Feature Classes Conversion Complete";
    report_.option_title = "Conversion Option:";
    report_.option = conversion.Text(selected);
    report_.records = conversion.CountIn(set);
    report_.counts = CountLine((set.*conversion.first.list).Count(), conversion.first.count_words);
    if (conversion.second.list != nullptr) {
      report_.counts += CountLine((set.*conversion.second.list).Count(), conversion.second.count_words);
    }
    RunJournal& journal = context_.journal;
    journal.read = report_.records;
    if (!MakeClass(conversion.geometry_type, conversion.measure, names)) return false;
    report_.fields = FieldLines(conversion.measure, names, selected, output_reference_, map_reference);
    symbol_ = (set.*conversion.symbol_list).first_symbol;
    if (!class_) return true;
    NameCounts written;
    FillGraphicsClass(journal, class_, conversion, set, output_reference_, map_reference, written);
    PublishOutput(context_, *class_, request_);
    report_.names = NameLines(written);
    report_.records = static_cast<std::int32_t>(journal.written);
    report_.problems = ProblemSections(journal, kGraphics, "These elements, counted from 1, were left out.");
    if (journal.Outcome() != RunOutcome::Done) {
      report_.title = "Graphics to Feature Classes Conversion " + std::string(OutcomeTitle(journal));
    }
    ReportRecordFaults(journal, "cmdOK_Click", kGraphics);
    return true;
  }

  // Creates the class of the report, or in a plan only says where it would be.
  bool MakeClass(esriGeometryType geometry_type, GraphicMeasure measure, bool names) {
    output_reference_ = reference_;
    request_ = GraphicsRequest(geometry_type, measure, names, reference_, place_);
    if (work_ == GraphicsWork::Plan) {
      TellPlan();
      return true;
    }
    class_ = CreateOutput(context_, request_);
    if (!class_) return false;
    report_.path = OutputPath(*class_, request_);
    // A feature dataset puts its own reference on its classes.
    if (!request_.place.dataset.empty()) output_reference_ = class_->SpatialReference();
    context_.journal.reference = output_reference_;
    return true;
  }

  void TellPlan() {
    const OutputPlan plan = PlanOutput(context_, request_);
    context_.journal.reference = output_reference_;
    report_.output_title = "Output:";
    report_.path = plan.path;
    for (const PlannedField& field : plan.fields) {
      report_.planned_fields += "   " + EscapeRtf(field.name) + "  (" + field.type + ")\\par\r\n";
    }
    for (const std::string& sentence : plan.foretold) report_.foretold += "   " + EscapeRtf(sentence) + "\\par\r\n";
    report_.questions = "   " + NotePlan(context_, plan) + "\\par\r\n";
  }

  void AddLayer() {
    const std::shared_ptr<IFeatureLayer> layer = Require(context_.services.CreateFeatureLayer(), "FeatureLayer");
    layer->SetFeatureClass(class_);
    const std::string alias = class_->AliasName();
    layer->SetName(alias.empty() ? class_->Name() : alias);
    const auto drawn = Cast<IGeoFeatureLayer>(layer);
    const std::shared_ptr<ISimpleRenderer> renderer = symbol_ ? context_.services.CreateSimpleRenderer() : nullptr;
    if (drawn && renderer) {
      renderer->SetSymbol(symbol_);
      drawn->SetRenderer(renderer);
    }
    document_->FocusMap()->AddLayer(layer);
    document_->UpdateContents();
    Require(Cast<IDocumentDirty>(document_), "IDocumentDirty")->SetDirty();
  }

  RunContext& context_;
  const Arguments& arguments_;
  std::shared_ptr<IApplication> application_;
  std::shared_ptr<IMxDocument> document_;
  GraphicsWork work_;
  SpatialReferenceRef reference_;         // that was asked for
  SpatialReferenceRef output_reference_;  // of the class that was made
  OutputPlace place_;
  OutputRequest request_;
  std::shared_ptr<IFeatureClass> class_;
  std::shared_ptr<ISymbol> symbol_;
  GraphicsReport report_;
};

}  // namespace

const GraphicShape& ShapeOfConversion(std::int32_t line) {
  for (const GraphicShape& row : kGraphicShapes) {
    if (row.line == line || row.both_line == line) return row;
  }
  Raise(kInvalidCall, "No conversion is selected.");
}

GraphicsAtHand GraphicsOf(const IMxDocument& document) {
  if (Is<IPageLayout>(document.ActiveView())) return {std::nullopt, kLayoutLine};
  GraphicsAtHand graphics{HarvestGraphics(document), nullptr};
  if (graphics.harvest->all.Count() == 0) graphics = {std::nullopt, kNoGraphics};
  return graphics;
}

std::optional<Objection> ObjectionToSet(const GraphicConversion& conversion, const GraphicHarvest& harvest,
                                        bool selected) {
  if (conversion.CountIn(SetOf(harvest, selected)) > 0) return std::nullopt;
  return Objection{"", conversion.MissingText(selected), conversion.MissingTitle()};
}

std::optional<Objection> ObjectionToConversion(const Arguments& arguments, const IMxDocument& document) {
  const auto word = arguments.Get<std::string>("to");
  const GraphicShape* shape = ShapeCalled(word);
  if (shape == nullptr) return NoShape(word);
  const bool both = arguments.Get<bool>("both");
  if (both && shape->both_line < 0) {
    return Objection{"", "{both} takes lines and polygons: convert {to} polylines or {to} polygons with it."};
  }
  const GraphicsAtHand graphics = GraphicsOf(document);
  if (!graphics.harvest) return Objection{"", graphics.why_none};
  if (const auto objection = ObjectionToReference(arguments, document)) return objection;
  return ObjectionToSet(ConversionAt(both ? shape->both_line : shape->line), *graphics.harvest,
                        TakesSelected(arguments, *graphics.harvest));
}

std::optional<Objection> ObjectionToEmptyClass(const Arguments& arguments, const IMxDocument& document) {
  const auto word = arguments.Get<std::string>("shapes");
  if (ShapeCalled(word) == nullptr) return NoShape(word);
  return ObjectionToReference(arguments, document);
}

std::string ConvertGraphics(RunContext& context, const Arguments& arguments,
                            const std::shared_ptr<IApplication>& application, GraphicsWork work) {
  return GraphicsMaker(context, arguments, application, work).Convert();
}

std::string MakeEmptyClass(RunContext& context, const Arguments& arguments,
                           const std::shared_ptr<IApplication>& application, GraphicsWork work) {
  return GraphicsMaker(context, arguments, application, work).MakeEmpty();
}

}  // namespace tessarine
