// SPDX-License-Identifier: GPL-2.0-or-later
// A map tool that measures on the spheroid what somebody clicks.
#pragma once

#include <qgscoordinatereferencesystem.h>
#include <qgsmaptool.h>
#include <qgsrubberband.h>

#include <QPointer>
#include <memory>
#include <optional>
#include <vector>

#include "hosts/qgis/measuring/geodesic_drawing.h"
#include "hosts/qgis/measuring/measure_window.h"

namespace tessarine::qgis {

/// The object name of the action that makes the tool current.
inline constexpr const char* kMeasureAction = "TessarineMeasure";

/// A click adds a place; a double click adds the last one, and a right click ends the path without one. The next click
/// begins a new path. Backspace takes the last place back, Escape ends the path, and begins anew where it
/// has ended. Places snap as the project's settings
/// for snapping say. A path stays when another tool is taken, and when the map changes its reference.
class MeasureTool final : public QgsMapTool {
 public:
  MeasureTool(QgsMapCanvas& canvas, QWidget* main_window);
  ~MeasureTool() override;

  void canvasPressEvent(QgsMapMouseEvent* event) override;
  void canvasReleaseEvent(QgsMapMouseEvent* event) override;
  void canvasDoubleClickEvent(QgsMapMouseEvent* event) override;
  void canvasMoveEvent(QgsMapMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void activate() override;
  void deactivate() override;

 private:
  void Add(const QgsPointXY& on_map);
  void TakeBack();
  void StartAnew();
  void Finish();
  void Close();
  void TakeReference();
  /// None, and told in the window, where the map has no reference to measure on.
  [[nodiscard]] std::optional<NamedSpheroid> SpheroidToUse();
  void Measure();
  void Draw();
  void DrawToPointer(const QgsPointXY& on_map);
  void ShowBands(bool visible);

  QPointer<MeasureWindow> window_;
  std::unique_ptr<QgsRubberBand> line_, open_line_, points_;
  QgsCoordinateReferenceSystem system_;
  SpatialReferenceRef map_;
  std::vector<PointedPlace> places_;
  bool open_ = false;            // the next click goes on with the path
  bool double_clicked_ = false;  // the release that follows is no click
};

}  // namespace tessarine::qgis
