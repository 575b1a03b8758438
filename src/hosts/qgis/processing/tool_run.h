// SPDX-License-Identifier: GPL-2.0-or-later
// One run of a tool from the toolbox, on whatever thread the program gives it: a document of its own with the layers of
// the run, and the run's log as host. No memory of earlier runs stands beside it.
#pragma once

#include <qgsprocessingfeedback.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "hosts/document/document_application.h"
#include "hosts/qgis/processing/chosen_layer.h"
#include "hosts/qgis/processing/output_goal.h"
#include "hosts/qgis/processing/run_host.h"
#include "platform/thread_host.h"
#include "platform/tool.h"

namespace tessarine::qgis {

class ToolRun {
 public:
  ToolRun(const ITool& tool, QgsProcessingFeedback& feedback);
  ~ToolRun() = default;
  ToolRun(const ToolRun&) = delete;
  ToolRun& operator=(const ToolRun&) = delete;

  [[nodiscard]] const std::shared_ptr<DocumentApplication>& Application() const { return application_; }
  [[nodiscard]] RunSystem& Places() { return host_.Places(); }
  /// Windows have their turn while the run is at work.
  void SetTurns(WindowTurns& turns) {
    turns_ = &turns;
    host_.SetTurns(turns);
  }
  [[nodiscard]] const RunJournal& Journal() { return host_.Journal(); }
  /// What `Run` returned as the tool's report; empty where there is none.
  [[nodiscard]] const std::string& Report() const { return report_; }

  /// Puts the layer into the arguments. Raises `RunStopped`.
  void Take(const std::string& parameter, ChosenLayer& layer, Arguments& arguments);
  /// Runs the tool with layers and choices. Faults, and objections as faults of number 5.
  void Run(Arguments arguments, const OutputGoal& goal);
  /// Puts the report, which is RTF, into the log.
  void TellReport(const std::string& report);

 private:
  void RefuseSources(const OutputPlace& place) const;

  const ITool& tool_;
  QgsProcessingFeedback& feedback_;
  RunHost host_;
  ThreadHostScope scope_;
  RunContext context_;
  RunningContextScope running_;
  std::vector<std::pair<std::string, DatasetFiles>> read_;  // the layers' names and what they read
  std::string report_;
  WindowTurns* turns_ = nullptr;
  std::shared_ptr<MapDocument> document_;
  std::shared_ptr<DocumentApplication> application_;
};

}  // namespace tessarine::qgis
