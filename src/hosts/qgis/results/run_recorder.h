// SPDX-License-Identifier: GPL-2.0-or-later
// Follows one run from the menus after the other: dresses the layers that it adds and puts it into the history.
#pragma once

#include <qgsvectorlayer.h>

#include <QPointer>
#include <memory>
#include <string>
#include <vector>

#include "hosts/qgis/results/run_history.h"
#include "hosts/qgis/results/terminal_lines.h"
#include "platform/tool.h"

namespace tessarine::qgis {

class RunRecorder {
 public:
  void Begin(const ITool& tool, const Arguments& arguments);
  /// A layer came into the project; one that comes outside of a run stays as it is.
  void Take(QgsVectorLayer& layer);
  void End(const RunJournal& journal, const std::string& report);

 private:
  // What was chosen, until the run ends.
  struct Running {
    const ITool& tool;
    Arguments arguments;
    LineOfRun line;
    std::vector<FieldMeaning> meanings;
    std::vector<QPointer<QgsVectorLayer>> added;
  };

  std::unique_ptr<Running> running_;
};

}  // namespace tessarine::qgis
