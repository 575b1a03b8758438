// SPDX-License-Identifier: GPL-2.0-or-later
// The toolbar and the menus, built by walking the suite's definition classes.
#pragma once

#include <qgisinterface.h>
#include <qgslayoutdesignerinterface.h>

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QToolBar>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "hosts/qgis/item_selection_tool.h"
#include "hosts/qgis/measuring/measure_tool.h"
#include "hosts/qgis/program_application.h"
#include "hosts/windows/window_host.h"

namespace tessarine::qgis {

class MenuBar {
 public:
  MenuBar(QgisInterface& program, WindowHost& host, std::shared_ptr<ProgramApplication> application);
  /// Takes everything out of the program's windows.
  ~MenuBar();
  MenuBar(const MenuBar&) = delete;
  MenuBar& operator=(const MenuBar&) = delete;

  /// Called when a command has done what it does.
  std::function<void()> on_done = [] {};

 private:
  struct Item {
    std::shared_ptr<ICommand> command;
    QAction* action;
  };

  void Fill(QMenu& menu, const IMenuDef& definition);
  [[nodiscard]] QMenu* MakeMenu(const std::string& id, const IMenuDef& definition, QWidget* parent);
  void AddCommand(QMenu& menu, const std::string& id);
  void AddSelectionTool();
  void AddMeasureTool();
  void AddToDesigner(QgsLayoutDesignerInterface& designer);
  /// Asks the commands of a menu whether they are enabled.
  void AskEnabled();
  void Click(ICommand& command);
  void NoteWindow();

  QgisInterface& program_;
  WindowHost& host_;
  std::shared_ptr<ProgramApplication> application_;
  std::vector<Item> items_;
  std::vector<QPointer<QMenu>> roots_;
  QPointer<QToolBar> toolbar_;
  std::unique_ptr<ItemSelectionTool> selection_tool_;
  std::unique_ptr<MeasureTool> measure_tool_;
  QObject context_;
};

}  // namespace tessarine::qgis
