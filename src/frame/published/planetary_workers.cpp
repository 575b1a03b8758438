// SPDX-License-Identifier: GPL-2.0-or-later
// The three planetary workers: each is a run of its own in the context of the process.
#include "planetary/planetary_runs.h"
#include "platform/host.h"

namespace tessarine {

std::string WrapToBoundaries(const std::shared_ptr<IApplication>& application,
                             const std::shared_ptr<IMxDocument>& document, const std::shared_ptr<clsExtension>&,
                             const std::shared_ptr<VarArray>& arguments, bool show_progress) {
  RunContext context = HostContext();
  return kWrapToBoundaries.run(context, application, document, arguments, show_progress);
}

std::string CalcPlanetoCentricToPlanetoGraphic(const std::shared_ptr<IApplication>& application,
                                               const std::shared_ptr<IMxDocument>& document,
                                               const std::shared_ptr<clsExtension>&,
                                               const std::shared_ptr<VarArray>& arguments, bool show_progress) {
  RunContext context = HostContext();
  return kCentricToGraphic.run(context, application, document, arguments, show_progress);
}

std::string CalcPlanetoGraphicToPlanetoCentric(const std::shared_ptr<IApplication>& application,
                                               const std::shared_ptr<IMxDocument>& document,
                                               const std::shared_ptr<clsExtension>&,
                                               const std::shared_ptr<VarArray>& arguments, bool show_progress) {
  RunContext context = HostContext();
  return kGraphicToCentric.run(context, application, document, arguments, show_progress);
}

}  // namespace tessarine
