// SPDX-License-Identifier: GPL-2.0-or-later
// The windows that the plug-in has beside the forms can be read in the themes of the program.
#include "tests/hosts/windows/readable.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <memory>

#include "hosts/qgis/measuring/measure_window.h"
#include "hosts/qgis/results/report_dock.h"
#include "platform/rich_text.h"

namespace tessarine::testing {
namespace {

using namespace qgis;
using ::testing::IsEmpty;

PathMeasures SomePath() {
  PathMeasures path;
  path.places = {{0, 0}, {1, 0}, {1, 1}};
  path.spheroid = {"WGS 1984", 7030, 6378137.0, 6356752.314245179};
  path.legs = {{111319.0, 90.0, 90.0, {}}, {110574.0, 0.0, 0.0, {}}};
  path.total = 221893.0;
  path.closing_leg = 156900.0;
  path.area = 6.15e9;
  return path;
}

std::unique_ptr<QWidget> Measuring() {
  const auto nothing = [] {};
  auto window = std::make_unique<MeasureWindow>(nullptr, MeasureWindow::Callbacks{nothing, nothing, nothing, nothing});
  window->Show(SomePath());
  window->Tell(QStringLiteral("Click two places or more on the map."));
  return window;
}

class ReadableBoxes : public ::testing::Test {
 protected:
  ReadableBoxes() {
    RunJournal journal;
    journal.written = 3;
    history_.Add(PastRunOf(RunFrom::Menus, "Shapes to Vertices", journal, PlainTextToRtf("Contains 3 vertex points"),
                           {"tessarine vertices a.shp", ""}));
  }
  ~ReadableBoxes() override { qApp->setStyleSheet(QString()); }

  RunHistory history_;
};

class NewWindows : public ReadableBoxes, public ::testing::WithParamInterface<const char*> {};

TEST_P(NewWindows, CanBeReadInAllThemes) {
  std::vector<QDir> themes = ThemesOfProgram();
  if (themes.empty()) GTEST_SKIP() << "The program's themes aren't installed.";
  themes.emplace_back();  // none
  for (const QDir& theme : themes) {
    qApp->setStyleSheet(theme == QDir() ? QString() : StyleSheetOf(theme));
    const bool is_panel = std::string(GetParam()) == "Panel";
    const std::unique_ptr<QWidget> window = is_panel ? std::make_unique<ReportDock>(history_, nullptr) : Measuring();
    window->resize(700, 500);
    window->show();
    QCoreApplication::processEvents();
    EXPECT_GT(window->findChildren<QAbstractButton*>().size(), 2);
    EXPECT_THAT(PaleTextsOf(*window), IsEmpty()) << theme.path().toStdString();
  }
}

TEST_F(ReadableBoxes, WhatStandsInAnEmptyBoxIsReadableAndDimmerThanWhatIsTyped) {
  std::vector<QDir> themes = ThemesOfProgram();
  themes.emplace_back();  // none
  for (const QDir& theme : themes) {
    qApp->setStyleSheet(theme == QDir() ? QString() : StyleSheetOf(theme));
    ReportDock dock(history_, nullptr);
    auto* box = dock.findChild<QLineEdit*>(QStringLiteral("txtCommand"));
    box->setPlaceholderText(QStringLiteral("WMWMWM"));
    dock.resize(700, 500);
    dock.show();
    const auto contrast = [&](const QString& typed) {
      box->setText(typed);
      QCoreApplication::processEvents();
      return TextContrast(dock.grab(TextRoom(*box).translated(box->mapTo(&dock, QPoint()))).toImage());
    };
    const double empty = contrast(QString()), typed = contrast(QStringLiteral("WMWMWM"));
    EXPECT_GE(empty, kReadableContrast) << theme.path().toStdString();
    EXPECT_LT(empty, 0.9 * typed) << theme.path().toStdString();
  }
}

INSTANTIATE_TEST_SUITE_P(All, NewWindows, ::testing::Values("Panel", "Measuring"),
                         [](const auto& window) { return std::string(window.param); });

}  // namespace
}  // namespace tessarine::testing
