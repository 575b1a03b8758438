// SPDX-License-Identifier: GPL-2.0-or-later
// What is told of a run from the toolbox when it has ended: its line at the terminal, its place in the history, and the
// look of its output where the program shows that.
#pragma once

#include <qgsprocessingcontext.h>
#include <qgsprocessingfeedback.h>

#include <string>
#include <vector>

#include "hosts/qgis/processing/output_goal.h"
#include "hosts/qgis/results/terminal_lines.h"
#include "platform/tool.h"

namespace tessarine::qgis {

class RunNotes {
 public:
  /// Before the run, whose arguments hold the layers as it reads them.
  RunNotes(const ITool& tool, const Arguments& arguments, const OutputGoal& goal);
  void SetLayer(const std::string& parameter, const LayerWords& words) { line_.SetLayer(parameter, words); }

  /// A run that ended before its work began, for this reason.
  void TellRefusal(const QString& why) const;
  void TellEnd(const RunJournal& journal, const std::string& report, QgsProcessingFeedback& feedback);
  /// `made` is what the program calls the output by.
  void DressWhenShown(const QString& made, const RunJournal& journal, QgsProcessingContext& context) const;

 private:
  const ITool& tool_;
  Arguments arguments_;
  const OutputGoal& goal_;
  LineOfRun line_;
  std::vector<FieldMeaning> meanings_;
};

}  // namespace tessarine::qgis
