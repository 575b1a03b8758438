// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/graphic_element.h"

#include <array>

#include "platform/fault.h"

namespace tessarine {
namespace {

class MarkerElement final : public GraphicElement, public IMarkerElement {
 public:
  [[nodiscard]] const char* Kind() const override { return "marker"; }
  [[nodiscard]] std::shared_ptr<ISymbol> Symbol() const override { return drawn_with; }
};

class LineElement final : public GraphicElement, public ILineElement {
 public:
  [[nodiscard]] const char* Kind() const override { return "line"; }
  [[nodiscard]] std::shared_ptr<ISymbol> Symbol() const override { return drawn_with; }
};

// Areas of all four kinds have a fill symbol.
template <class KindInterface>
class FillElement : public GraphicElement, public KindInterface, public IFillShapeElement {
 public:
  [[nodiscard]] std::shared_ptr<ISymbol> Symbol() const override { return drawn_with; }
};

class PolygonElement final : public FillElement<IPolygonElement> {
 public:
  [[nodiscard]] const char* Kind() const override { return "polygon"; }
};
class RectangleElement final : public FillElement<IRectangleElement> {
 public:
  [[nodiscard]] const char* Kind() const override { return "rectangle"; }
};
class EllipseElement final : public FillElement<IEllipseElement> {
 public:
  [[nodiscard]] const char* Kind() const override { return "ellipse"; }
};
class CircleElement final : public FillElement<ICircleElement> {
 public:
  [[nodiscard]] const char* Kind() const override { return "circle"; }
};
class TextElement final : public GraphicElement, public ITextElement {
 public:
  [[nodiscard]] const char* Kind() const override { return "text"; }
};
class PictureElement final : public GraphicElement, public IPictureElement {
 public:
  [[nodiscard]] const char* Kind() const override { return "picture"; }
};
class DataGraphElement final : public GraphicElement, public IDataGraphElement {
 public:
  [[nodiscard]] const char* Kind() const override { return "data graph"; }
};
class FrameElement final : public GraphicElement, public IFrameElement {
 public:
  [[nodiscard]] const char* Kind() const override { return "frame"; }
};

template <class Element>
std::shared_ptr<GraphicElement> Make() {
  return std::make_shared<Element>();
}

struct KindRow {
  const char* word;
  std::shared_ptr<GraphicElement> (*make)();
};

constexpr std::array kKinds = {
    KindRow{"marker", Make<MarkerElement>},
    KindRow{"line", Make<LineElement>},
    KindRow{"polygon", Make<PolygonElement>},
    KindRow{"rectangle", Make<RectangleElement>},
    KindRow{"ellipse", Make<EllipseElement>},
    KindRow{"circle", Make<CircleElement>},
    KindRow{"text", Make<TextElement>},
    KindRow{"picture", Make<PictureElement>},
    KindRow{"data graph", Make<DataGraphElement>},
    KindRow{"frame", Make<FrameElement>},
    KindRow{"group", Make<GroupElement>},
};

}  // namespace

GeometryRef GraphicElement::Geometry() const {
  if (shape && !shape->SpatialReference()) {
    if (const auto on = place.lock()) shape->SetSpatialReference(on->ElementReference());
  }
  return shape;
}

void GraphicElement::QueryBounds(IDisplay&, Envelope& bounds) const { bounds = shape ? shape->Envelope() : Envelope(); }

void GroupElement::QueryBounds(IDisplay& display, Envelope& bounds) const {
  bounds = shape ? shape->Envelope() : Envelope();
  for (const auto& member : members) {
    Envelope part;
    member->QueryBounds(display, part);
    bounds.Union(part);
  }
}

std::shared_ptr<IElement> GroupElement::Element(std::int32_t index) const {
  if (index < 0 || index >= ElementCount()) Raise(kInvalidCall, "The group has no such element.");
  return members[static_cast<std::size_t>(index)];
}

std::shared_ptr<GraphicElement> MakeElement(const std::string& kind) {
  for (const KindRow& row : kKinds) {
    if (kind == row.word) return row.make();
  }
  return nullptr;
}

std::string ElementKinds() {
  std::string words;
  for (const KindRow& row : kKinds) words += (words.empty() ? "" : ", ") + std::string(row.word);
  return words;
}

}  // namespace tessarine
