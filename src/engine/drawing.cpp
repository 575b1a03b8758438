// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/drawing.h"

#include <ogr_featurestyle.h>
#include <ogrsf_frmts.h>

#include <array>
#include <cmath>
#include <memory>

#include "engine/engine_fault.h"
#include "engine/ogr_geometry.h"
#include "engine/ogr_source.h"
#include "engine/srs_from_gdal.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

using namespace engine;

constexpr std::array kNameFields = {"name", "title", "label"};
constexpr double kPointsPerMillimetre = 72.0 / 25.4;

std::string TextOf(const OGRFeature& feature, int field) {
  return field >= 0 && feature.IsFieldSetAndNotNull(field) != 0 ? feature.GetFieldAsString(field) : "";
}

std::string TextOf(const OGRFeature& feature, const char* field) {
  return TextOf(feature, feature.GetFieldIndex(field));
}

// "#rrggbb", or with the opacity where it isn't 255; empty for what is no colour.
std::string ColorText(OGRStyleTool& tool, const char* text) {
  int red = 0, green = 0, blue = 0, opacity = 255;
  if (text == nullptr || !tool.GetRGBFromString(text, red, green, blue, opacity)) return "";
  constexpr const char* kDigits = "0123456789abcdef";
  std::string color = "#";
  const std::array channels = {red, green, blue, opacity};
  const std::size_t count = opacity == 255 ? 3 : 4;
  for (std::size_t index = 0; index < count; ++index) {
    const auto channel = static_cast<unsigned>(channels[index]) & 255U;
    color += kDigits[channel >> 4U];
    color += kDigits[channel & 15U];
  }
  return color;
}

double Positive(double size) { return std::isfinite(size) && size > 0.0 && size < 1e6 ? size : 0.0; }

// A size in points; GDAL gives millimetres once it is told so.
template <class Tool, class Read>
double SizeOf(Tool& tool, Read&& read) {
  tool.SetUnit(OGRSTUMM, 1.0);
  GBool is_default = TRUE;
  const double millimetres = read(is_default);
  return is_default != 0 ? 0.0 : Positive(std::round(millimetres * kPointsPerMillimetre * 100.0) / 100.0);
}

// A bare number is a factor to a picture's own size, which isn't known here.
bool SizeHasUnit(OGRStyleTool& tool) {
  const std::string text = tool.GetStyleString();
  const std::size_t at = text.find("s:");
  if (at == std::string::npos) return false;
  const std::size_t unit = text.find_first_not_of("0123456789.", at + 2);
  return unit != std::string::npos && (text[unit] == 'p' || text[unit] == 'm' || text[unit] == 'c');
}

// What the parts of a style say of a point: whether it is a symbol, a label, or both.
struct PointStyle {
  bool symbol = false, label = false;
  std::string label_text;
};

void ReadPart(OGRStyleTool& part, DrawnStyle& style, PointStyle& point) {
  GBool is_default = TRUE;
  if (auto* pen = dynamic_cast<OGRStylePen*>(&part)) {
    style.line_color = ColorText(part, pen->Color(is_default));
    style.line_width = SizeOf(*pen, [&](GBool& unset) { return pen->Width(unset); });
  } else if (auto* brush = dynamic_cast<OGRStyleBrush*>(&part)) {
    style.fill_color = ColorText(part, brush->ForeColor(is_default));
  } else if (auto* symbol = dynamic_cast<OGRStyleSymbol*>(&part)) {
    style.marker_color = ColorText(part, symbol->Color(is_default));
    if (SizeHasUnit(part)) style.marker_size = SizeOf(*symbol, [&](GBool& unset) { return symbol->Size(unset); });
    const double size = symbol->Size(is_default);
    point.symbol = is_default != 0 || size != 0.0;
  } else if (auto* label = dynamic_cast<OGRStyleLabel*>(&part)) {
    point.label = true;
    const char* text = label->TextString(is_default);
    if (text != nullptr && is_default == 0) point.label_text = text;
    style.text_color = ColorText(part, label->ForeColor(is_default));
    if (SizeHasUnit(part)) style.text_size = SizeOf(*label, [&](GBool& unset) { return label->Size(unset); });
  }
}

// The fields that map programs write into GeoJSON.
void ReadSimpleStyle(const OGRFeature& feature, DrawnStyle& style) {
  const auto take = [&](const char* field, std::string& color) {
    const std::string text = TextOf(feature, field);
    if (color.empty() && text.starts_with('#') && text.size() <= 9) color = LowerCase(text);
  };
  take("stroke", style.line_color);
  take("fill", style.fill_color);
  take("marker-color", style.marker_color);
  const std::string width = TextOf(feature, "stroke-width");
  if (style.line_width == 0.0 && IsNumericText(width)) style.line_width = Positive(ToNumber(width));
}

DrawnStyle StyleOf(OGRFeature& feature, OGRStyleTable* shared_styles, PointStyle& point) {
  DrawnStyle style;
  OGRStyleMgr manager(shared_styles);
  if (manager.InitFromFeature(&feature) != nullptr) {
    for (int index = 0; index < manager.GetPartCount(); ++index) {
      const std::unique_ptr<OGRStyleTool> part(manager.GetPart(index));
      if (part) ReadPart(*part, style, point);
    }
  }
  ReadSimpleStyle(feature, style);
  return style;
}

bool IsFinite(const OGRGeometry& geometry) {
  OGREnvelope box;
  geometry.getEnvelope(&box);
  return std::isfinite(box.MinX) && std::isfinite(box.MinY) && std::isfinite(box.MaxX) && std::isfinite(box.MaxY);
}

class LayerReader {
 public:
  LayerReader(OGRLayer& layer, OGRStyleTable* styles, const std::string& name_field, Drawing& drawing)
      : layer_(layer), styles_(styles), reference_(ReferenceFromOgr(layer.GetSpatialRef())), drawing_(drawing) {
    if (layer.GetStyleTable() != nullptr) styles_ = layer.GetStyleTable();
    const OGRFeatureDefn& definition = *layer.GetLayerDefn();
    if (!name_field.empty()) {
      name_field_ = definition.GetFieldIndex(name_field.c_str());
      return;
    }
    for (const char* field : kNameFields) {
      if (name_field_ < 0) name_field_ = definition.GetFieldIndex(field);
    }
  }

  [[nodiscard]] bool HasNameField() const { return name_field_ >= 0; }

  void ReadAll() {
    layer_.ResetReading();
    while (const OGRFeatureUniquePtr feature{layer_.GetNextFeature()}) Read(*feature);
  }

 private:
  void Read(OGRFeature& feature) {
    const OGRGeometry* geometry = feature.GetGeometryRef();
    if (geometry == nullptr || geometry->IsEmpty() || !IsFinite(*geometry)) {
      ++drawing_.skipped;
      return;
    }
    const std::size_t before = drawing_.shapes.size();
    PointStyle point;
    DrawnShape pattern{nullptr, TextOf(feature, name_field_), StyleOf(feature, styles_, point), std::nullopt};
    if (point.label && !point.symbol) pattern.words = point.label_text.empty() ? pattern.name : point.label_text;
    Add(*geometry, pattern);
    if (drawing_.shapes.size() == before) ++drawing_.skipped;
  }

  void Add(const OGRGeometry& geometry, const DrawnShape& pattern) {
    const esriGeometryType type = ShapeTypeOf(geometry.getGeometryType());
    if (type == esriGeometryPolyline || type == esriGeometryPolygon || type == esriGeometryPoint) {
      Keep(ShapeFromOgr(&geometry, type, reference_), pattern);
    } else if (OGR_GT_IsSubClassOf(wkbFlatten(geometry.getGeometryType()), wkbGeometryCollection) != 0) {
      for (const OGRGeometry* member : *geometry.toGeometryCollection()) Add(*member, pattern);
    }
  }

  void Keep(GeometryRef shape, const DrawnShape& pattern) {
    if (shape->IsEmpty()) return;
    const bool is_point = shape->GeometryType() == esriGeometryPoint;
    drawing_.shapes.push_back({std::move(shape), pattern.name, pattern.style, is_point ? pattern.words : std::nullopt});
  }

  OGRLayer& layer_;
  OGRStyleTable* styles_;  // of the layer, or of the whole drawing
  SpatialReferenceRef reference_;
  Drawing& drawing_;
  int name_field_ = -1;
};

std::string LayerNames(GDALDataset& dataset) {
  std::string names;
  for (int index = 0; index < dataset.GetLayerCount(); ++index) {
    names += (index == 0 ? "" : ", ") + std::string(dataset.GetLayer(index)->GetName());
  }
  return names;
}

void ReadLayers(GDALDataset& dataset, const std::string& path, const std::string& layer, const std::string& name_field,
                Drawing& drawing) {
  bool found_layer = false, found_field = name_field.empty();
  for (int index = 0; index < dataset.GetLayerCount(); ++index) {
    OGRLayer& candidate = *dataset.GetLayer(index);
    if (!layer.empty() && !EqualsIgnoringCase(candidate.GetName(), layer)) continue;
    found_layer = true;
    LayerReader reader(candidate, dataset.GetStyleTable(), name_field, drawing);
    found_field = found_field || reader.HasNameField();
    reader.ReadAll();
  }
  if (!found_layer) {
    RaiseEngineFault("'" + path + "' has no layer" + (layer.empty() ? "" : " '" + layer + "'") +
                     ". It has: " + LayerNames(dataset) + ".");
  }
  if (!found_field) RaiseEngineFault("'" + path + "' has no field '" + name_field + "'.");
}

}  // namespace

Drawing ReadDrawing(const std::string& native_path, const std::string& layer, const std::string& name_field) {
  const DatasetHandle dataset = OpenDataset(native_path);
  const GdalErrorScope errors;
  Drawing drawing;
  ReadLayers(*dataset, native_path, layer, name_field, drawing);
  if (errors.Failed()) RaiseEngineFault("'" + native_path + "' can't be read to its end" + errors.Quote() + ".");
  return drawing;
}

}  // namespace tessarine
