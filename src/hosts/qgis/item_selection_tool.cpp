// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/item_selection_tool.h"

#include <qgscoordinatetransform.h>
#include <qgsexception.h>
#include <qgsmapmouseevent.h>
#include <qgsrendercontext.h>

#include <QApplication>
#include <QKeyEvent>
#include <map>
#include <set>

#include "hosts/qgis/annotation_elements.h"

namespace tessarine::qgis {
namespace {

constexpr QRgb kBandColor = 0xFF00B7C3;
constexpr int kBandFill = 30;

/// The items of one layer that an area touches.
class LayerSearch {
 public:
  LayerSearch(QgsAnnotationLayer& layer, const QgsMapSettings& settings, const QgsGeometry& area)
      : context_(QgsRenderContext::fromMapSettings(settings)), area_(area) {
    const QgsCoordinateTransform transform = settings.layerTransform(&layer);
    context_.setCoordinateTransform(transform);
    try {
      area_.transform(transform, Qgis::TransformDirection::Reverse);
    } catch (const QgsCsException&) {
      return;  // the layer's reference has no such place
    }
    const QStringList near = layer.itemsInBounds(area_.boundingBox(), context_);
    candidates_ = {near.begin(), near.end()};
  }

  [[nodiscard]] bool Touches(const PlacedItem& placed) {
    if (!candidates_.contains(placed.id)) return false;
    const QgsGeometry shape = GeometryOfItem(*placed.item);
    // A point is drawn as a symbol or a text.
    const bool drawn = shape.type() == QgsWkbTypes::PointGeometry;
    return area_.intersects(drawn ? QgsGeometry::fromRect(placed.item->boundingBox(context_)) : shape);
  }

 private:
  QgsRenderContext context_;
  QgsGeometry area_;
  std::set<QString> candidates_;
};

}  // namespace

ItemSelectionTool::ItemSelectionTool(QgsMapCanvas& canvas, MapView& map) : QgsMapTool(&canvas), map_(map) {
  setCursor(Qt::ArrowCursor);
}

void ItemSelectionTool::canvasPressEvent(QgsMapMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  pressing_ = true;
  pressed_ = event->pos();
}

void ItemSelectionTool::canvasMoveEvent(QgsMapMouseEvent* event) {
  if (!pressing_) return;
  if (!band_) {
    if (!IsDrag(event->pos())) return;
    band_ = std::make_unique<QgsRubberBand>(canvas(), QgsWkbTypes::PolygonGeometry);
    QColor color = QColor::fromRgb(kBandColor);
    band_->setStrokeColor(color);
    color.setAlpha(kBandFill);
    band_->setFillColor(color);
  }
  band_->setToCanvasRectangle(QRect(pressed_, event->pos()).normalized());
  band_->show();
}

void ItemSelectionTool::canvasReleaseEvent(QgsMapMouseEvent* event) {
  if (!pressing_ || event->button() != Qt::LeftButton) return;
  pressing_ = false;
  const bool add = event->modifiers().testFlag(Qt::ShiftModifier);
  if (band_ || IsDrag(event->pos())) {
    band_ = nullptr;
    map_.SelectItems(ItemsTouching(AreaOf(QRect(pressed_, event->pos()).normalized())),
                     add ? SelectionWay::Add : SelectionWay::Replace);
    return;
  }
  const double radius = searchRadiusMU(canvas());
  const QgsPointXY at = toMapCoordinates(event->pos());
  const QgsRectangle near(at.x() - radius, at.y() - radius, at.x() + radius, at.y() + radius);
  const QStringList hit = ItemsTouching(QgsGeometry::fromRect(near));
  map_.SelectItems(hit.mid(hit.size() - 1), add ? SelectionWay::Toggle : SelectionWay::Replace);
}

void ItemSelectionTool::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return;
  event->ignore();  // the program reads it as already handled
  if (pressing_) {
    pressing_ = false;
    band_ = nullptr;
  } else {
    map_.ForgetSelection();
  }
}

bool ItemSelectionTool::IsDrag(const QPoint& at) const {
  return (at - pressed_).manhattanLength() >= QApplication::startDragDistance();
}

void ItemSelectionTool::deactivate() {
  pressing_ = false;
  band_ = nullptr;
  QgsMapTool::deactivate();
}

QStringList ItemSelectionTool::ItemsTouching(const QgsGeometry& area) const {
  std::map<const QgsAnnotationLayer*, LayerSearch> searches;
  QStringList keys;
  for (const PlacedItem& placed : map_.ShownItems()) {
    auto search = searches.find(placed.layer);
    if (search == searches.end()) {
      search = searches.try_emplace(placed.layer, *placed.layer, canvas()->mapSettings(), area).first;
    }
    if (search->second.Touches(placed)) keys << placed.key;
  }
  return keys;
}

QgsGeometry ItemSelectionTool::AreaOf(const QRect& rectangle) const {
  QgsPolylineXY corners;
  for (const QPoint& corner : {rectangle.topLeft(), rectangle.topRight(), rectangle.bottomRight(),
                               rectangle.bottomLeft(), rectangle.topLeft()}) {
    corners << canvas()->getCoordinateTransform()->toMapCoordinates(corner);
  }
  return QgsGeometry::fromPolygonXY({corners});
}

}  // namespace tessarine::qgis
