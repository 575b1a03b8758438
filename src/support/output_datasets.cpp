#include "support/output_datasets.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "platform/host.h"
#include "platform/paths.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/aml_func_mod.h"
#include "support/dataset_names.h"
#include "support/output_kinds.h"

namespace tessarine::MyGeneralOperations {
namespace {

using namespace aml_func_mod;

constexpr double kDefaultGridSize = 100.0;
constexpr double kDatasetGridSize = 10.0;
constexpr double kFeaturesPerTile = 200.0;
constexpr std::size_t kUniqueIdLimit = 10;
constexpr std::size_t kObjectIdLimit = 11;

struct FeatureTypeRow {
  esriFeatureType type;
  const char* class_id;  // nothing: no such class can be made
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
             return field && field->Name == name;
           });
  };
  std::string name = base;
  for (int counter = 2; taken(name); ++counter) {
    const std::string digits = std::to_string(counter);
    name = base.substr(0, limit - digits.size()) + digits;
  }
  return name;
}

FieldRef NewField(const std::string& name, const std::string& alias, esriFieldType type) {
  auto field = std::make_shared<Field>();
  field->Name = name;
  field->AliasName = alias;
  field->Type = type;
  return field;
}

FieldRef NewShapeField(const std::string& alias, std::shared_ptr<GeometryDef> definition) {
  FieldRef field = NewField("Shape", alias, esriFieldTypeGeometry);
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

// Where an output goes, as `CreateGeneralFeatureClass` learns it.
struct Place {
  std::string category;
  bool is_shapefile = false;
};

bool AskForPlace(const std::string& title, std::string& directory, std::string& name, bool& is_feature_dataset,
                 std::string& feature_dataset_name, Place& place) {
  const std::shared_ptr<IGxDialog> dialog = Host().CreateGxDialog();
  dialog->AddFilter(GxFilter::FeatureClasses, true);
  dialog->SetTitle(title);
  dialog->SetAllowMultiSelect(false);
  dialog->SetButtonCaption("Enter");
  if (!dialog->DoModalSave(0)) return false;
  const auto location = Require(dialog->FinalLocation(), "FinalLocation");
  directory = location->FullName();
  name = dialog->Name();
  if (const auto item = Cast<IGxDataset>(location)) {
    const std::shared_ptr<IDataset> dataset = item->Dataset();
    directory = dataset->Workspace()->PathName();
    // Any dataset behind the place but a class of its own is a feature dataset.
    if (Is<IFeatureDataset>(dataset) || EndsWithIgnoringCase(location->Category(), "Feature Dataset")) {
      is_feature_dataset = true;
      feature_dataset_name = dataset->Name();
    }
  }
  place.category = location->Category();
  return true;
}

bool TakeKind(std::int32_t output_kind, std::string& directory, std::string& name, Place& place) {
  place.category = CategoryOfKind(output_kind);
  if (place.category.empty()) {
    Host().MessageBox().Show(
        "PROBLEM:  This function can only create shapefiles, file geodatabase feature classes, or "
        "\r\npersonal geodatabase feature classes.  Bailing out...",
        "Invalid Output Type:");
    return false;
  }
  if (output_kind == kShapefile) {
    name = SetExtension(name, "shp");
    if (!directory.ends_with('\\')) directory += '\\';
  }
  return true;
}

// The classes of a dataset share its reference; shapes of another would lie elsewhere.
void RefuseOtherReference(const IFeatureDataset& dataset, const SpatialReferenceRef& reference) {
  const SpatialReferenceRef own = dataset.SpatialReference();
  if (!own || !reference || own->IsEqual(*reference)) return;
  Raise(kInvalidCall, "The feature dataset '" + dataset.Name() + "' is in '" + own->Name() + "', but the output in '" +
                          reference->Name() + "': name another dataset, or none.");
}

// True when the name is free, or was made free with the user's consent.
bool MakeNameFree(const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name,
                  const std::string& shown_name) {
  while (CheckIfFeatureClassExists(workspace, name)) {
    const MessageAnswer answer =
        Host().MessageBox().Show("The Feature Class '" + shown_name + "' already exists!  Do you wish to overwrite it?",
                                 "Feature Class Already Exists:", MessageButtons::YesNo);
    if (answer != MessageAnswer::Yes) return false;
    workspace->OpenFeatureClass(name)->Delete();
  }
  return true;
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

std::shared_ptr<IFeatureClass> CreateGeneralFeatureClass(
    esriGeometryType& geometry_type, const SpatialReferenceRef& spatial_reference, std::string& directory,
    std::string& name, std::int32_t output_kind, const std::shared_ptr<VarArray>& fields,
    const std::string& dialog_title, bool& is_feature_dataset, std::string& feature_dataset_name, bool reserved,
    bool add_unique_id, const Envelope* envelope, std::int32_t feature_count) {
  return Trap("CreateGeneralFeatureClass", [&]() -> std::shared_ptr<IFeatureClass> {
    for (;;) {
      Place place;
      if (directory.empty() || name.empty()) {
        if (!AskForPlace(dialog_title, directory, name, is_feature_dataset, feature_dataset_name, place))
          return nullptr;
      } else if (!TakeKind(output_kind, directory, name, place)) {
        return nullptr;
      }
      const std::shared_ptr<IWorkspaceFactory> factory = FactoryOfCategory(place.category);
      if (!factory) {
        Host().MessageBox().Show(
            "Unexpected Feature Class Type (" + place.category + ")!  Need to write new code for this...", "");
        return nullptr;
      }
      const bool is_shapefile = place.category == "Shapefile" || place.category == "Folder";
      const bool in_dataset = is_feature_dataset && !is_shapefile;
      const std::string shown_name = in_dataset ? feature_dataset_name + ":" + name : name;
      if (directory.ends_with('\\') || directory.ends_with('/')) directory.pop_back();
      const std::shared_ptr<IFeatureWorkspace> workspace = factory->OpenFromFile(directory, 0);
      std::shared_ptr<IFeatureDataset> dataset;
      if (in_dataset) {
        dataset = workspace->OpenFeatureDataset(feature_dataset_name);
        RefuseOtherReference(*dataset, spatial_reference);
      }

      if (!MakeNameFree(workspace, name, shown_name)) {
        name.clear();
        continue;
      }
      if (in_dataset) {
        return CreateDatasetFeatureClass(dataset, name, esriFTSimple, geometry_type, fields, nullptr, nullptr, "",
                                         envelope);
      }
      if (is_shapefile) {
        return CreateShapefileFeatureClass(directory, name, spatial_reference, geometry_type, fields, add_unique_id);
      }
      return CreateGDBFeatureClass(workspace, name, esriFTSimple, spatial_reference, geometry_type, fields, nullptr,
                                   nullptr, "", reserved, output_kind, envelope, feature_count);
    }
  });
}

std::shared_ptr<IFeatureClass> CreateShapefileFeatureClass(std::string& directory, std::string& name,
                                                           const SpatialReferenceRef& spatial_reference,
                                                           esriGeometryType& geometry_type,
                                                           const std::shared_ptr<VarArray>& fields,
                                                           bool add_unique_id) {
  return Trap("CreateShapefileFeatureClass", [&]() -> std::shared_ptr<IFeatureClass> {
    if (EndsWithIgnoringCase(directory, ".shp")) directory = ReturnDir(directory);
    if (EndsWithIgnoringCase(name, ".shp")) name.resize(name.size() - 4);
    if (!ExistFileDir(directory)) {
      Host().MessageBox().Show(
          "Unable to create Feature Class:\r\n" + ToNativePath(directory) + " is not a valid workspace...",
          "Failed to Create Feature Class:");
      return nullptr;
    }
    const std::shared_ptr<IFeatureWorkspace> workspace = CreateShapefileWorkspaceFactory()->OpenFromFile(directory, 0);
    auto definition = std::make_shared<GeometryDef>();
    definition->GeometryType = geometry_type;
    definition->SpatialReference = spatial_reference;
    std::vector<FieldRef> own{NewShapeField("", definition)};
    if (add_unique_id) {
      own.push_back(NewField(UniqueFieldName("Unique_ID", kUniqueIdLimit, fields), "", esriFieldTypeInteger));
    }
    return workspace->CreateFeatureClass(name, FieldList(own, fields), nullptr, nullptr, esriFTSimple, "Shape", "");
  });
}

std::shared_ptr<IFeatureClass> CreateGDBFeatureClass(
    const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name, esriFeatureType feature_type,
    const SpatialReferenceRef& spatial_reference, esriGeometryType& geometry_type,
    const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid, const std::shared_ptr<UID>& extclsid,
    const std::string& config_keyword, bool, std::int32_t, const Envelope* envelope, std::int32_t feature_count) {
  return Trap("CreateGDBFeatureClass", [&]() -> std::shared_ptr<IFeatureClass> {
    if (!workspace || name.empty()) return nullptr;
    if (!clsid) {
      const FeatureTypeRow* row = FindFeatureType(feature_type);
      if (row == nullptr || row->class_id == nullptr) return nullptr;
      clsid = std::make_shared<UID>(row->class_id);
      if (row->forced) geometry_type = *row->forced;
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
    const auto list = FieldList(
        {NewShapeField("geometry", definition),
         NewField(UniqueFieldName("Object_ID", kObjectIdLimit, fields), "object identifier", esriFieldTypeOID)},
        fields);
    return workspace->CreateFeatureClass(name, list, clsid, extclsid, feature_type, GeometryFieldName(*list),
                                         config_keyword);
  });
}

std::shared_ptr<IFeatureClass> CreateDatasetFeatureClass(
    const std::shared_ptr<IFeatureDataset>& dataset, const std::string& name, esriFeatureType feature_type,
    esriGeometryType& geometry_type, const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid,
    const std::shared_ptr<UID>& extclsid, const std::string& config_keyword, const Envelope* envelope) {
  return Trap("CreateDatasetFeatureClass", [&]() -> std::shared_ptr<IFeatureClass> {
    if (!dataset || name.empty()) return nullptr;
    if (!clsid) {
      const FeatureTypeRow* row = FindFeatureType(feature_type);
      if (row == nullptr || row->class_id == nullptr) return nullptr;
      clsid = std::make_shared<UID>(row->class_id);
      if (row->forced) geometry_type = *row->forced;
    }
    auto definition = std::make_shared<GeometryDef>();
    definition->GeometryType = geometry_type;
    definition->GridCount = 1;
    definition->SetGridSize(0, kDatasetGridSize);
    definition->AvgNumPoints = 2;
    definition->HasM = false;
    definition->HasZ = false;
    definition->SpatialReference = dataset->SpatialReference();
    if (envelope != nullptr) definition->Extent = *envelope;
    const auto list = FieldList(
        {NewShapeField("geometry", definition),
         NewField(UniqueFieldName("Object_ID", kObjectIdLimit, fields), "object identifier", esriFieldTypeOID)},
        fields);
    return dataset->CreateFeatureClass(name, list, clsid, extclsid, feature_type, GeometryFieldName(*list),
                                       config_keyword);
  });
}

}  // namespace tessarine::MyGeneralOperations
