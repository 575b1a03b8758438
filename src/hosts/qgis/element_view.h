// SPDX-License-Identifier: GPL-2.0-or-later
// What the map and a page layout share as views: graphic elements in drawing order, with a selection.
#pragma once

#include <qgssymbol.h>

#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "hosts/qgis/layers.h"
#include "platform/map.h"

namespace tessarine::qgis {

/// A graphic element of the program. It stands for the item of its identifier and holds its shape as it was when the
/// element was met.
class ProgramElement : public virtual IElement, public IElementProperties {
 public:
  [[nodiscard]] GeometryRef Geometry() const override { return shape_; }
  /// The envelope of the shape; a symbol's size isn't counted.
  void QueryBounds(IDisplay&, Envelope& bounds) const override { bounds = shape_ ? shape_->Envelope() : Envelope(); }
  [[nodiscard]] const QString& Id() const { return id_; }

  void SetPlace(QString id, GeometryRef shape) {
    id_ = std::move(id);
    shape_ = std::move(shape);
  }
  void SetSymbol(std::shared_ptr<ISymbol> symbol) { symbol_ = std::move(symbol); }

 protected:
  [[nodiscard]] const std::shared_ptr<ISymbol>& DrawnWith() const { return symbol_; }

 private:
  QString id_;
  GeometryRef shape_;
  std::shared_ptr<ISymbol> symbol_;
};

using ElementRef = std::shared_ptr<ProgramElement>;

enum class ElementKind { Marker, Line, Polygon, Rectangle, Ellipse, Circle, Text, Picture, Frame, Group, Other };

class ElementView;

/// An element of the kind, named in its view.
[[nodiscard]] ElementRef MakeElement(ElementKind kind, const std::weak_ptr<ElementView>& view,
                                     std::vector<ElementRef> members = {});

class ElementView : public IActiveView,
                    public IGraphicsContainer,
                    public IGraphicsContainerSelect,
                    public std::enable_shared_from_this<ElementView> {
 public:
  // IActiveView
  [[nodiscard]] std::shared_ptr<IGraphicsContainer> GraphicsContainer() const override;
  [[nodiscard]] std::shared_ptr<IDisplay> ScreenDisplay() const override;

  // IGraphicsContainer: the walk is over the elements as they were at the reset.
  void Reset() override;
  [[nodiscard]] std::shared_ptr<IElement> Next() override;

  // IGraphicsContainerSelect
  [[nodiscard]] std::int32_t ElementSelectionCount() const override;
  [[nodiscard]] bool ElementSelected(const std::shared_ptr<IElement>& element) const override;
  [[nodiscard]] std::shared_ptr<IEnumElement> SelectedElements() const override;
  void SelectElement(const std::shared_ptr<IElement>& element) override { Select(element, true); }
  void UnselectElement(const std::shared_ptr<IElement>& element) override { Select(element, false); }
  void SelectAllElements() override;
  void UnselectAllElements() override;

  // What each view knows of its elements, by their identifiers.
  [[nodiscard]] virtual std::string NameOf(const QString& id) const = 0;
  virtual void SetNameOf(const QString& id, const std::string& name) = 0;

 protected:
  /// In drawing order, the lowest first.
  [[nodiscard]] virtual std::vector<ElementRef> ReadElements() const = 0;
  [[nodiscard]] virtual bool IsSelected(const QString& id) const = 0;
  virtual void SetSelected(const QString& id, bool selected) = 0;

 private:
  void Select(const std::shared_ptr<IElement>& element, bool selected);

  std::vector<ElementRef> walk_;
  std::size_t next_ = 0;
};

}  // namespace tessarine::qgis
