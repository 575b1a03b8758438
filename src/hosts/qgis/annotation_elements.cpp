// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/annotation_elements.h"

#include <qgsannotationlineitem.h>
#include <qgsannotationmarkeritem.h>
#include <qgsannotationpointtextitem.h>
#include <qgsannotationpolygonitem.h>
#include <qgscircularstring.h>
#include <qgscurvepolygon.h>
#include <qgsfillsymbol.h>
#include <qgslinesymbol.h>
#include <qgsmarkersymbol.h>

#include <cmath>

#include "hosts/qgis/values.h"

namespace tessarine::qgis {
namespace {

// How far two radii of one circle may differ, of the radius.
constexpr double kRoundness = 1e-9;

bool IsCircle(const QgsCurve& ring) {
  const auto* arcs = dynamic_cast<const QgsCircularString*>(&ring);
  if (arcs == nullptr || arcs->numPoints() < 3 || !arcs->isClosed()) return false;
  const QgsPointXY middle = arcs->boundingBox().center();
  const double radius = middle.distance(arcs->xAt(0), arcs->yAt(0));
  for (int index = 1; index < arcs->numPoints(); ++index) {
    const double other = middle.distance(arcs->xAt(index), arcs->yAt(index));
    if (std::fabs(other - radius) > kRoundness * radius) return false;
  }
  return radius > 0.0;
}

// Four sides that run along the axes by turns.
bool IsRectangle(const QgsCurve& ring) {
  if (ring.hasCurvedSegments() || ring.numPoints() != 5 || !ring.isClosed()) return false;
  for (int side = 0; side < 4; ++side) {
    const bool across = ring.yAt(side) == ring.yAt(side + 1) && ring.xAt(side) != ring.xAt(side + 1);
    const bool along = ring.xAt(side) == ring.xAt(side + 1) && ring.yAt(side) != ring.yAt(side + 1);
    const bool first_across = ring.yAt(0) == ring.yAt(1);
    if ((side % 2 == 0) == first_across ? !across : !along) return false;
  }
  return true;
}

ElementKind KindOfArea(const QgsCurvePolygon& area) {
  const QgsCurve* ring = area.exteriorRing();
  if (ring == nullptr || area.numInteriorRings() > 0) return ElementKind::Polygon;
  if (IsCircle(*ring)) return ElementKind::Circle;
  return IsRectangle(*ring) ? ElementKind::Rectangle : ElementKind::Polygon;
}

struct Drawn {
  ElementKind kind = ElementKind::Other;
  esriGeometryType type = esriGeometryNull;
  const QgsSymbol* symbol = nullptr;
};

Drawn LookAt(const QgsAnnotationItem& item) {
  if (const auto* marker = dynamic_cast<const QgsAnnotationMarkerItem*>(&item)) {
    return {ElementKind::Marker, esriGeometryPoint, marker->symbol()};
  }
  if (const auto* line = dynamic_cast<const QgsAnnotationLineItem*>(&item)) {
    return {ElementKind::Line, esriGeometryPolyline, line->symbol()};
  }
  if (const auto* area = dynamic_cast<const QgsAnnotationPolygonItem*>(&item)) {
    return {KindOfArea(*area->geometry()), esriGeometryPolygon, area->symbol()};
  }
  if (dynamic_cast<const QgsAnnotationPointTextItem*>(&item) != nullptr) {
    return {ElementKind::Text, esriGeometryPoint, nullptr};
  }
  return {};
}

}  // namespace

QgsGeometry GeometryOfItem(const QgsAnnotationItem& item) {
  if (const auto* marker = dynamic_cast<const QgsAnnotationMarkerItem*>(&item)) {
    return QgsGeometry::fromPointXY(marker->geometry());
  }
  if (const auto* line = dynamic_cast<const QgsAnnotationLineItem*>(&item)) {
    return QgsGeometry(line->geometry()->clone());
  }
  if (const auto* area = dynamic_cast<const QgsAnnotationPolygonItem*>(&item)) {
    return QgsGeometry(area->geometry()->clone());
  }
  if (const auto* text = dynamic_cast<const QgsAnnotationPointTextItem*>(&item)) {
    return QgsGeometry::fromPointXY(text->point());
  }
  return {};
}

ElementRef ElementOf(const QString& id, const QgsAnnotationItem& item, const SpatialReferenceRef& own_reference,
                     const SpatialReferenceRef& map_reference, const std::weak_ptr<ElementView>& view) {
  const Drawn drawn = LookAt(item);
  if (drawn.type == esriGeometryNull) return nullptr;
  const bool placed = !Is<const UnknownCoordinateSystem>(own_reference);
  const GeometryRef shape = ShapeOf(GeometryOfItem(item), drawn.type, placed ? own_reference : map_reference);
  if (placed && !own_reference->IsEqual(*map_reference)) shape->Project(map_reference);
  ElementRef element = MakeElement(drawn.kind, view);
  element->SetPlace(id, shape);
  if (drawn.symbol != nullptr) {
    element->SetSymbol(std::make_shared<ProgramSymbol>(std::unique_ptr<QgsSymbol>(drawn.symbol->clone())));
  }
  return element;
}

}  // namespace tessarine::qgis
