// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/processing/tool_run.h"

#include <qgsexception.h>

#include "hosts/qgis/processing/tool_parameters.h"
#include "hosts/windows/qt_text.h"
#include "hosts/windows/translation.h"
#include "platform/paths.h"
#include "platform/rich_text.h"
#include "platform/run_scope.h"
#include "platform/run_stop.h"

namespace tessarine::qgis {

ToolRun::ToolRun(const ITool& tool, QgsProcessingFeedback& feedback)
    : tool_(tool),
      feedback_(feedback),
      host_(feedback),
      scope_(host_),
      context_(HostContext()),
      running_(context_),
      document_(std::make_shared<MapDocument>()),
      application_(std::make_shared<DocumentApplication>(document_, CreateRunStatusBar(feedback))) {}

void ToolRun::Run(Arguments arguments, const OutputGoal& goal) {
  const ToolSpec& spec = tool_.Spec();
  RefuseSources(goal.Place());
  const auto source = Require(arguments.Get<std::shared_ptr<IFeatureLayer>>("source"), "source");
  PromisePlace(goal.Place(), Require(source->FeatureClass(), "FeatureClass")->SpatialReference(), host_.Places());
  arguments.Set("output", goal.Argument());
  // Such a run would rather take another name than ask.
  if (spec.renames) host_.Places().GiveFree(FromNativePath(goal.Place().NativePath()));
  if (const auto objection = tool_.Validate(arguments, application_)) {
    throw QgsProcessingException(ObjectionText(spec, *objection));
  }
  if (!UnlessStopped([&] { report_ = tool_.Run(context_, arguments, application_); })) host_.Journal().stopped = true;
}

void ToolRun::Take(const std::string& parameter, ChosenLayer& layer, Arguments& arguments) {
  const std::shared_ptr<DocumentFeatureLayer> opened = layer.Open(feedback_, turns_);
  document_->Map().AddLayer(opened);
  arguments.Set(parameter, std::shared_ptr<IFeatureLayer>(opened));
  read_.emplace_back(opened->Name(), layer.Files());
}

void ToolRun::RefuseSources(const OutputPlace& place) const {
  for (const auto& [name, files] : read_) {
    if (!place.Overlaps(files)) continue;
    throw QgsProcessingException(
        Translated("The output '%1' would replace the data of '%2', which the run reads: name another output.")
            .arg(ToQt(place.NativePath()), ToQt(name)));
  }
}

void ToolRun::TellReport(const std::string& report) {
  if (!report.empty()) feedback_.pushInfo(LinesToQt(ToPlainText(ReadRtf(report))));
}

}  // namespace tessarine::qgis
