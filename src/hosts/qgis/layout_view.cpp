// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/layout_view.h"

#include <qgsfillsymbol.h>
#include <qgslayoutitemgroup.h>
#include <qgslayoutitemmarker.h>
#include <qgslayoutitempage.h>
#include <qgslayoutitempicture.h>
#include <qgslayoutitempolygon.h>
#include <qgslayoutitempolyline.h>
#include <qgslayoutitemregistry.h>
#include <qgslayoutitemshape.h>
#include <qgslayoutpagecollection.h>
#include <qgslayoutview.h>
#include <qgslinesymbol.h>
#include <qgsmarkersymbol.h>
#include <qgsproject.h>

#include <QPolygonF>
#include <algorithm>

#include "hosts/windows/qt_text.h"

namespace tessarine::qgis {
namespace {

// An ellipse is told by this many chords.
constexpr int kEllipseChords = 360;
constexpr double kFullTurn = 6.283185307179586;

struct Drawn {
  ElementKind kind = ElementKind::Frame;
  QPolygonF outline;
  const QgsSymbol* symbol = nullptr;
};

QPolygonF EllipseIn(const QRectF& box) {
  QPolygonF outline;
  for (int step = 0; step < kEllipseChords; ++step) {
    const double angle = kFullTurn * step / kEllipseChords;
    outline << QPointF(box.center().x() + std::cos(angle) * box.width() / 2.0,
                       box.center().y() + std::sin(angle) * box.height() / 2.0);
  }
  return outline;
}

Drawn LookAtShape(QgsLayoutItemShape& shape, const QRectF& box) {
  switch (shape.shapeType()) {
    case QgsLayoutItemShape::Ellipse:
      return {ElementKind::Ellipse, EllipseIn(box), shape.symbol()};
    case QgsLayoutItemShape::Triangle:
      return {ElementKind::Polygon,
              QPolygonF({box.bottomLeft(), QPointF(box.center().x(), box.top()), box.bottomRight()}), shape.symbol()};
    default:
      return {ElementKind::Rectangle, QPolygonF({box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()}),
              shape.symbol()};
  }
}

// The item's outline in its own coordinates.
Drawn LookAt(QgsLayoutItem& item) {
  const QRectF box = item.rect();
  if (auto* shape = dynamic_cast<QgsLayoutItemShape*>(&item)) return LookAtShape(*shape, box);
  if (auto* area = dynamic_cast<QgsLayoutItemPolygon*>(&item)) {
    return {ElementKind::Polygon, area->nodes(), area->symbol()};
  }
  if (auto* line = dynamic_cast<QgsLayoutItemPolyline*>(&item)) {
    return {ElementKind::Line, line->nodes(), line->symbol()};
  }
  if (auto* marker = dynamic_cast<QgsLayoutItemMarker*>(&item)) {
    return {ElementKind::Marker, QPolygonF({box.center()}), marker->symbol()};
  }
  QPolygonF corners({box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()});
  if (item.type() == QgsLayoutItemRegistry::LayoutLabel) return {ElementKind::Text, corners, nullptr};
  if (dynamic_cast<QgsLayoutItemPicture*>(&item) != nullptr) return {ElementKind::Picture, corners, nullptr};
  return {ElementKind::Frame, corners, nullptr};
}

GeometryRef ShapeOfOutline(ElementKind kind, const std::vector<XY>& vertices) {
  if (vertices.empty()) return nullptr;
  if (kind == ElementKind::Marker) return std::make_shared<Point>(vertices.front());
  if (kind == ElementKind::Line) {
    auto line = std::make_shared<Polyline>();
    auto path = std::make_shared<Path>();
    path->SetVertices(vertices);
    line->SetParts({path});
    return line;
  }
  auto area = std::make_shared<Polygon>();
  auto ring = std::make_shared<Ring>();
  ring->SetVertices(vertices);
  ring->Close();
  area->SetParts({ring});
  // Exterior rings run clockwise, however the item was drawn.
  if (ring->Area() < 0.0) ring->ReverseOrientation();
  return area;
}

}  // namespace

double LayoutView::PageHeight() const {
  const QgsLayoutItemPage* page = layout_ ? layout_->pageCollection()->page(0) : nullptr;
  return page != nullptr ? page->rect().height() : 0.0;
}

ElementRef LayoutView::ElementOf(QgsLayoutItem& item) const {
  const auto self = std::const_pointer_cast<ElementView>(shared_from_this());
  if (auto* group = dynamic_cast<QgsLayoutItemGroup*>(&item)) {
    std::vector<ElementRef> members;
    for (QgsLayoutItem* member : group->items()) members.push_back(ElementOf(*member));
    ElementRef element = MakeElement(ElementKind::Group, self, std::move(members));
    element->SetPlace(item.uuid(), nullptr);
    return element;
  }
  const Drawn drawn = LookAt(item);
  std::vector<XY> vertices;
  for (const QPointF& corner : item.mapToScene(drawn.outline)) {
    vertices.push_back({corner.x(), PageHeight() - corner.y()});
  }
  ElementRef element = MakeElement(drawn.kind, self);
  element->SetPlace(item.uuid(), ShapeOfOutline(drawn.kind, vertices));
  if (drawn.symbol != nullptr) {
    element->SetSymbol(std::make_shared<ProgramSymbol>(std::unique_ptr<QgsSymbol>(drawn.symbol->clone())));
  }
  return element;
}

std::vector<ElementRef> LayoutView::ReadElements() const {
  std::vector<ElementRef> elements;
  if (!layout_) return elements;
  QList<QgsLayoutItem*> items;
  layout_->layoutItems(items);
  std::stable_sort(items.begin(), items.end(),
                   [](const auto* first, const auto* second) { return first->zValue() < second->zValue(); });
  for (QgsLayoutItem* item : items) {
    if (dynamic_cast<QgsLayoutItemPage*>(item) != nullptr || item->parentGroup() != nullptr) continue;
    elements.push_back(ElementOf(*item));
  }
  return elements;
}

QgsLayoutItem* LayoutView::ItemOf(const QString& id) const { return layout_ ? layout_->itemByUuid(id) : nullptr; }

std::string LayoutView::NameOf(const QString& id) const {
  const QgsLayoutItem* item = ItemOf(id);
  return item != nullptr ? FromQt(item->id()) : "";
}

void LayoutView::SetNameOf(const QString& id, const std::string& name) {
  QgsLayoutItem* item = ItemOf(id);
  if (item == nullptr) return;
  item->setId(ToQt(name));
  QgsProject::instance()->setDirty(true);
}

bool LayoutView::IsSelected(const QString& id) const {
  const QgsLayoutItem* item = ItemOf(id);
  return item != nullptr && item->isSelected();
}

void LayoutView::SetSelected(const QString& id, bool selected) {
  if (QgsLayoutItem* item = ItemOf(id)) item->setSelected(selected);
}

Envelope LayoutView::Extent() const {
  const QgsLayoutItemPage* page = layout_ ? layout_->pageCollection()->page(0) : nullptr;
  if (page == nullptr) return {};
  return {0.0, 0.0, page->rect().width(), page->rect().height()};
}

void LayoutView::SetExtent(const Envelope& extent) {
  if (!designer_ || extent.IsEmpty()) return;
  const QRectF box(extent.XMin(), PageHeight() - extent.YMax(), extent.Width(), extent.Height());
  designer_->view()->fitInView(box, Qt::KeepAspectRatio);
}

void LayoutView::Refresh() {
  if (layout_) layout_->update();
}

}  // namespace tessarine::qgis
