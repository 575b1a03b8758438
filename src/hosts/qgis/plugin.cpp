// SPDX-License-Identifier: GPL-2.0-or-later
// The door between the map program and the suite: what the shell of the plug-in calls.
#include <qgisinterface.h>
#include <qgsapplication.h>

#include <QPointer>
#include <memory>

#include "hosts/qgis/expressions/expression_functions.h"
#include "hosts/qgis/menu_bar.h"
#include "hosts/qgis/processing/choice_parameter.h"
#include "hosts/qgis/processing/provider.h"
#include "hosts/qgis/program_application.h"
#include "hosts/qgis/qgis_host.h"
#include "hosts/qgis/results/report_dock.h"
#include "hosts/qgis/results/run_messages.h"
#include "hosts/windows/translation.h"
#include "platform/component.h"
#include "platform/trap.h"

namespace tessarine::qgis {
namespace {

class PluginWindow final : public IProgramWindow {
 public:
  explicit PluginWindow(QgisInterface& program) : program_(program) {}
  [[nodiscard]] QWidget* Window() const override { return program_.mainWindow(); }
  [[nodiscard]] QgsMapCanvas* Canvas() const override { return program_.mapCanvas(); }
  [[nodiscard]] QgsStatusBar* StatusBar() const override { return program_.statusBarIface(); }
  [[nodiscard]] QgsMapLayer* ActiveLayer() const override { return program_.activeLayer(); }
  [[nodiscard]] QList<QgsLayoutDesignerInterface*> LayoutDesigners() const override {
    return program_.openLayoutDesigners();
  }

 private:
  QgisInterface& program_;
};

/// The toolbar and the menus, as long as it lives.
class Menus {
 public:
  explicit Menus(QgisInterface& program)
      : program_(program),
        window_(program),
        host_(program.mainWindow(), kHostVersion),
        application_(std::make_shared<ProgramApplication>(window_)) {
    application_->Start();
    bar_ = std::make_unique<MenuBar>(program, host_, application_);
    dock_ = new ReportDock(history_, program.mainWindow());
    program.addDockWidget(Qt::RightDockWidgetArea, dock_);
    dock_->hide();
    bar_->on_done = [this] { TellNewRun(); };
  }
  ~Menus() {
    // What is being drawn may evaluate the suite's functions.
    window_.Canvas()->stopRendering();
    bar_ = nullptr;
    if (dock_) program_.removeDockWidget(dock_);
    delete dock_.data();
    Trap("unload", [this] { application_->Stop(); });
  }
  Menus(const Menus&) = delete;
  Menus& operator=(const Menus&) = delete;

 private:
  // Of a run that a command has just done; those of the toolbox are told by the program.
  void TellNewRun() {
    for (const PastRun& run : history_.Runs()) {
      const bool is_new = run.number > told_ && run.from == RunFrom::Menus;
      if (is_new && dock_) TellInBar(*program_.messageBar(), run, *dock_);
    }
    told_ = history_.Added();
  }

  QgisInterface& program_;
  PluginWindow window_;
  QgisHost host_;
  std::shared_ptr<ProgramApplication> application_;
  std::unique_ptr<MenuBar> bar_;
  RunHistory history_;
  std::size_t told_ = 0;
  QPointer<ReportDock> dock_;
};

std::unique_ptr<Menus>& RunningMenus() {
  static std::unique_ptr<Menus> menus;
  return menus;
}

}  // namespace
}  // namespace tessarine::qgis

extern "C" {
// NOLINTBEGIN(readability-identifier-naming): the shell of the plug-in looks these names up.

/// Puts the tools into the toolbox and the functions into expressions; for the main thread, any number of times.
TESSARINE_EXPORT void tessarine_start_processing() {
  tessarine::UseLanguage(QLocale(QgsApplication::locale()));
  tessarine::qgis::AddToolProvider();
  tessarine::qgis::AddExpressionFunctions();
}

/// Shows toolbar and menus in the program of this interface.
TESSARINE_EXPORT void tessarine_start_menus(QgisInterface* program) {
  using namespace tessarine::qgis;
  tessarine::Trap("initGui", [&] {
    AddChoiceBoxes();
    RunningMenus() = std::make_unique<Menus>(*program);
  });
}

/// Takes all of it away again.
TESSARINE_EXPORT void tessarine_stop() {
  tessarine::qgis::RunningMenus() = nullptr;
  tessarine::qgis::RemoveToolProvider();
  tessarine::qgis::RemoveExpressionFunctions();
}
// NOLINTEND(readability-identifier-naming)
}
