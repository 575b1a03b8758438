// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/map_document.h"

#include <algorithm>

#include "hosts/document/document_layer.h"
#include "hosts/document/layer_list.h"

namespace tessarine {
namespace {

class ElementList final : public IEnumElement {
 public:
  explicit ElementList(std::vector<std::shared_ptr<IElement>> elements) : elements_(std::move(elements)) {}
  void Reset() override { next_ = 0; }
  [[nodiscard]] std::shared_ptr<IElement> Next() override {
    return next_ < elements_.size() ? elements_[next_++] : nullptr;
  }

 private:
  std::vector<std::shared_ptr<IElement>> elements_;
  std::size_t next_ = 0;
};

/// A document without windows has no command items.
class NoCommandBars final : public ICommandBars {
 public:
  [[nodiscard]] std::shared_ptr<ICommandItem> Find(const UID&, bool, bool) override { return nullptr; }
};

void Flatten(const std::vector<std::shared_ptr<ILayer>>& from, bool recursive,
             std::vector<std::shared_ptr<ILayer>>& to) {
  for (const auto& layer : from) {
    to.push_back(layer);
    const auto group = Cast<DocumentGroupLayer>(layer);
    if (group && recursive) Flatten(group->members, recursive, to);
  }
}

std::size_t CheckedIndex(std::int32_t index, std::size_t count, const char* what) {
  if (index < 0 || static_cast<std::size_t>(index) >= count) {
    Raise(kInvalidCall, std::string("The map has no ") + what + " " + std::to_string(index) + ".");
  }
  return static_cast<std::size_t>(index);
}

}  // namespace

std::shared_ptr<IGraphicsContainer> DocumentView::GraphicsContainer() const { return self_.lock(); }

std::shared_ptr<IElement> DocumentView::Next() { return next_ < elements_.size() ? elements_[next_++] : nullptr; }

void DocumentView::AddElement(std::shared_ptr<GraphicElement> element) {
  element->place = self_;
  elements_.push_back(std::move(element));
}

std::int32_t DocumentView::ElementSelectionCount() const {
  return static_cast<std::int32_t>(
      std::ranges::count_if(elements_, [](const auto& element) { return element->selected; }));
}

bool DocumentView::ElementSelected(const std::shared_ptr<IElement>& element) const {
  const auto own = Cast<GraphicElement>(element);
  return own && own->selected;
}

std::shared_ptr<IEnumElement> DocumentView::SelectedElements() const {
  std::vector<std::shared_ptr<IElement>> selected;
  std::ranges::copy_if(elements_, std::back_inserter(selected), [](const auto& element) { return element->selected; });
  return std::make_shared<ElementList>(std::move(selected));
}

void DocumentView::SelectElement(const std::shared_ptr<IElement>& element) {
  Require(Cast<GraphicElement>(element), "element")->selected = true;
}

void DocumentView::UnselectElement(const std::shared_ptr<IElement>& element) {
  Require(Cast<GraphicElement>(element), "element")->selected = false;
}

void DocumentView::SelectAllElements() {
  for (const auto& element : elements_) element->selected = true;
}

void DocumentView::UnselectAllElements() {
  for (const auto& element : elements_) element->selected = false;
}

std::shared_ptr<ILayer> DocumentMap::Layer(std::int32_t index) const {
  return layers_[CheckedIndex(index, layers_.size(), "layer")];
}

std::shared_ptr<IEnumLayer> DocumentMap::Layers(const std::shared_ptr<UID>&, bool recursive) const {
  std::vector<std::shared_ptr<ILayer>> all;
  Flatten(layers_, recursive, all);
  return std::make_shared<LayerList>(std::move(all));
}

void DocumentMap::AddLayer(const std::shared_ptr<ILayer>& layer) { layers_.insert(layers_.begin(), layer); }

std::int32_t DocumentMap::SelectionCount() const {
  std::vector<std::shared_ptr<ILayer>> all;
  Flatten(layers_, true, all);
  std::int32_t count = 0;
  for (const auto& layer : all) {
    const auto selection = Cast<IFeatureSelection>(layer);
    if (selection && layer->Valid()) count += selection->SelectionSet()->Count();
  }
  return count;
}

SpatialReferenceRef DocumentMap::SpatialReference() const {
  if (reference_) return reference_;
  std::vector<std::shared_ptr<ILayer>> all;
  Flatten(layers_, true, all);
  for (const auto& layer : all) {
    const auto placed = Cast<IGeoDataset>(layer);
    if (!placed || !layer->Valid()) continue;
    SpatialReferenceRef reference = placed->SpatialReference();
    if (!Is<const UnknownCoordinateSystem>(reference)) return reference;
  }
  return std::make_shared<UnknownCoordinateSystem>();
}

SpatialReferenceRef DocumentMap::ElementReference() const {
  const SpatialReferenceRef reference = SpatialReference();
  return Is<const UnknownCoordinateSystem>(reference) ? nullptr : reference;
}

std::shared_ptr<IStandaloneTable> DocumentMap::StandaloneTable(std::int32_t index) const {
  return tables_[CheckedIndex(index, tables_.size(), "table")];
}

MapDocument::MapDocument() : map_(std::make_shared<DocumentMap>()), layout_(std::make_shared<DocumentLayout>()) {
  map_->SetOwner(map_);
  layout_->SetOwner(layout_);
}

std::shared_ptr<ICommandBars> MapDocument::CommandBars() const { return std::make_shared<NoCommandBars>(); }

std::shared_ptr<IActiveView> MapDocument::ActiveView() const {
  if (layout_active_) return layout_;
  return map_;
}

}  // namespace tessarine
