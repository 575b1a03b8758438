// SPDX-License-Identifier: GPL-2.0-or-later
// The map: layers, tables, views and graphic elements. Each host supplies its own.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "platform/data.h"

namespace tessarine {

enum esriViewDrawPhase : std::int32_t {
  esriViewGeography = 2,
  esriViewGraphics = 8,
  esriViewGraphicSelection = 16,
};

/// How a feature or a graphic is drawn; the suite only hands it on.
class ISymbol : public virtual Object {};

class IFeatureRenderer : public virtual Object {};

/// One symbol for all features.
class ISimpleRenderer : public virtual IFeatureRenderer {
 public:
  virtual void SetSymbol(const std::shared_ptr<ISymbol>& symbol) = 0;
};

class ILayer : public virtual Object {
 public:
  [[nodiscard]] virtual std::string Name() const = 0;
  virtual void SetName(const std::string& name) = 0;
  /// False when the data behind the layer can't be opened.
  [[nodiscard]] virtual bool Valid() const = 0;
  virtual void SetVisible(bool visible) = 0;
};

class IFeatureLayer : public virtual ILayer {
 public:
  [[nodiscard]] virtual std::shared_ptr<IFeatureClass> FeatureClass() const = 0;
  virtual void SetFeatureClass(const std::shared_ptr<IFeatureClass>& feature_class) = 0;
  [[nodiscard]] virtual std::string DataSourceType() const = 0;
};

/// A feature layer that can be told how to draw itself.
class IGeoFeatureLayer : public virtual IFeatureLayer {
 public:
  virtual void SetRenderer(const std::shared_ptr<IFeatureRenderer>& renderer) = 0;
};

class IRasterLayer : public virtual ILayer {};
class ITinLayer : public virtual ILayer {};
class IGroupLayer : public virtual ILayer {};
/// The feature-layer kind {605BC37A-15E9-40A0-90FB-DE4CC376838C}, tested ahead of plain feature layers.
class ISpecialFeatureLayer : public virtual IFeatureLayer {};

class IFeatureSelection : public virtual Object {
 public:
  /// Null when the selection can't be had.
  [[nodiscard]] virtual std::shared_ptr<ISelectionSet> SelectionSet() const = 0;
};

/// A field as the layer shows it.
struct FieldInfo {
  std::string Alias;
  bool Visible = true;
};

class ILayerFields : public virtual Object {
 public:
  [[nodiscard]] virtual tessarine::FieldInfo FieldInfo(std::int32_t index) const = 0;
  /// -1 for an unknown name.
  [[nodiscard]] virtual std::int32_t FindField(std::string_view name) const = 0;
};

class IEnumLayer : public virtual Object {
 public:
  virtual void Reset() = 0;
  [[nodiscard]] virtual std::shared_ptr<ILayer> Next() = 0;
};

class IStandaloneTable : public virtual Object {
 public:
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::shared_ptr<ITable> Table() const = 0;
};

class IStandaloneTableCollection : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t StandaloneTableCount() const = 0;
  [[nodiscard]] virtual std::shared_ptr<IStandaloneTable> StandaloneTable(std::int32_t index) const = 0;
};

class IDisplay : public virtual Object {};

/// A graphic element of a view.
class IElement : public virtual Object {
 public:
  /// Its shape, shared; null for elements without one.
  [[nodiscard]] virtual GeometryRef Geometry() const = 0;
  /// Writes the rectangle that the element covers on the display.
  virtual void QueryBounds(IDisplay& display, Envelope& bounds) const = 0;
};

class IElementProperties : public virtual Object {
 public:
  /// Empty by default.
  [[nodiscard]] virtual std::string Name() const = 0;
  virtual void SetName(const std::string& name) = 0;
};

// The element kinds, told apart by a type test. Marker, line and fill elements carry their symbol.
class IMarkerElement : public virtual IElement {
 public:
  [[nodiscard]] virtual std::shared_ptr<ISymbol> Symbol() const = 0;
};
class ILineElement : public virtual IElement {
 public:
  [[nodiscard]] virtual std::shared_ptr<ISymbol> Symbol() const = 0;
};
class IFillShapeElement : public virtual IElement {
 public:
  [[nodiscard]] virtual std::shared_ptr<ISymbol> Symbol() const = 0;
};
class IPolygonElement : public virtual IElement {};
class IRectangleElement : public virtual IElement {};
class IEllipseElement : public virtual IElement {};
class ICircleElement : public virtual IElement {};
class ITextElement : public virtual IElement {};
class IPictureElement : public virtual IElement {};
class IDataGraphElement : public virtual IElement {};
class IFrameElement : public virtual IElement {};
class IGroupElement : public virtual IElement {
 public:
  [[nodiscard]] virtual std::int32_t ElementCount() const = 0;
  [[nodiscard]] virtual std::shared_ptr<IElement> Element(std::int32_t index) const = 0;
};

class IEnumElement : public virtual Object {
 public:
  virtual void Reset() = 0;
  [[nodiscard]] virtual std::shared_ptr<IElement> Next() = 0;
};

/// Walks the graphic elements of a view, in drawing order.
class IGraphicsContainer : public virtual Object {
 public:
  virtual void Reset() = 0;
  [[nodiscard]] virtual std::shared_ptr<IElement> Next() = 0;
};

class IGraphicsContainerSelect : public virtual Object {
 public:
  [[nodiscard]] virtual std::int32_t ElementSelectionCount() const = 0;
  [[nodiscard]] virtual bool ElementSelected(const std::shared_ptr<IElement>& element) const = 0;
  /// The selected elements in drawing order, as they are at the call.
  [[nodiscard]] virtual std::shared_ptr<IEnumElement> SelectedElements() const = 0;
  virtual void SelectElement(const std::shared_ptr<IElement>& element) = 0;
  virtual void UnselectElement(const std::shared_ptr<IElement>& element) = 0;
  virtual void SelectAllElements() = 0;
  virtual void UnselectAllElements() = 0;
};

/// A drawn view: the map or the layout.
class IActiveView : public virtual Object {
 public:
  [[nodiscard]] virtual std::shared_ptr<IGraphicsContainer> GraphicsContainer() const = 0;
  [[nodiscard]] virtual Envelope Extent() const = 0;
  virtual void SetExtent(const Envelope& extent) = 0;
  [[nodiscard]] virtual std::shared_ptr<IDisplay> ScreenDisplay() const = 0;
  virtual void Refresh() = 0;
  /// Redraws the phases, a sum of `esriViewDrawPhase`; null for data or envelope means all of it.
  virtual void PartialRefresh(std::int32_t phase, const ObjectRef& data, const Envelope* envelope) = 0;
};

/// The focus map; also an `IActiveView` and an `IGraphicsContainer` with its selection.
class IMap : public virtual Object {
 public:
  [[nodiscard]] virtual std::string Name() const = 0;
  [[nodiscard]] virtual std::int32_t LayerCount() const = 0;
  [[nodiscard]] virtual std::shared_ptr<ILayer> Layer(std::int32_t index) const = 0;
  /// All layers in map order, those inside group layers too when `recursive`; no identifier means every kind.
  [[nodiscard]] virtual std::shared_ptr<IEnumLayer> Layers(const std::shared_ptr<UID>& uid, bool recursive) const = 0;
  /// Adds above all others.
  virtual void AddLayer(const std::shared_ptr<ILayer>& layer) = 0;
  [[nodiscard]] virtual std::int32_t SelectionCount() const = 0;
  [[nodiscard]] virtual SpatialReferenceRef SpatialReference() const = 0;
};

/// The page layout; a view with a graphics container of its own.
class IPageLayout : public virtual Object {};

}  // namespace tessarine
