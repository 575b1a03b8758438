// SPDX-License-Identifier: GPL-2.0-or-later
// A map tool that selects annotation items, which the program's own tool does one at a time: by a click, by a
// rectangle, and with Shift in addition to what is selected.
#pragma once

#include <qgsmaptool.h>
#include <qgsrubberband.h>

#include <QPoint>
#include <QStringList>
#include <memory>

#include "hosts/qgis/map_view.h"

namespace tessarine::qgis {

/// The object name of the action that makes the tool current.
inline constexpr const char* kSelectItemsAction = "TessarineSelectItems";

/// A click selects the topmost item there, and nothing where there is none; a rectangle selects all items that it
/// touches. With Shift a click adds the item or takes it away, and a rectangle adds. Escape ends the selection.
class ItemSelectionTool final : public QgsMapTool {
 public:
  ItemSelectionTool(QgsMapCanvas& canvas, MapView& map);

  void canvasPressEvent(QgsMapMouseEvent* event) override;
  void canvasMoveEvent(QgsMapMouseEvent* event) override;
  void canvasReleaseEvent(QgsMapMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void deactivate() override;

 private:
  /// The keys of the items that share a point with the area, in drawing order. Symbols and texts count as they are
  /// drawn.
  [[nodiscard]] QStringList ItemsTouching(const QgsGeometry& area) const;
  [[nodiscard]] bool IsDrag(const QPoint& at) const;
  /// The rectangle of the screen in the map.
  [[nodiscard]] QgsGeometry AreaOf(const QRect& rectangle) const;

  MapView& map_;
  QPoint pressed_;
  bool pressing_ = false;
  std::unique_ptr<QgsRubberBand> band_;
};

}  // namespace tessarine::qgis
