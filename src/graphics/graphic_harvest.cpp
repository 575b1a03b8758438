// SPDX-License-Identifier: GPL-2.0-or-later
#include "graphics/graphic_harvest.h"

#include "platform/fault.h"

namespace tessarine {
namespace {

std::string NameOf(const std::shared_ptr<IElement>& element) {
  const auto properties = Cast<IElementProperties>(element);
  return properties ? properties->Name() : "";
}

template <class Kind>
std::shared_ptr<ISymbol> SymbolOf(const std::shared_ptr<IElement>& element) {
  const auto drawn = Cast<Kind>(element);
  return drawn ? drawn->Symbol() : nullptr;
}

template <class Kind>
void AddTo(GraphicList& list, const GeometryRef& shape, const std::shared_ptr<IElement>& element) {
  const std::string name = NameOf(element);
  list.shapes->Add(shape);
  list.names->Add(name);
  if (!name.empty()) list.any_name = true;
  if (list.Count() == 1) list.first_symbol = SymbolOf<Kind>(element);
}

void AddElement(GraphicSet& set, const std::shared_ptr<IElement>& element) {
  if (Is<IFrameElement>(element)) return;
  const GeometryRef own = element->Geometry();
  if (!own) return;
  const GeometryRef shape = CloneOf(*own);
  switch (shape->GeometryType()) {
    case esriGeometryPoint:
      if (!Is<ITextElement>(element)) AddTo<IMarkerElement>(set.points, shape, element);
      return;
    case esriGeometryPolyline:
      AddTo<ILineElement>(set.polylines, shape, element);
      return;
    case esriGeometryPolygon:
      AddTo<IFillShapeElement>(set.polygons, shape, element);
      return;
    default:
      return;
  }
}

std::string Counted(std::int32_t count, const char* word) {
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

}  // namespace

std::shared_ptr<StrArray> GraphicSet::ConversionLines() const {
  const std::string of_points = Counted(points.Count(), "Point");
  const std::string of_polylines = Counted(polylines.Count(), "Polyline");
  const std::string of_polygons = Counted(polygons.Count(), "Polygon");
  auto lines = std::make_shared<StrArray>();
  lines->Add("1) Point Shapefile: " + of_points);
  lines->Add("2) Polyline Shapefile: " + of_polylines);
  lines->Add("3) Polyline Shapefile: " + of_polylines + " + " + of_polygons);
  lines->Add("4) Polygon Shapefile: " + of_polygons);
  lines->Add("5) Polygon Shapefile: " + of_polylines + " + " + of_polygons);
  return lines;
}

GraphicHarvest HarvestGraphics(const IMxDocument& document) {
  const std::shared_ptr<IGraphicsContainer> container = document.ActiveView()->GraphicsContainer();
  const auto selection = Cast<IGraphicsContainerSelect>(Require(container, "IGraphicsContainer"));
  GraphicHarvest harvest;
  container->Reset();
  while (const std::shared_ptr<IElement> element = container->Next()) AddElement(harvest.all, element);
  if (Require(selection, "IGraphicsContainerSelect")->ElementSelectionCount() > 0) {
    const std::shared_ptr<IEnumElement> selected = selection->SelectedElements();
    selected->Reset();
    while (const std::shared_ptr<IElement> element = selected->Next()) AddElement(harvest.selected, element);
  }
  return harvest;
}

}  // namespace tessarine
