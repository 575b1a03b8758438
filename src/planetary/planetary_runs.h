// SPDX-License-Identifier: GPL-2.0-or-later
// The three runs of the planetary tools.
#pragma once

#include <memory>
#include <string>

#include "planetary/planetary_lists.h"
#include "platform/application.h"
#include "platform/run_context.h"
#include "session/clsExtension.h"

namespace tessarine {

/// The shape of the three runs. The arguments are those of the run's dialog, and what they return is the report, as
/// RTF.
using PlanetaryRun = std::string(const std::shared_ptr<IApplication>& application,
                                 const std::shared_ptr<IMxDocument>& document,
                                 const std::shared_ptr<clsExtension>& extension,
                                 const std::shared_ptr<VarArray>& arguments, bool show_progress);

/// Brings every feature into the box, in one record each, after a shift of its longitudes (`WrapArguments`). A feature
/// that fails is written as it stands after the shift and reported; so is one that comes out empty.
[[nodiscard]] PlanetaryRun WrapToBoundaries;

/// Rewrites latitudes from the one system to the other, shifts longitudes and wraps them, in this order
/// (`GeoCentricArguments`). The reference stays as it is: nothing in the data tells the system. A feature that fails is
/// written without a shape.
[[nodiscard]] PlanetaryRun CalcPlanetoCentricToPlanetoGraphic;
[[nodiscard]] PlanetaryRun CalcPlanetoGraphicToPlanetoCentric;

/// The same runs within a context, and what they would do, as a report.
struct PlanetaryWork {
  std::string (*run)(RunContext& context, const std::shared_ptr<IApplication>& application,
                     const std::shared_ptr<IMxDocument>& document, const std::shared_ptr<VarArray>& arguments,
                     bool show_progress);
  std::string (*plan)(RunContext& context, const std::shared_ptr<VarArray>& arguments);
};
extern const PlanetaryWork kWrapToBoundaries;
extern const PlanetaryWork kCentricToGraphic;
extern const PlanetaryWork kGraphicToCentric;

}  // namespace tessarine
