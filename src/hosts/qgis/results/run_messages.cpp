// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/run_messages.h"

#include <qgsmessagebaritem.h>

#include <QFileInfo>
#include <QPushButton>

#include "hosts/windows/translation.h"

namespace tessarine::qgis {
namespace {

Qgis::MessageLevel LevelOf(RunOutcome outcome) {
  if (outcome == RunOutcome::Done) return Qgis::MessageLevel::Success;
  return outcome == RunOutcome::Failed ? Qgis::MessageLevel::Critical : Qgis::MessageLevel::Warning;
}

// The name alone: the bar is narrow.
QString TextOf(const PastRun& run) {
  const QString output = QFileInfo(run.output).fileName();
  if (!output.isEmpty()) return run.told + QStringLiteral(" (%1).").arg(output);
  return run.told.endsWith(QLatin1Char('.')) ? run.told : run.told + QLatin1Char('.');
}

}  // namespace

void TellInBar(QgsMessageBar& bar, const PastRun& run, ReportDock& dock) {
  const Qgis::MessageLevel level = LevelOf(run.outcome);
  const int seconds = run.outcome == RunOutcome::Done ? QgsMessageBar::defaultMessageTimeout(level) : 0;
  auto* button = new QPushButton(Translated("Report"));
  button->setObjectName(QStringLiteral("cmdShowReport"));
  QObject::connect(button, &QPushButton::clicked, &dock, [&dock, number = run.number] { dock.ShowRun(number); });
  auto* item = new QgsMessageBarItem(Translated(run.tool), TextOf(run), button, level, seconds);
  bar.pushItem(item);  // the bar owns it, and it the button
}

}  // namespace tessarine::qgis
