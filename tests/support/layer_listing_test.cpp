// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/layer_listing.h"

#include <gtest/gtest.h>

#include "helpers/memory_class.h"
#include "helpers/test_host.h"

namespace tessarine::MyGeneralOperations {
namespace {

using testing::MemoryClass;
using testing::TestFeatureLayer;

template <class Kind>
class NamedLayer final : public Kind {
 public:
  explicit NamedLayer(std::string name, bool valid = true) : name_(std::move(name)), valid_(valid) {}
  [[nodiscard]] std::string Name() const override { return name_; }
  void SetName(const std::string& name) override { name_ = name; }
  [[nodiscard]] bool Valid() const override { return valid_; }
  void SetVisible(bool) override {}

 private:
  std::string name_;
  bool valid_;
};

class LayerWalk final : public IEnumLayer {
 public:
  explicit LayerWalk(std::vector<std::shared_ptr<ILayer>> layers) : layers_(std::move(layers)) {}
  void Reset() override { next_ = 0; }
  [[nodiscard]] std::shared_ptr<ILayer> Next() override { return next_ < layers_.size() ? layers_[next_++] : nullptr; }

 private:
  std::vector<std::shared_ptr<ILayer>> layers_;
  std::size_t next_ = 99;
};

class NamedTable final : public IStandaloneTable {
 public:
  [[nodiscard]] std::string Name() const override { return "table"; }
  [[nodiscard]] std::shared_ptr<ITable> Table() const override { return nullptr; }
};

class LayerMap final : public IMap, public IStandaloneTableCollection {
 public:
  std::vector<std::shared_ptr<ILayer>> top, inside_groups;

  [[nodiscard]] std::string Name() const override { return "map"; }
  [[nodiscard]] std::int32_t LayerCount() const override { return static_cast<std::int32_t>(top.size()); }
  [[nodiscard]] std::shared_ptr<ILayer> Layer(std::int32_t index) const override {
    return top.at(static_cast<std::size_t>(index));
  }
  [[nodiscard]] std::shared_ptr<IEnumLayer> Layers(const std::shared_ptr<UID>&, bool recursive) const override {
    auto all = top;
    if (recursive) all.insert(all.end(), inside_groups.begin(), inside_groups.end());
    return std::make_shared<LayerWalk>(all);
  }
  void AddLayer(const std::shared_ptr<ILayer>&) override {}
  [[nodiscard]] std::int32_t SelectionCount() const override { return 0; }
  [[nodiscard]] SpatialReferenceRef SpatialReference() const override { return nullptr; }
  [[nodiscard]] std::int32_t StandaloneTableCount() const override { return 1; }
  [[nodiscard]] std::shared_ptr<IStandaloneTable> StandaloneTable(std::int32_t) const override {
    return std::make_shared<NamedTable>();
  }
};

std::shared_ptr<ILayer> FeatureLayer(const char* name, esriGeometryType type) {
  auto layer = std::make_shared<TestFeatureLayer>();
  layer->SetName(name);
  if (type != esriGeometryNull) layer->SetFeatureClass(std::make_shared<MemoryClass>(type));
  return layer;
}

TEST(LayerListingTest, EachFlagSelectsItsLayersInMapOrder) {
  const auto map = std::make_shared<LayerMap>();
  map->top = {FeatureLayer("areas", esriGeometryPolygon),
              std::make_shared<NamedLayer<IRasterLayer>>("raster"),
              FeatureLayer("broken", esriGeometryNull),
              FeatureLayer("points", esriGeometryPoint),
              std::make_shared<NamedLayer<IRasterLayer>>("broken raster", false),
              std::make_shared<NamedLayer<ITinLayer>>("tin"),
              std::make_shared<NamedLayer<IGroupLayer>>("group")};
  map->inside_groups = {FeatureLayer("lines", esriGeometryPolyline), FeatureLayer("clusters", esriGeometryMultipoint)};
  struct Row {
    std::int32_t flags;
    const char* names;
  };
  const Row rows[] = {
      {1, "areas points lines clusters "},
      {2, "raster "},
      {4, "table "},
      {8, "points "},
      {16, "lines "},
      {32, "areas "},
      {64, "clusters "},
      {128, "tin "},
      {256, ""},
      {112, "areas lines clusters "},
      {2 + 4 + 8, "raster points table "},
      {511, "areas raster points tin lines clusters table "},
  };
  for (const Row& row : rows) {
    std::string names;
    const auto chosen = ReturnLayersByType(map, row.flags);
    ASSERT_NE(chosen, nullptr);
    for (const Variant& item : *chosen) {
      const auto layer = item.AsObject<ILayer>();
      names += (layer ? layer->Name() : item.AsObject<IStandaloneTable>()->Name()) + " ";
    }
    EXPECT_EQ(names, row.names) << row.flags;
  }
}

}  // namespace
}  // namespace tessarine::MyGeneralOperations
