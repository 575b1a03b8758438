// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/run_notes.h"

#include "hosts/qgis/results/result_layer.h"
#include "hosts/qgis/results/run_history.h"
#include "hosts/windows/local_numbers.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "outputs/layer_copy.h"
#include "platform/paths.h"

namespace tessarine::qgis {
namespace {

class ResultDresser final : public QgsProcessingLayerPostProcessorInterface {
 public:
  explicit ResultDresser(ResultOrigin origin) : origin_(std::move(origin)) {}
  void postProcessLayer(QgsMapLayer* layer, QgsProcessingContext&, QgsProcessingFeedback*) override {
    if (auto* made = qobject_cast<QgsVectorLayer*>(layer)) DressResult(*made, origin_);
  }

 private:
  ResultOrigin origin_;
};

}  // namespace

RunNotes::RunNotes(const ITool& tool, const Arguments& arguments, const OutputGoal& goal)
    : tool_(tool),
      arguments_(arguments),
      goal_(goal),
      line_(tool, arguments, Writes::Output),
      meanings_(tool.Meanings(arguments)) {
  if (goal.IsNamedFile() && Stands(goal.Place())) line_.SetReplaces();
}

void RunNotes::TellRefusal(const QString& why) const {
  RunJournal journal;
  journal.Fail(FromQt(why));
  RunHistory::Post(PastRunOf(RunFrom::Toolbox, tool_.Spec().title, journal, "", line_.Line()));
}

// A working copy lies in no place that anybody chose.
void RunNotes::NameOutput(const RunJournal& journal) {
  const std::string file = goal_.MadeFile(journal.output_path);
  line_.SetOutput(!file.empty() || journal.output_path.empty() ? file : "memory");
}

void RunNotes::TellEnd(const RunJournal& journal, const std::string& report, QgsProcessingFeedback& feedback) {
  NameOutput(journal);
  const TerminalLine line = line_.Line();
  feedback.pushInfo(line.text.empty() ? Translated(LinesToQt(line.why_none)) : Translated("The same at the terminal:"));
  if (!line.text.empty()) feedback.pushCommandInfo(LinesToQt(line.text));
  PastRun past = PastRunOf(RunFrom::Toolbox, tool_.Spec().title, journal, report, line);
  past.output = goal_.AsNamed(past.output);
  if (kept_ > 0 && journal.failure.empty()) {
    past.told +=
        QStringLiteral("; ") +
        (kept_ == 1 ? Translated("1 feature keeps its shape")
                    : Translated("%1 features keep their shapes").arg(CountText(static_cast<std::int64_t>(kept_))));
    if (past.outcome == RunOutcome::Done) past.outcome = RunOutcome::Incomplete;
  }
  RunHistory::Post(std::move(past));
}

void RunNotes::DressWhenShown(const QString& made, const RunJournal& journal, QgsProcessingContext& context) {
  if (!context.willLoadLayerOnCompletion(made)) return;
  NameOutput(journal);
  const ResultOrigin origin = OriginOf(tool_.Spec(), arguments_, meanings_, journal, line_.Line().text);
  // The details own it.
  context.layerToLoadOnCompletionDetails(made).setPostProcessor(new ResultDresser(origin));
}

}  // namespace tessarine::qgis
