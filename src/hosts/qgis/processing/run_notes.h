// SPDX-License-Identifier: GPL-2.0-or-later
// What is told of a run from the toolbox when it has ended: its line at the terminal, its place in the history, and the
// look of its output where the program shows that.
#pragma once

#include <qgsprocessingcontext.h>
#include <qgsprocessingfeedback.h>

#include <cstddef>
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
  /// Features of a layer changed in place that keep the shapes they had: the run hasn't done all that it was for.
  void SetKept(std::size_t count) { kept_ = count; }
  /// Once the output was handed over, or wasn't. The report has the names that people know.
  void TellEnd(const RunJournal& journal, const std::string& report, QgsProcessingFeedback& feedback);
  /// `made` is what the program calls the output by.
  void DressWhenShown(const QString& made, const RunJournal& journal, QgsProcessingContext& context);

 private:
  void NameOutput(const RunJournal& journal);

  const ITool& tool_;
  Arguments arguments_;
  const OutputGoal& goal_;
  LineOfRun line_;
  std::vector<FieldMeaning> meanings_;
  std::size_t kept_ = 0;
};

}  // namespace tessarine::qgis
