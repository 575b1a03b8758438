// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/values.h"

#include <ogr_geometry.h>
#include <qgslinestring.h>
#include <qgsmultilinestring.h>
#include <qgsmultipoint.h>
#include <qgsmultipolygon.h>
#include <qgspolygon.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "engine/ogr_geometry.h"
#include "hosts/windows/qt_text.h"
#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

SpatialReferenceRef MakeReference(const QgsCoordinateReferenceSystem& system) {
  // The authority's own definition carries the code that reports name.
  const QString code = system.authid();
  const bool predefined = code.startsWith(QStringLiteral("EPSG:")) || code.startsWith(QStringLiteral("ESRI:"));
  for (const QString& text : {predefined ? code : QString(), system.toWkt(QgsCoordinateReferenceSystem::WKT2_2019)}) {
    if (text.isEmpty()) continue;
    try {
      return SpatialReferenceEnvironment::CreateFromText(FromQt(text));
    } catch (const Fault&) {
      continue;
    }
  }
  return std::make_shared<UnknownCoordinateSystem>();
}

// Shapes without arcs are taken over vertex by vertex; each of these returns false for what it doesn't know.

std::vector<XY> VerticesOf(const QgsLineString& line) {
  const auto count = static_cast<std::size_t>(line.numPoints());
  const double *x = line.xData(), *y = line.yData();
  std::vector<XY> vertices(count);
  for (std::size_t index = 0; index < count; ++index) vertices[index] = {x[index], y[index]};
  return vertices;
}

template <class Member, class Many>
bool EachMember(const QgsAbstractGeometry& geometry, const std::function<bool(const Member&)>& take) {
  if (const auto* one = qgsgeometry_cast<const Member*>(&geometry)) return take(*one);
  const auto* many = qgsgeometry_cast<const Many*>(&geometry);
  if (many == nullptr) return false;
  for (int index = 0; index < many->numGeometries(); ++index) {
    const auto* member = qgsgeometry_cast<const Member*>(many->geometryN(index));
    if (member == nullptr || !take(*member)) return false;
  }
  return true;
}

using Parts = std::vector<std::shared_ptr<Path>>;

bool AddPaths(const QgsAbstractGeometry& geometry, Parts& parts) {
  return EachMember<QgsLineString, QgsMultiLineString>(geometry, [&](const QgsLineString& line) {
    if (!line.isEmpty()) parts.push_back(std::make_shared<Path>(VerticesOf(line)));
    return true;
  });
}

bool AddRing(const QgsCurve& curve, bool exterior, Parts& parts) {
  const auto* line = qgsgeometry_cast<const QgsLineString*>(&curve);
  if (line == nullptr) return false;
  if (line->isEmpty()) return true;
  auto ring = std::make_shared<Ring>(VerticesOf(*line));
  const double area = ring->Area();
  if (area != 0.0 && (area > 0.0) != exterior) ring->ReverseOrientation();
  parts.push_back(std::move(ring));
  return true;
}

bool AddRings(const QgsAbstractGeometry& geometry, Parts& parts) {
  return EachMember<QgsPolygon, QgsMultiPolygon>(geometry, [&](const QgsPolygon& polygon) {
    if (polygon.exteriorRing() == nullptr) return true;
    if (!AddRing(*polygon.exteriorRing(), true, parts)) return false;
    for (int index = 0; index < polygon.numInteriorRings(); ++index) {
      if (!AddRing(*polygon.interiorRing(index), false, parts)) return false;
    }
    return true;
  });
}

bool AddPoints(const QgsAbstractGeometry& geometry, std::vector<XY>& points) {
  return EachMember<QgsPoint, QgsMultiPoint>(geometry, [&](const QgsPoint& point) {
    if (!point.isEmpty()) points.push_back({point.x(), point.y()});
    return true;
  });
}

bool FillPlain(const QgsAbstractGeometry& geometry, esriGeometryType type, IGeometry& shape) {
  if (type == esriGeometryPoint || type == esriGeometryMultipoint) {
    std::vector<XY> points;
    if (!AddPoints(geometry, points)) return false;
    if (type == esriGeometryMultipoint) {
      dynamic_cast<Multipoint&>(shape).SetVertices(std::move(points));
    } else if (!points.empty()) {
      dynamic_cast<Point&>(shape).PutCoords(points.front().x, points.front().y);
    }
    return true;
  }
  Parts parts;
  if (!(type == esriGeometryPolyline ? AddPaths(geometry, parts) : AddRings(geometry, parts))) return false;
  dynamic_cast<PartedShape&>(shape).SetParts(std::move(parts));
  return true;
}

}  // namespace

SpatialReferenceRef ReferenceOf(const QgsCoordinateReferenceSystem& system) {
  static std::mutex mutex;  // background runs and expressions ask, too
  static std::map<QString, SpatialReferenceRef> known;
  const QString key =
      system.isValid() ? system.authid() + system.toWkt(QgsCoordinateReferenceSystem::WKT2_2019) : QString();
  const std::lock_guard lock(mutex);
  SpatialReferenceRef& reference = known[key];
  if (!reference) reference = MakeReference(system);
  return reference;
}

esriGeometryType ShapeTypeOf(QgsWkbTypes::Type type) {
  // Both sides count the flat types as the well-known binary form does.
  return engine::ShapeTypeOf(static_cast<OGRwkbGeometryType>(QgsWkbTypes::flatType(type)));
}

GeometryRef ShapeOf(const QgsGeometry& geometry, esriGeometryType type, const SpatialReferenceRef& reference) {
  GeometryRef shape = engine::EmptyShape(type, reference);
  if (geometry.isNull() || !shape || FillPlain(*geometry.constGet(), type, *shape)) return shape;
  const QByteArray bytes = geometry.asWkb();
  OGRGeometry* read = nullptr;
  const OGRErr error =
      OGRGeometryFactory::createFromWkb(bytes.constData(), nullptr, &read, static_cast<std::size_t>(bytes.size()));
  const std::unique_ptr<OGRGeometry> owned(read);
  if (error != OGRERR_NONE) Raise(kTypeMismatch, "A geometry of the layer can't be read.");
  return engine::ShapeFromOgr(owned.get(), type, reference);
}

QgsGeometry GeometryOf(const IGeometry& shape, bool curves) {
  const std::unique_ptr<OGRGeometry> geometry = engine::OgrFromShape(shape, curves);
  if (!geometry) return {};
  QByteArray bytes(static_cast<int>(geometry->WkbSize()), '\0');
  geometry->exportToWkb(wkbNDR, reinterpret_cast<unsigned char*>(bytes.data()), wkbVariantIso);
  QgsGeometry result;
  result.fromWkb(bytes);
  return result;
}

Envelope EnvelopeOf(const QgsRectangle& rectangle) {
  // The program's empty rectangle has its sides swapped, or all at 0.
  if (rectangle.isNull() || rectangle.xMinimum() > rectangle.xMaximum()) return {};
  return {rectangle.xMinimum(), rectangle.yMinimum(), rectangle.xMaximum(), rectangle.yMaximum()};
}

QgsRectangle RectangleOf(const Envelope& envelope) {
  if (envelope.IsEmpty()) return {};
  return QgsRectangle(envelope.XMin(), envelope.YMin(), envelope.XMax(), envelope.YMax());
}

}  // namespace tessarine::qgis
