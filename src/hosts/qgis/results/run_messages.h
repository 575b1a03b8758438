// SPDX-License-Identifier: GPL-2.0-or-later
// A message for the program's bar at the end of a run, with a button for its report.
#pragma once

#include <qgsmessagebar.h>

#include "hosts/qgis/results/report_dock.h"
#include "hosts/qgis/results/run_history.h"

namespace tessarine::qgis {

/// Tells how the run ended, and what it made. A run that did all its work is told for as long as the program tells
/// such things, others until the user closes the message.
void TellInBar(QgsMessageBar& bar, const PastRun& run, ReportDock& dock);

}  // namespace tessarine::qgis
