#include "hosts/qgis/values.h"

#include <ogr_geometry.h>

#include <map>
#include <memory>
#include <string>

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

}  // namespace

SpatialReferenceRef ReferenceOf(const QgsCoordinateReferenceSystem& system) {
  static std::map<QString, SpatialReferenceRef> known;
  const QString key =
      system.isValid() ? system.authid() + system.toWkt(QgsCoordinateReferenceSystem::WKT2_2019) : QString();
  SpatialReferenceRef& reference = known[key];
  if (!reference) reference = MakeReference(system);
  return reference;
}

esriGeometryType ShapeTypeOf(QgsWkbTypes::Type type) {
  // Both sides count the flat types as the well-known binary form does.
  return engine::ShapeTypeOf(static_cast<OGRwkbGeometryType>(QgsWkbTypes::flatType(type)));
}

GeometryRef ShapeOf(const QgsGeometry& geometry, esriGeometryType type, const SpatialReferenceRef& reference) {
  if (geometry.isNull()) return engine::ShapeFromOgr(nullptr, type, reference);
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
