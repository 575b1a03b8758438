// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/document_layer.h"

#include "engine/data_source.h"
#include "platform/host.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
// A class's full name is its file, or its container with its name after.
LayerSource SourceOf(const IDataset& dataset) {
  const std::string full_name = dataset.FullName();
  const std::string behind = "\\" + dataset.Name();
  if (!EndsWithIgnoringCase(full_name, behind)) return {ToNativePath(full_name), ""};
  return {ToNativePath(full_name.substr(0, full_name.size() - behind.size())), dataset.Name()};
}

DocumentFeatureLayer::DocumentFeatureLayer(std::string name, LayerSource source)
    : name_(std::move(name)), source_(std::move(source)) {}

void DocumentFeatureLayer::OpenOnce() const {
  if (opened_) return;
  opened_ = true;
  if (source_.path.empty()) return;
  try {
    class_ = DataSource::Open(source_.path)->OpenFeatureClass(source_.layer);
  } catch (const Fault& fault) {
    problem_ = fault.Description();
    return;
  }
}

bool DocumentFeatureLayer::Valid() const {
  OpenOnce();
  return class_ != nullptr;
}

std::shared_ptr<IFeatureClass> DocumentFeatureLayer::FeatureClass() const {
  OpenOnce();
  return class_;
}

void DocumentFeatureLayer::SetFeatureClass(const std::shared_ptr<IFeatureClass>& feature_class) {
  class_ = feature_class;
  opened_ = true;
  selection_ = nullptr;
  if (const auto dataset = Cast<IDataset>(class_)) source_ = SourceOf(*dataset);
}

std::string DocumentFeatureLayer::DataSourceType() const {
  OpenOnce();
  return class_ ? class_->Category() : "";
}

void DocumentFeatureLayer::SetSelectedOids(std::vector<std::int64_t> oids) {
  selected_oids_ = std::move(oids);
  selection_ = nullptr;
}

std::vector<std::int64_t> DocumentFeatureLayer::SelectedOids() const {
  if (!selection_) return selected_oids_;
  std::vector<std::int64_t> oids;
  const auto cursor = selection_->Search(nullptr, Recycling::Yes);
  while (const auto row = cursor->NextRow()) oids.push_back(row->OID());
  return oids;
}

std::shared_ptr<ISelectionSet> DocumentFeatureLayer::SelectionSet() const {
  OpenOnce();
  if (selection_ || !class_) return selection_;
  // Records may have gone since the document was saved.
  std::vector<std::int64_t> there = OidsThatExist(*class_, selected_oids_);
  if (const std::size_t gone = selected_oids_.size() - there.size(); gone > 0) {
    Host().Announce("The document selects " + std::to_string(gone) + (gone == 1 ? " record" : " records") + " of '" +
                    name_ + "' that '" + source_.path + "' doesn't hold: " + (gone == 1 ? "it is" : "they are") +
                    " left out of the selection.");
  }
  selection_ = SelectByOids(class_, std::move(there));
  return selection_;
}

tessarine::FieldInfo DocumentFeatureLayer::FieldInfo(std::int32_t index) const {
  const FieldRef field = Require(FeatureClass(), "FeatureClass")->Fields()->Field(index);
  for (const auto& [name, info] : infos_) {
    if (EqualsIgnoringCase(name, field->Name)) return info;
  }
  return {field->AliasName.empty() ? field->Name : field->AliasName, true};
}

std::int32_t DocumentFeatureLayer::FindField(std::string_view name) const {
  OpenOnce();
  return class_ ? class_->FindField(name) : -1;
}

SpatialReferenceRef DocumentFeatureLayer::SpatialReference() const {
  OpenOnce();
  return class_ ? class_->SpatialReference() : std::make_shared<UnknownCoordinateSystem>();
}

Envelope DocumentFeatureLayer::Extent() const {
  OpenOnce();
  return class_ ? class_->Extent() : Envelope();
}

std::shared_ptr<ITable> DocumentTable::Table() const {
  if (!table_) table_ = DataSource::Open(source_.path)->OpenTable(source_.layer);
  return table_;
}

}  // namespace tessarine
