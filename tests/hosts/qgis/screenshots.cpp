// SPDX-License-Identifier: GPL-2.0-or-later
// Writes pictures of the windows that stand beside the map: the panel of reports and the measuring window.
#include <cstdlib>

#include "hosts/qgis/measuring/measure_window.h"
#include "hosts/qgis/results/report_dock.h"
#include "hosts/windows/translation.h"
#include "tests/hosts/windows/album.h"

namespace tessarine::testing {
namespace {

const NamedSpheroid kEarth{"WGS 1984", 7030, 6378137.0, 6356752.314245179};
constexpr QSize kPanel(460, 640);

qgis::PastRun RunAt(const QTime& time, const char* title, const RunJournal& journal, TerminalLine line) {
  qgis::PastRun run = qgis::PastRunOf(qgis::RunFrom::Menus, title, journal, SampleReport(), std::move(line));
  run.ended = QDateTime(QDate(2026, 3, 14), time);
  return run;
}

// A run that is done, one that couldn't write and one that no line at the terminal does.
void AddRuns(qgis::RunHistory& history) {
  RunJournal failed;
  failed.Fail("There is no folder '/home/ann/map': make it first, or name another.");
  history.Add(RunAt({9, 20, 5}, "Wrap to Boundary", failed, {"", "the run made no output"}));
  RunJournal drawn;
  drawn.output_path = "/home/ann/maps/tracks.shp";
  drawn.written = 1;
  history.Add(RunAt({9, 22, 40}, "Graphics to Features", drawn, {"", "the graphics lie in the project alone"}));
  RunJournal done;
  done.output_path = "/home/ann/maps/spherical_centroid.shp";
  done.written = 177;
  history.Add(RunAt({9, 27, 54}, "Features to Spherical Centroids", done,
                    {"tessarine spherical-centroids /home/ann/maps/countries.shp --fields name,pop_est -o "
                     "/home/ann/maps/spherical_centroid.shp",
                     ""}));
}

void AddPanel(const Studio& studio) {
  qgis::RunHistory history;
  qgis::ReportDock dock(history, nullptr);
  AddRuns(history);
  dock.resize(studio.room.isEmpty() ? kPanel : kPanel.boundedTo(studio.room));
  dock.show();
  QCoreApplication::processEvents();
  studio.album.Add("report_panel", dock);
}

void AddMeasuring(const Studio& studio) {
  qgis::MeasureWindow window(nullptr, {[] {}, [] {}, [] {}, [] {}});
  window.NameProjectSpheroid(QStringLiteral("WGS 1984"));
  window.ShowNothing(
      Translated("Click two places or more on the map. A double click, a right click or Escape ends; Backspace takes "
                 "the last place "
                 "back."));
  if (!studio.room.isEmpty()) window.resize(window.size().boundedTo(studio.room));
  window.show();
  QCoreApplication::processEvents();
  studio.album.Add("measuring_empty", window);
  window.Tell({});
  window.Show(qgis::MeasurePath({{13.4, 52.5}, {-73.94, 40.67}, {-58.4, -34.6}, {151.2, -33.9}},
                                SpatialReferenceEnvironment::CreateFromText("EPSG:4326"), kEarth));
  QCoreApplication::processEvents();
  studio.album.Add("measuring", window);
}

}  // namespace
}  // namespace tessarine::testing

int main(int count, char** arguments) {
  using namespace tessarine::testing;
  // What windows remember stays out of the user's own settings.
  const TemporaryFolder home;
  setenv("HOME", home.Native().c_str(), 1);
  setenv("XDG_CONFIG_HOME", home.Native().c_str(), 1);
  return DrawPictures(count, arguments, [](Studio& studio) {
    AddPanel(studio);
    AddMeasuring(studio);
  });
}
