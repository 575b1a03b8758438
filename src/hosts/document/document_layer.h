// SPDX-License-Identifier: GPL-2.0-or-later
// The layers and tables of a map document.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "hosts/document/other_members.h"
#include "platform/map.h"

namespace tessarine {

/// A symbol as the document keeps it: a text that only drawing programs read.
class DocumentSymbol final : public ISymbol {
 public:
  explicit DocumentSymbol(std::string text) : definition(std::move(text)) {}
  std::string definition;
};

class DocumentRenderer final : public ISimpleRenderer {
 public:
  void SetSymbol(const std::shared_ptr<ISymbol>& symbol) override { symbol_ = symbol; }
  [[nodiscard]] const std::shared_ptr<ISymbol>& Symbol() const { return symbol_; }

 private:
  std::shared_ptr<ISymbol> symbol_;
};

/// Where a layer's data lies: a native path, and the layer in it.
struct LayerSource {
  std::string path;
  std::string layer;
  std::string written = {};  ///< the path as the document's file has it, seen from its folder; empty for new layers
};
/// Where a class says that its data lies.
[[nodiscard]] LayerSource SourceOf(const IDataset& dataset);

/// A feature layer. Its data is opened when it is first asked for; a layer whose data can't be opened is not valid and
/// tells why.
class DocumentFeatureLayer final : public IGeoFeatureLayer,
                                   public IFeatureSelection,
                                   public ILayerFields,
                                   public IGeoDataset {
 public:
  /// A layer over data that is opened from its source, for writing when it can be.
  DocumentFeatureLayer(std::string name, LayerSource source);
  DocumentFeatureLayer() = default;

  [[nodiscard]] std::string Name() const override { return name_; }
  void SetName(const std::string& name) override { name_ = name; }
  [[nodiscard]] bool Valid() const override;
  void SetVisible(bool visible) override { visible_ = visible; }
  [[nodiscard]] bool Visible() const { return visible_; }
  [[nodiscard]] std::shared_ptr<IFeatureClass> FeatureClass() const override;
  void SetFeatureClass(const std::shared_ptr<IFeatureClass>& feature_class) override;
  [[nodiscard]] std::string DataSourceType() const override;
  void SetRenderer(const std::shared_ptr<IFeatureRenderer>& renderer) override { renderer_ = renderer; }
  [[nodiscard]] const std::shared_ptr<IFeatureRenderer>& Renderer() const { return renderer_; }

  [[nodiscard]] std::shared_ptr<ISelectionSet> SelectionSet() const override;
  /// Replaces the selection; null selects no row.
  void SetSelection(std::shared_ptr<ISelectionSet> selection) { selection_ = std::move(selection); }
  /// Selects the rows with these identifiers, now or when the data is opened.
  void SetSelectedOids(std::vector<std::int64_t> oids);
  /// The identifiers of the selected rows, in order.
  [[nodiscard]] std::vector<std::int64_t> SelectedOids() const;

  [[nodiscard]] tessarine::FieldInfo FieldInfo(std::int32_t index) const override;
  [[nodiscard]] std::int32_t FindField(std::string_view name) const override;
  /// Shows a field under another alias, or hides it.
  void SetFieldInfo(const std::string& field, tessarine::FieldInfo info) { infos_[field] = std::move(info); }
  [[nodiscard]] const std::map<std::string, tessarine::FieldInfo>& FieldInfos() const { return infos_; }

  OtherMembers others;
  std::map<std::string, OtherMembers> field_others;  ///< by field name

  [[nodiscard]] SpatialReferenceRef SpatialReference() const override;
  [[nodiscard]] Envelope Extent() const override;

  [[nodiscard]] const LayerSource& Source() const { return source_; }
  /// Why the data could not be opened; empty while it could, or wasn't tried.
  [[nodiscard]] const std::string& Problem() const { return problem_; }

 private:
  void OpenOnce() const;

  std::string name_;
  LayerSource source_;
  bool visible_ = true;
  std::shared_ptr<IFeatureRenderer> renderer_;
  std::map<std::string, tessarine::FieldInfo> infos_;
  std::vector<std::int64_t> selected_oids_;
  mutable bool opened_ = false;
  mutable std::shared_ptr<IFeatureClass> class_;
  mutable std::shared_ptr<ISelectionSet> selection_;
  mutable std::string problem_;
};

class DocumentGroupLayer final : public IGroupLayer {
 public:
  explicit DocumentGroupLayer(std::string name) : name_(std::move(name)) {}
  [[nodiscard]] std::string Name() const override { return name_; }
  void SetName(const std::string& name) override { name_ = name; }
  [[nodiscard]] bool Valid() const override { return true; }
  void SetVisible(bool visible) override { visible_ = visible; }
  [[nodiscard]] bool Visible() const { return visible_; }

  std::vector<std::shared_ptr<ILayer>> members;
  OtherMembers others;

 private:
  std::string name_;
  bool visible_ = true;
};

class DocumentTable final : public IStandaloneTable {
 public:
  DocumentTable(std::string name, LayerSource source) : name_(std::move(name)), source_(std::move(source)) {}
  [[nodiscard]] std::string Name() const override { return name_; }
  [[nodiscard]] std::shared_ptr<ITable> Table() const override;
  [[nodiscard]] const LayerSource& Source() const { return source_; }

  OtherMembers others;

 private:
  std::string name_;
  LayerSource source_;
  mutable std::shared_ptr<ITable> table_;
};

}  // namespace tessarine
