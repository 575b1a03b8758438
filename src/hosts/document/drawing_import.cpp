// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/drawing_import.h"

#include "hosts/document/document_layer.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

bool IsKnown(const SpatialReferenceRef& reference) {
  return reference && !Is<const UnknownCoordinateSystem>(reference);
}

std::string SymbolText(const char* kind, const std::string& color, double size) {
  if (color.empty() && size == 0.0) return "";
  return std::string(kind) + (color.empty() ? "" : " " + color) + (size > 0.0 ? " " + NumberText(size) : "");
}

struct ElementKind {
  const char* word;
  std::int32_t ImportResult::*count;
  std::string symbol;
};

ElementKind KindOf(const DrawnShape& drawn) {
  const DrawnStyle& style = drawn.style;
  switch (drawn.shape->GeometryType()) {
    case esriGeometryPoint:
      if (drawn.words) return {"text", &ImportResult::texts, SymbolText("text", style.text_color, style.text_size)};
      return {"marker", &ImportResult::markers, SymbolText("marker", style.marker_color, style.marker_size)};
    case esriGeometryPolyline:
      return {"line", &ImportResult::lines, SymbolText("line", style.line_color, style.line_width)};
    default:
      return {"polygon", &ImportResult::polygons, SymbolText("fill", style.fill_color, 0.0)};
  }
}

// The shape in the map's reference; null where it can't be had there.
GeometryRef Placed(const GeometryRef& own, const SpatialReferenceRef& reference) {
  GeometryRef shape = CloneOf(*own);
  if (!IsKnown(reference) || !IsKnown(shape->SpatialReference())) return shape;
  try {
    shape->Project(reference);
  } catch (const Fault&) {
    return nullptr;
  }
  return shape;
}

}  // namespace

ImportResult AddDrawing(const Drawing& drawing, bool select, DocumentMap& map) {
  ImportResult result;
  result.skipped = drawing.skipped;
  if (!drawing.shapes.empty() && !IsKnown(map.SpatialReference())) {
    const SpatialReferenceRef own = drawing.shapes.front().shape->SpatialReference();
    if (IsKnown(own)) map.SetSpatialReference(own);
  }
  const SpatialReferenceRef reference = map.SpatialReference();
  for (const DrawnShape& drawn : drawing.shapes) {
    GeometryRef shape = Placed(drawn.shape, reference);
    if (!shape) {
      ++result.skipped;
      continue;
    }
    const ElementKind kind = KindOf(drawn);
    const std::shared_ptr<GraphicElement> element = MakeElement(kind.word);
    element->SetName(drawn.name);
    element->content = drawn.words.value_or("");
    element->selected = select;
    element->shape = std::move(shape);
    if (!kind.symbol.empty()) element->drawn_with = std::make_shared<DocumentSymbol>(kind.symbol);
    map.AddElement(element);
    ++(result.*kind.count);
  }
  return result;
}

}  // namespace tessarine
