// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/element_view.h"

#include <algorithm>
#include <array>

#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

class ScreenDisplay final : public IDisplay {};

class ElementWalk final : public IEnumElement {
 public:
  explicit ElementWalk(std::vector<ElementRef> elements) : elements_(std::move(elements)) {}
  void Reset() override { next_ = 0; }
  [[nodiscard]] std::shared_ptr<IElement> Next() override {
    return next_ < elements_.size() ? elements_[next_++] : nullptr;
  }

 private:
  std::vector<ElementRef> elements_;
  std::size_t next_ = 0;
};

/// An element whose name the view keeps: the program has no names for its items.
class NamedElement : public ProgramElement {
 public:
  explicit NamedElement(std::weak_ptr<ElementView> view) : view_(std::move(view)) {}
  [[nodiscard]] std::string Name() const override {
    const auto view = view_.lock();
    return view ? view->NameOf(Id()) : "";
  }
  void SetName(const std::string& name) override { Require(view_.lock(), "view")->SetNameOf(Id(), name); }

 private:
  std::weak_ptr<ElementView> view_;
};

template <class... Kinds>
class PlainElement final : public NamedElement, public Kinds... {
  using NamedElement::NamedElement;
};

/// Kinds that tell their symbol.
template <class Drawn, class... Kinds>
class DrawnElement final : public NamedElement, public Drawn, public Kinds... {
 public:
  using NamedElement::NamedElement;
  [[nodiscard]] std::shared_ptr<ISymbol> Symbol() const override { return DrawnWith(); }
};

class GroupElement final : public NamedElement, public IGroupElement {
 public:
  GroupElement(std::weak_ptr<ElementView> view, std::vector<ElementRef> members)
      : NamedElement(std::move(view)), members_(std::move(members)) {}
  [[nodiscard]] std::int32_t ElementCount() const override { return static_cast<std::int32_t>(members_.size()); }
  [[nodiscard]] std::shared_ptr<IElement> Element(std::int32_t index) const override {
    if (index < 0 || index >= ElementCount()) Raise(kInvalidCall, "The group has no such element.");
    return members_[static_cast<std::size_t>(index)];
  }
  void QueryBounds(IDisplay& display, Envelope& bounds) const override {
    NamedElement::QueryBounds(display, bounds);
    for (const ElementRef& member : members_) {
      Envelope part;
      member->QueryBounds(display, part);
      bounds.Union(part);
    }
  }

 private:
  std::vector<ElementRef> members_;
};

template <class Element>
ElementRef Make(const std::weak_ptr<ElementView>& view) {
  return std::make_shared<Element>(view);
}

struct KindRow {
  ElementKind kind;
  ElementRef (*make)(const std::weak_ptr<ElementView>&);
};
constexpr std::array kKinds = {
    KindRow{ElementKind::Marker, Make<DrawnElement<IMarkerElement>>},
    KindRow{ElementKind::Line, Make<DrawnElement<ILineElement>>},
    KindRow{ElementKind::Polygon, Make<DrawnElement<IFillShapeElement, IPolygonElement>>},
    KindRow{ElementKind::Rectangle, Make<DrawnElement<IFillShapeElement, IRectangleElement>>},
    KindRow{ElementKind::Ellipse, Make<DrawnElement<IFillShapeElement, IEllipseElement>>},
    KindRow{ElementKind::Circle, Make<DrawnElement<IFillShapeElement, ICircleElement>>},
    KindRow{ElementKind::Text, Make<PlainElement<ITextElement>>},
    KindRow{ElementKind::Picture, Make<PlainElement<IPictureElement>>},
    KindRow{ElementKind::Frame, Make<PlainElement<IFrameElement>>},
    KindRow{ElementKind::Other, Make<PlainElement<>>},
};

}  // namespace

ElementRef MakeElement(ElementKind kind, const std::weak_ptr<ElementView>& view, std::vector<ElementRef> members) {
  for (const KindRow& row : kKinds) {
    if (row.kind == kind) return row.make(view);
  }
  return std::make_shared<GroupElement>(view, std::move(members));
}

std::shared_ptr<IGraphicsContainer> ElementView::GraphicsContainer() const {
  return std::const_pointer_cast<ElementView>(shared_from_this());
}

std::shared_ptr<IDisplay> ElementView::ScreenDisplay() const {
  static const auto display = std::make_shared<qgis::ScreenDisplay>();
  return display;
}

void ElementView::Reset() {
  walk_ = ReadElements();
  next_ = 0;
}

std::shared_ptr<IElement> ElementView::Next() { return next_ < walk_.size() ? walk_[next_++] : nullptr; }

std::int32_t ElementView::ElementSelectionCount() const {
  const std::vector<ElementRef> elements = ReadElements();
  return static_cast<std::int32_t>(
      std::ranges::count_if(elements, [this](const auto& element) { return IsSelected(element->Id()); }));
}

bool ElementView::ElementSelected(const std::shared_ptr<IElement>& element) const {
  const auto own = Cast<ProgramElement>(element);
  return own && IsSelected(own->Id());
}

std::shared_ptr<IEnumElement> ElementView::SelectedElements() const {
  std::vector<ElementRef> elements = ReadElements();
  std::erase_if(elements, [this](const auto& element) { return !IsSelected(element->Id()); });
  return std::make_shared<ElementWalk>(std::move(elements));
}

void ElementView::Select(const std::shared_ptr<IElement>& element, bool selected) {
  SetSelected(Require(Cast<ProgramElement>(element), "element")->Id(), selected);
}

void ElementView::SelectAllElements() {
  for (const ElementRef& element : ReadElements()) SetSelected(element->Id(), true);
}

void ElementView::UnselectAllElements() {
  for (const ElementRef& element : ReadElements()) SetSelected(element->Id(), false);
}

}  // namespace tessarine::qgis
