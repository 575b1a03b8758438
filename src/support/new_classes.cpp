// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/new_classes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "platform/free_name.h"
#include "platform/text_formats.h"
#include "support/output_datasets.h"

namespace tessarine::MyGeneralOperations {
namespace {

constexpr double kDefaultGridSize = 100.0;
constexpr double kDatasetGridSize = 10.0;
constexpr double kFeaturesPerTile = 200.0;
constexpr std::size_t kUniqueIdLimit = kDbaseNameLength;
constexpr std::size_t kObjectIdLimit = 11;
constexpr std::size_t kShapeLimit = kDbaseNameLength;

struct FeatureTypeRow {
  esriFeatureType type;
  const char* class_id;  // null: no such class can be made
  std::optional<esriGeometryType> forced;
};

constexpr std::array kFeatureTypes = {
    FeatureTypeRow{esriFTSimple, "esriGeoDatabase.Feature", std::nullopt},
    FeatureTypeRow{esriFTSimpleJunction, "esriGeoDatabase.SimpleJunctionFeature", esriGeometryPoint},
    FeatureTypeRow{esriFTSimpleEdge, "esriGeoDatabase.SimpleEdgeFeature", esriGeometryPolyline},
    FeatureTypeRow{esriFTComplexJunction, "esriGeoDatabase.ComplexJunctionFeature", std::nullopt},
    FeatureTypeRow{esriFTComplexEdge, "esriGeoDatabase.ComplexEdgeFeature", esriGeometryPolyline},
    FeatureTypeRow{esriFTAnnotation, nullptr, std::nullopt},
};

const FeatureTypeRow* FindFeatureType(esriFeatureType type) {
  const auto found = std::ranges::find(kFeatureTypes, type, &FeatureTypeRow::type);
  return found == kFeatureTypes.end() ? nullptr : &*found;
}

// A field name that none of the caller's fields bears.
std::string UniqueFieldName(const std::string& base, std::size_t limit, const std::shared_ptr<VarArray>& fields) {
  const auto taken = [&](const std::string& name) {
    return fields && std::any_of(fields->begin(), fields->end(), [&](const Variant& element) {
             const auto field = element.AsObject<Field>();
             return field && EqualsIgnoringCase(field->Name, name);
           });
  };
  return FirstFreeWithin(limit, base, taken);
}

FieldRef NewField(const std::string& name, const std::string& alias, esriFieldType type) {
  auto field = std::make_shared<Field>();
  field->Name = name;
  field->AliasName = alias;
  field->Type = type;
  return field;
}

FieldRef NewShapeField(const std::string& name, const std::string& alias, std::shared_ptr<GeometryDef> definition) {
  FieldRef field = NewField(name, alias, esriFieldTypeGeometry);
  field->GeometryDef = std::move(definition);
  return field;
}

std::shared_ptr<Fields> FieldList(const std::vector<FieldRef>& own, const std::shared_ptr<VarArray>& callers) {
  auto list = std::make_shared<Fields>();
  for (const FieldRef& field : own) list->AddField(field);
  if (callers) {
    for (const Variant& element : *callers) {
      const auto field = element.AsObject<Field>();
      list->AddField(Require(field, "IField"));
    }
  }
  return list;
}

std::string GeometryFieldName(const Fields& fields) {
  std::string name;
  for (const FieldRef& field : fields) {
    if (field->Type == esriFieldTypeGeometry) name = field->Name;
  }
  return name;
}

// The class identifier that follows from the feature type, which may force the geometry type; null where no such
// class can be made.
std::shared_ptr<UID> ClassIdOf(esriFeatureType feature_type, esriGeometryType& geometry_type) {
  const FeatureTypeRow* row = FindFeatureType(feature_type);
  if (row == nullptr || row->class_id == nullptr) return nullptr;
  if (row->forced) geometry_type = *row->forced;
  return std::make_shared<UID>(row->class_id);
}

std::shared_ptr<Fields> GeodatabaseFields(std::shared_ptr<GeometryDef> definition,
                                          const std::shared_ptr<VarArray>& fields) {
  return FieldList(
      {NewShapeField(UniqueFieldName("Shape", kShapeLimit, fields), "geometry", std::move(definition)),
       NewField(UniqueFieldName("Object_ID", kObjectIdLimit, fields), "object identifier", esriFieldTypeOID)},
      fields);
}

}  // namespace

double GridSizeFor(const Envelope* envelope, std::int32_t feature_count) {
  if (envelope == nullptr || envelope->IsEmpty() || feature_count <= 0) return kDefaultGridSize;
  const double tiles = feature_count / kFeaturesPerTile;
  double grid = std::sqrt(envelope->Height() * envelope->Width() / tiles);
  if (grid > envelope->Width()) grid = envelope->Width();
  if (grid > envelope->Height()) grid = envelope->Height();
  return grid;
}

FieldsRef PlainFields(const SpatialReferenceRef& reference, esriGeometryType geometry_type,
                      const std::shared_ptr<VarArray>& fields, bool add_unique_id, const Envelope& extent) {
  auto definition = std::make_shared<GeometryDef>();
  definition->GeometryType = geometry_type;
  definition->SpatialReference = reference;
  definition->Extent = extent;
  std::vector<FieldRef> own{NewShapeField("Shape", "", definition)};
  if (add_unique_id) {
    own.push_back(NewField(UniqueFieldName("Unique_ID", kUniqueIdLimit, fields), "", esriFieldTypeInteger));
  }
  return FieldList(own, fields);
}

std::shared_ptr<IFeatureClass> NewPlainClass(IFeatureWorkspace& workspace, const std::string& name,
                                             const SpatialReferenceRef& reference, esriGeometryType geometry_type,
                                             const std::shared_ptr<VarArray>& fields, bool add_unique_id,
                                             const Envelope& extent) {
  return workspace.CreateFeatureClass(name, PlainFields(reference, geometry_type, fields, add_unique_id, extent),
                                      nullptr, nullptr, esriFTSimple, "Shape", "");
}

std::shared_ptr<IFeatureClass> NewGeodatabaseClass(
    const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name, esriFeatureType feature_type,
    const SpatialReferenceRef& spatial_reference, esriGeometryType& geometry_type,
    const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid, const std::shared_ptr<UID>& extclsid,
    const std::string& config_keyword, const Envelope* envelope, std::int32_t feature_count) {
  if (!workspace || name.empty()) return nullptr;
  if (!clsid) {
    clsid = ClassIdOf(feature_type, geometry_type);
    if (!clsid) return nullptr;
    if (feature_type == esriFTSimple && geometry_type == esriGeometryLine) geometry_type = esriGeometryPolyline;
  }
  auto definition = std::make_shared<GeometryDef>();
  definition->GeometryType = geometry_type;
  definition->GridCount = 1;
  definition->SetGridSize(0, GridSizeFor(envelope, feature_count));
  definition->HasM = false;
  definition->HasZ = false;
  definition->SpatialReference = spatial_reference;
  if (envelope != nullptr) definition->Extent = *envelope;
  const auto list = GeodatabaseFields(definition, fields);
  return workspace->CreateFeatureClass(name, list, clsid, extclsid, feature_type, GeometryFieldName(*list),
                                       config_keyword);
}

std::shared_ptr<IFeatureClass> NewDatasetClass(const std::shared_ptr<IFeatureDataset>& dataset, const std::string& name,
                                               esriFeatureType feature_type, esriGeometryType& geometry_type,
                                               const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid,
                                               const std::shared_ptr<UID>& extclsid, const std::string& config_keyword,
                                               const Envelope* envelope) {
  if (!dataset || name.empty()) return nullptr;
  if (!clsid) clsid = ClassIdOf(feature_type, geometry_type);
  if (!clsid) return nullptr;
  auto definition = std::make_shared<GeometryDef>();
  definition->GeometryType = geometry_type;
  definition->GridCount = 1;
  definition->SetGridSize(0, kDatasetGridSize);
  definition->AvgNumPoints = 2;
  definition->HasM = false;
  definition->HasZ = false;
  definition->SpatialReference = dataset->SpatialReference();
  if (envelope != nullptr) definition->Extent = *envelope;
  const auto list = GeodatabaseFields(definition, fields);
  return dataset->CreateFeatureClass(name, list, clsid, extclsid, feature_type, GeometryFieldName(*list),
                                     config_keyword);
}

}  // namespace tessarine::MyGeneralOperations
