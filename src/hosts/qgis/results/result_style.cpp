// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/results/result_style.h"

#include <qgsfillsymbol.h>
#include <qgslinesymbol.h>
#include <qgsmarkersymbol.h>
#include <qgspallabeling.h>
#include <qgsproject.h>
#include <qgssinglesymbolrenderer.h>
#include <qgssymbollayerutils.h>
#include <qgsvectorlayerlabeling.h>
#include <qgsvectorlayerutils.h>

#include <algorithm>
#include <memory>

#include "hosts/windows/qt_text.h"

namespace tessarine::qgis {
namespace {

enum class Labels { None, Names };

// Sizes and widths are millimetres, colours red, green, blue and opacity.
struct Look {
  ToolResult kind;
  const char* fill;
  const char* stroke;
  const char* width;
  const char* size;  // of markers
  Labels labels;
};
constexpr Look kLooks[] = {
    {ToolResult::Vertices, "255,255,255,255", "84,110,135,255", "0.3", "1.4", Labels::None},
    {ToolResult::Centers, "176,110,72,255", "255,255,255,255", "0.3", "2.4", Labels::Names},
    {ToolResult::Outlines, "84,110,135,255", "84,110,135,255", "0.36", "2", Labels::Names},
    {ToolResult::Regions, "143,166,138,90", "94,115,90,255", "0.3", "2", Labels::Names},
    {ToolResult::Moved, "150,140,170,90", "104,92,130,255", "0.3", "2", Labels::Names},
};

const Look* LookOf(ToolResult kind) {
  const auto* const look = std::ranges::find(kLooks, kind, &Look::kind);
  return look != std::end(kLooks) ? look : nullptr;
}

QgsSymbol* SymbolOf(const Look& look, QgsWkbTypes::GeometryType type) {
  const auto text = [](const char* value) { return QVariant(QString::fromLatin1(value)); };
  switch (type) {
    case QgsWkbTypes::PointGeometry:
      return QgsMarkerSymbol::createSimple({{QStringLiteral("name"), QStringLiteral("circle")},
                                            {QStringLiteral("color"), text(look.fill)},
                                            {QStringLiteral("outline_color"), text(look.stroke)},
                                            {QStringLiteral("outline_width"), text(look.width)},
                                            {QStringLiteral("size"), text(look.size)}});
    case QgsWkbTypes::LineGeometry:
      return QgsLineSymbol::createSimple({{QStringLiteral("line_color"), text(look.stroke)},
                                          {QStringLiteral("line_width"), text(look.width)},
                                          {QStringLiteral("joinstyle"), QStringLiteral("round")}});
    case QgsWkbTypes::PolygonGeometry:
      return QgsFillSymbol::createSimple({{QStringLiteral("color"), text(look.fill)},
                                          {QStringLiteral("outline_color"), text(look.stroke)},
                                          {QStringLiteral("outline_width"), text(look.width)}});
    default:
      return nullptr;
  }
}

// The program draws a new layer without a style in one symbol of a colour by chance.
bool IsDrawnByChance(QgsVectorLayer& layer) {
  const auto* renderer = dynamic_cast<const QgsSingleSymbolRenderer*>(layer.renderer());
  if (renderer == nullptr || renderer->symbol() == nullptr || layer.labelsEnabled()) return false;
  const std::unique_ptr<QgsSymbol> usual(QgsSymbol::defaultSymbol(layer.geometryType()));
  const std::unique_ptr<QgsSymbol> own(renderer->symbol()->clone());
  if (!usual) return false;
  usual->setColor(own->color());
  return QgsSymbolLayerUtils::symbolProperties(usual.get()) == QgsSymbolLayerUtils::symbolProperties(own.get());
}

// The project may name symbols that new layers take.
bool ProjectHasSymbol(QgsWkbTypes::GeometryType type) {
  const QString key = type == QgsWkbTypes::PointGeometry  ? QStringLiteral("/Marker")
                      : type == QgsWkbTypes::LineGeometry ? QStringLiteral("/Line")
                                                          : QStringLiteral("/Fill");
  return !QgsProject::instance()->readEntry(QStringLiteral("DefaultStyles"), key).isEmpty();
}

bool HasOwnStyle(QgsVectorLayer& layer) {
  if (!IsDrawnByChance(layer) || ProjectHasSymbol(layer.geometryType())) return true;
  bool found = false;
  layer.loadDefaultStyle(found);
  return found;
}

// Empty where no field names the features.
QString NamingField(const QgsVectorLayer& layer, const std::vector<std::string>& carried) {
  const QgsFields fields = layer.fields();
  bool is_friendly = false;
  const QString friendly = QgsVectorLayerUtils::guessFriendlyIdentifierField(fields, &is_friendly);
  if (is_friendly) return friendly;
  for (const std::string& name : carried) {
    const int index = fields.lookupField(ToQt(name));
    if (index >= 0 && fields.at(index).type() == QVariant::String) return fields.at(index).name();
  }
  return {};
}

void Label(QgsVectorLayer& layer, const QString& field) {
  QgsTextBufferSettings halo;
  halo.setEnabled(true);
  halo.setSize(0.7);
  halo.setColor(QColor(255, 255, 255, 200));
  QgsTextFormat format;
  format.setSize(8.0);
  format.setColor(QColor(60, 60, 60));
  format.setBuffer(halo);
  QgsPalLayerSettings settings;
  settings.fieldName = field;
  settings.setFormat(format);
  if (layer.geometryType() == QgsWkbTypes::LineGeometry) settings.placement = QgsPalLayerSettings::Curved;
  layer.setLabeling(new QgsVectorLayerSimpleLabeling(settings));  // the layer owns it
  layer.setLabelsEnabled(true);
}

}  // namespace

void StyleResult(QgsVectorLayer& layer, ToolResult kind, const std::vector<std::string>& carried) {
  const Look* look = LookOf(kind);
  if (look == nullptr || HasOwnStyle(layer)) return;
  QgsSymbol* symbol = SymbolOf(*look, layer.geometryType());
  if (symbol == nullptr) return;
  layer.setRenderer(new QgsSingleSymbolRenderer(symbol));  // the layer owns both
  const QString field = look->labels == Labels::Names ? NamingField(layer, carried) : QString();
  if (!field.isEmpty()) Label(layer, field);
  layer.triggerRepaint();
  layer.emitStyleChanged();
}

}  // namespace tessarine::qgis
