// SPDX-License-Identifier: GPL-2.0-or-later
// What the host asks of the map program's window. The plug-in serves it from the program's own interface, which no test
// could stand in for.
#pragma once

#include <qgslayoutdesignerinterface.h>
#include <qgsmapcanvas.h>
#include <qgsmaplayer.h>
#include <qgsstatusbar.h>

#include <QList>
#include <QWidget>

namespace tessarine::qgis {

class IProgramWindow {
 public:
  virtual ~IProgramWindow() = default;
  [[nodiscard]] virtual QWidget* Window() const = 0;
  [[nodiscard]] virtual QgsMapCanvas* Canvas() const = 0;
  [[nodiscard]] virtual QgsStatusBar* StatusBar() const = 0;
  /// The current layer of the layer tree; null where none is.
  [[nodiscard]] virtual QgsMapLayer* ActiveLayer() const = 0;
  /// The open layout windows, the newest last.
  [[nodiscard]] virtual QList<QgsLayoutDesignerInterface*> LayoutDesigners() const = 0;
};

}  // namespace tessarine::qgis
