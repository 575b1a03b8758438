// SPDX-License-Identifier: GPL-2.0-or-later
// A map document without a window: the focus map with its layers, tables and graphic elements, the page layout, and
// what the suite remembers in it. A JSON file keeps it; see document_file.h.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/document/graphic_element.h"
#include "platform/application.h"

namespace tessarine {

class NullDisplay final : public IDisplay {};

/// What a map and a layout share: an extent, and graphic elements with a selection.
class DocumentView : public IActiveView,
                     public IGraphicsContainer,
                     public IGraphicsContainerSelect,
                     public IElementPlace {
 public:
  DocumentView() = default;
  DocumentView(const DocumentView&) = delete;
  DocumentView& operator=(const DocumentView&) = delete;

  [[nodiscard]] std::shared_ptr<IGraphicsContainer> GraphicsContainer() const override;
  [[nodiscard]] Envelope Extent() const override { return extent_; }
  void SetExtent(const Envelope& extent) override { extent_ = extent; }
  [[nodiscard]] std::shared_ptr<IDisplay> ScreenDisplay() const override { return display_; }
  void Refresh() override {}
  void PartialRefresh(std::int32_t, const ObjectRef&, const Envelope*) override {}

  void Reset() override { next_ = 0; }
  [[nodiscard]] std::shared_ptr<IElement> Next() override;

  [[nodiscard]] std::int32_t ElementSelectionCount() const override;
  [[nodiscard]] bool ElementSelected(const std::shared_ptr<IElement>& element) const override;
  [[nodiscard]] std::shared_ptr<IEnumElement> SelectedElements() const override;
  void SelectElement(const std::shared_ptr<IElement>& element) override;
  void UnselectElement(const std::shared_ptr<IElement>& element) override;
  void SelectAllElements() override;
  void UnselectAllElements() override;

  /// The elements in drawing order.
  [[nodiscard]] const std::vector<std::shared_ptr<GraphicElement>>& Elements() const { return elements_; }
  void AddElement(std::shared_ptr<GraphicElement> element);
  /// The page has none.
  [[nodiscard]] SpatialReferenceRef ElementReference() const override { return nullptr; }
  void SetOwner(std::weak_ptr<DocumentView> self) { self_ = std::move(self); }

  OtherMembers others;

 private:
  Envelope extent_;
  std::shared_ptr<IDisplay> display_ = std::make_shared<NullDisplay>();
  std::vector<std::shared_ptr<GraphicElement>> elements_;
  std::size_t next_ = 0;
  std::weak_ptr<DocumentView> self_;
};

class DocumentMap final : public DocumentView, public IMap, public IStandaloneTableCollection {
 public:
  [[nodiscard]] std::string Name() const override { return name_; }
  void SetName(std::string name) { name_ = std::move(name); }
  [[nodiscard]] std::int32_t LayerCount() const override { return static_cast<std::int32_t>(layers_.size()); }
  [[nodiscard]] std::shared_ptr<ILayer> Layer(std::int32_t index) const override;
  [[nodiscard]] std::shared_ptr<IEnumLayer> Layers(const std::shared_ptr<UID>& uid, bool recursive) const override;
  void AddLayer(const std::shared_ptr<ILayer>& layer) override;
  /// Takes a layer at the top level out of the map.
  void RemoveLayer(const ILayer& layer) {
    std::erase_if(layers_, [&](const std::shared_ptr<ILayer>& own) { return own.get() == &layer; });
  }
  [[nodiscard]] std::int32_t SelectionCount() const override;
  /// The map's, unless it is unknown.
  [[nodiscard]] SpatialReferenceRef ElementReference() const override;
  /// The map's own reference, or that of its first layer that has one.
  [[nodiscard]] SpatialReferenceRef SpatialReference() const override;
  /// `text` is what the document's file calls it, empty for its WKT.
  void SetSpatialReference(SpatialReferenceRef reference, std::string text = "") {
    reference_ = std::move(reference);
    reference_text_ = std::move(text);
  }
  /// How the document's file calls its own reference; empty where it has none.
  [[nodiscard]] std::string OwnReferenceText() const {
    return !reference_text_.empty() || !reference_ ? reference_text_ : reference_->Wkt();
  }
  [[nodiscard]] const SpatialReferenceRef& OwnReference() const { return reference_; }
  /// Adds below all others, for reading a document.
  void AppendLayer(std::shared_ptr<ILayer> layer) { layers_.push_back(std::move(layer)); }
  [[nodiscard]] const std::vector<std::shared_ptr<ILayer>>& AllLayers() const { return layers_; }

  [[nodiscard]] std::int32_t StandaloneTableCount() const override { return static_cast<std::int32_t>(tables_.size()); }
  [[nodiscard]] std::shared_ptr<IStandaloneTable> StandaloneTable(std::int32_t index) const override;
  void AddTable(std::shared_ptr<IStandaloneTable> table) { tables_.push_back(std::move(table)); }

 private:
  std::string name_ = "Layers";
  std::vector<std::shared_ptr<ILayer>> layers_;
  std::vector<std::shared_ptr<IStandaloneTable>> tables_;
  SpatialReferenceRef reference_;
  std::string reference_text_;
};

class DocumentLayout final : public DocumentView, public IPageLayout {};

class MapDocument final : public IMxDocument, public IDocumentDirty {
 public:
  MapDocument();

  [[nodiscard]] std::shared_ptr<ICommandBars> CommandBars() const override;
  [[nodiscard]] std::shared_ptr<IActiveView> ActiveView() const override;
  [[nodiscard]] std::shared_ptr<IMap> FocusMap() const override { return map_; }
  [[nodiscard]] std::shared_ptr<IPageLayout> PageLayout() const override { return layout_; }
  [[nodiscard]] std::shared_ptr<ILayer> SelectedLayer() const override { return selected_layer_; }
  void AddLayer(const std::shared_ptr<ILayer>& layer) override { map_->AddLayer(layer); }
  void UpdateContents() override {}
  void SetDirty() override { dirty_ = true; }

  [[nodiscard]] bool Dirty() const { return dirty_; }
  void ClearDirty() { dirty_ = false; }
  [[nodiscard]] DocumentMap& Map() const { return *map_; }
  [[nodiscard]] DocumentLayout& Layout() const { return *layout_; }
  [[nodiscard]] bool LayoutActive() const { return layout_active_; }
  void SetLayoutActive(bool active) { layout_active_ = active; }
  void SetSelectedLayer(std::shared_ptr<ILayer> layer) { selected_layer_ = std::move(layer); }

  /// The document's own file, a native path; empty before it was saved.
  std::string path;
  /// The version of the host that this document tells.
  std::string host_version = "9.3.1";
  /// The settings of the suite, as its extension wrote them.
  std::vector<Variant> settings;
  OtherMembers others;

 private:
  std::shared_ptr<DocumentMap> map_;
  std::shared_ptr<DocumentLayout> layout_;
  std::shared_ptr<ILayer> selected_layer_;
  bool layout_active_ = false;
  bool dirty_ = false;
};

}  // namespace tessarine
