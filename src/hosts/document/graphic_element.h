// SPDX-License-Identifier: GPL-2.0-or-later
// The graphic elements of a map document. Each kind passes exactly the type tests that fit it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/document/other_members.h"
#include "platform/map.h"

namespace tessarine {

/// The view that an element lies in.
class IElementPlace {
 public:
  virtual ~IElementPlace() = default;
  /// The reference of the elements' coordinates; null where there is none.
  [[nodiscard]] virtual SpatialReferenceRef ElementReference() const = 0;
};

/// What all kinds share. The shape of an element is a point, polyline or polygon in the reference of the map, or of
/// the page for elements of the layout.
class GraphicElement : public virtual IElement, public IElementProperties {
 public:
  /// A shape without a reference takes that of its view.
  [[nodiscard]] GeometryRef Geometry() const override;
  /// The envelope of the shape; a symbol's size isn't known without a display.
  void QueryBounds(IDisplay& display, Envelope& bounds) const override;
  [[nodiscard]] std::string Name() const override { return name_; }
  void SetName(const std::string& name) override { name_ = name; }
  /// The word for the kind in a document's file, as "marker" or "data graph".
  [[nodiscard]] virtual const char* Kind() const = 0;

  GeometryRef shape;
  std::shared_ptr<ISymbol> drawn_with;
  /// The text of a text element, the file of a picture, the title of a graph or frame.
  std::string content;
  bool selected = false;
  std::weak_ptr<const IElementPlace> place;
  OtherMembers others, shape_others;

 private:
  std::string name_;
};

class GroupElement final : public GraphicElement, public IGroupElement {
 public:
  [[nodiscard]] const char* Kind() const override { return "group"; }
  /// The bounds of all members.
  void QueryBounds(IDisplay& display, Envelope& bounds) const override;
  [[nodiscard]] std::int32_t ElementCount() const override { return static_cast<std::int32_t>(members.size()); }
  [[nodiscard]] std::shared_ptr<IElement> Element(std::int32_t index) const override;

  std::vector<std::shared_ptr<GraphicElement>> members;
};

/// A new element of the kind that the word names; null for an unknown word.
[[nodiscard]] std::shared_ptr<GraphicElement> MakeElement(const std::string& kind);
/// All words for kinds, joined by ", ", for messages.
[[nodiscard]] std::string ElementKinds();

}  // namespace tessarine
