// SPDX-License-Identifier: GPL-2.0-or-later
// What OK of frmGraphicsShapefile does: the class, its features, the new layer, the report.
#include "graphics/frmGraphicsShapefile.h"
#include "graphics/graphics_run.h"
#include "platform/host.h"
#include "platform/rich_text.h"
#include "platform/run_scope.h"
#include "support/MyGeneralOperations.h"
#include "support/frmReport_modal.h"
#include "support/journal_report.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

// What stands for the layer where elements met a fault.
constexpr const char* kGraphics = "graphics of the map";

}  // namespace

void frmGraphicsShapefile::cmdOK_Click() {
  Trap("cmdOK_Click", [this] {
    RememberOutput(TypedPlace(), *extension_);
    RunContext context = HostContext();
    RunScope scope(context);
    Made made;
    const Outcome outcome = MakeOutput(context, made);
    if (outcome == Outcome::GoBack) return;
    if (outcome == Outcome::Done) {
      scope.End();
      if (made.feature_class) AddLayer(context, made);
      EnableSelectTool(application_);
      Host().Beep();
      Hide();
      frmReport_modal report;
      report.txtReport.SetTextRTF(ReportText(made.report));
      report.ShowModal();
    }
    Unload();
  });
}

frmGraphicsShapefile::Outcome frmGraphicsShapefile::MakeOutput(RunContext& context, Made& made) {
  RunJournal& journal = context.journal;
  try {
    return optNew.Value() ? MakeEmptyClass(context, made) : ConvertGraphics(context, made);
  } catch (...) {
    journal.Fail(CurrentFault().Description());
    DiscardUnpublished(context, made.feature_class);
    throw;
  }
}

frmGraphicsShapefile::Outcome frmGraphicsShapefile::MakeEmptyClass(RunContext& context, Made& made) {
  const EmptyClass& row = EmptyClassOf(ChosenGeometry());
  made.report.title = "Empty Shapefile Created and Added to Map";
  made.report.option_title = "Feature Class Option:";
  made.report.option = row.text;
  made.report.fields = EmptyFieldLines(row.measure);
  if (!MakeClass(context, row.geometry_type, row.measure, false, made)) return Outcome::NothingMade;
  if (made.feature_class) PublishOutput(context, *made.feature_class, made.request);
  return Outcome::Done;
}

frmGraphicsShapefile::Outcome frmGraphicsShapefile::ConvertGraphics(RunContext& context, Made& made) {
  const GraphicConversion& conversion = ConversionAt(lbxGraphics.ListIndex());
  const bool selected = SelectedOnly();
  const GraphicSet& set = ChosenSet();
  const std::int32_t count = conversion.CountIn(set);
  if (count == 0) return AskAboutMissing(conversion.MissingTitle(), conversion.MissingText(selected));

  const bool names = conversion.AnyNameIn(set);
  const SpatialReferenceRef map_reference = document_->FocusMap()->SpatialReference();
  GraphicsReport& report = made.report;
  report.title = "Graphics to Feature Classes Conversion Complete";
  report.option_title = "Conversion Option:";
  report.option = conversion.Text(selected);
  report.records = count;
  report.counts = CountLine((set.*conversion.first.list).Count(), conversion.first.count_words);
  if (conversion.second.list != nullptr) {
    report.counts += CountLine((set.*conversion.second.list).Count(), conversion.second.count_words);
  }
  context.journal.read = count;
  if (!MakeClass(context, conversion.geometry_type, conversion.measure, names, made)) return Outcome::NothingMade;
  report.fields = FieldLines(conversion.measure, names, selected, output_reference_, map_reference);
  made.symbol = (set.*conversion.symbol_list).first_symbol;
  if (!made.feature_class) return Outcome::Done;
  NameCounts written;
  FillGraphicsClass(context.journal, made.feature_class, conversion, set, output_reference_, map_reference, written);
  PublishOutput(context, *made.feature_class, made.request);
  report.names = NameLines(written);
  const RunJournal& journal = context.journal;
  report.records = static_cast<std::int32_t>(journal.written);
  report.problems = ProblemSections(journal, kGraphics, "These elements, counted from 1, were left out.");
  if (journal.Outcome() != RunOutcome::Done) {
    report.title = "Graphics to Feature Classes Conversion " + std::string(OutcomeTitle(journal));
  }
  ReportRecordFaults(journal, "cmdOK_Click", kGraphics);
  return Outcome::Done;
}

frmGraphicsShapefile::Outcome frmGraphicsShapefile::AskAboutMissing(const std::string& title, const std::string& text) {
  const MessageAnswer answer = Host().MessageBox().Show(text, title, MessageButtons::OkCancel);
  return answer == MessageAnswer::Ok ? Outcome::GoBack : Outcome::NothingMade;
}

bool frmGraphicsShapefile::MakeClass(RunContext& context, esriGeometryType geometry_type, GraphicMeasure measure,
                                     bool names, Made& made) {
  const OutputChoice place = TypedPlace();
  output_reference_ = reference_;
  made.request = GraphicsRequest(geometry_type, measure, names, reference_, place);
  if (Host().PlanOnly()) {
    Plan(context, made);
    return true;
  }
  made.feature_class = CreateOutput(context, made.request);
  if (!made.feature_class) return false;
  made.report.path = OutputPath(*made.feature_class, made.request);
  // A feature dataset puts its own reference on its classes.
  if (made.request.is_feature_dataset) output_reference_ = made.feature_class->SpatialReference();
  context.journal.reference = output_reference_;
  return true;
}

void frmGraphicsShapefile::Plan(RunContext& context, Made& made) const {
  const OutputPlan plan = PlanOutput(context, made.request);
  context.journal.reference = output_reference_;
  GraphicsReport& report = made.report;
  report.title = optNew.Value() ? "Empty Shapefile, planned only: nothing was written"
                                : "Graphics to Feature Classes Conversion, planned only: nothing was written";
  report.output_title = "Output:";
  report.path = plan.path;
  for (const PlannedField& field : plan.fields) {
    report.planned_fields += "   " + EscapeRtf(field.name) + "  (" + field.type + ")\\par\r\n";
  }
  for (const std::string& sentence : plan.foretold) report.foretold += "   " + EscapeRtf(sentence) + "\\par\r\n";
  report.questions = "   " + NotePlan(context, plan) + "\\par\r\n";
}

void frmGraphicsShapefile::AddLayer(RunContext& context, const Made& made) {
  const std::shared_ptr<IFeatureLayer> layer = Require(context.services.CreateFeatureLayer(), "FeatureLayer");
  layer->SetFeatureClass(made.feature_class);
  const std::string alias = made.feature_class->AliasName();
  layer->SetName(alias.empty() ? made.feature_class->Name() : alias);
  const auto drawn = Cast<IGeoFeatureLayer>(layer);
  const std::shared_ptr<ISimpleRenderer> renderer = made.symbol ? context.services.CreateSimpleRenderer() : nullptr;
  if (drawn && renderer) {
    renderer->SetSymbol(made.symbol);
    drawn->SetRenderer(renderer);
  }
  document_->FocusMap()->AddLayer(layer);
  document_->UpdateContents();
  Require(Cast<IDocumentDirty>(document_), "IDocumentDirty")->SetDirty();
}

}  // namespace tessarine
