// SPDX-License-Identifier: GPL-2.0-or-later
// The map program's libraries without the program: one application for the test program, and a window of its parts.
#pragma once

#include <qgsapplication.h>
#include <qgsmapcanvas.h>
#include <qgsproject.h>
#include <qgsstatusbar.h>

#include <memory>

#include "hosts/qgis/program_application.h"
#include "hosts/qgis/program_window.h"

namespace tessarine::testing {

/// A canvas and a status bar on no screen. The project is empty while one is made.
class PartsWindow final : public qgis::IProgramWindow {
 public:
  PartsWindow() {
    QgsProject::instance()->clear();
    canvas_.resize(400, 300);
  }
  [[nodiscard]] QWidget* Window() const override { return &window_; }
  [[nodiscard]] QgsMapCanvas* Canvas() const override { return &canvas_; }
  [[nodiscard]] QgsStatusBar* StatusBar() const override { return &status_bar_; }
  [[nodiscard]] QgsMapLayer* ActiveLayer() const override { return active_; }
  [[nodiscard]] QList<QgsLayoutDesignerInterface*> LayoutDesigners() const override { return {}; }

  void SetActiveLayer(QgsMapLayer* layer) { active_ = layer; }

 private:
  mutable QWidget window_;
  mutable QgsMapCanvas canvas_;
  mutable QgsStatusBar status_bar_;
  QPointer<QgsMapLayer> active_;
};

}  // namespace tessarine::testing
