// SPDX-License-Identifier: GPL-2.0-or-later
// New feature classes with their wishes as arguments.
#include "platform/host.h"
#include "platform/paths.h"
#include "platform/tell_user.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/aml_func_mod.h"
#include "support/new_classes.h"
#include "support/output_datasets.h"
#include "support/output_kinds.h"

namespace tessarine::MyGeneralOperations {

using namespace aml_func_mod;

std::shared_ptr<IFeatureClass> CreateGeneralFeatureClass(
    esriGeometryType& geometry_type, const SpatialReferenceRef& spatial_reference, std::string& directory,
    std::string& name, std::int32_t output_kind, const std::shared_ptr<VarArray>& fields,
    const std::string& dialog_title, bool& is_feature_dataset, std::string& feature_dataset_name, bool,
    bool add_unique_id, const Envelope* envelope, std::int32_t feature_count) {
  RunContext context = HostContext();
  OutputRequest request;
  request.geometry_type = geometry_type;
  request.reference = spatial_reference;
  request.place = PlaceIn(output_kind, directory, name, is_feature_dataset ? feature_dataset_name : "");
  request.fields = fields;
  request.dialog_title = dialog_title;
  request.add_unique_id = add_unique_id;
  request.envelope = envelope;
  request.feature_count = feature_count;
  std::shared_ptr<IFeatureClass> output =
      Trap("CreateGeneralFeatureClass", [&] { return CreateOutput(context, request); });
  geometry_type = request.geometry_type;
  directory = request.place.Directory();
  name = request.place.name;
  is_feature_dataset = !request.place.dataset.empty();
  if (is_feature_dataset) feature_dataset_name = request.place.dataset;
  return output;
}

std::shared_ptr<IFeatureClass> CreateShapefileFeatureClass(std::string& directory, std::string& name,
                                                           const SpatialReferenceRef& spatial_reference,
                                                           esriGeometryType& geometry_type,
                                                           const std::shared_ptr<VarArray>& fields,
                                                           bool add_unique_id) {
  return Trap("CreateShapefileFeatureClass", [&]() -> std::shared_ptr<IFeatureClass> {
    if (EndsWithIgnoringCase(directory, ".shp")) directory = ReturnDir(directory);
    name = WithoutShapefileEnding(std::move(name));
    if (!ExistFileDir(directory)) {
      TellUser("Unable to create Feature Class:\r\n" + ToNativePath(directory) + " is not a valid workspace...",
               "Failed to Create Feature Class:");
      return nullptr;
    }
    return NewPlainClass(*CreateShapefileWorkspaceFactory()->OpenFromFile(directory, 0), name, spatial_reference,
                         geometry_type, fields, add_unique_id, {});
  });
}

std::shared_ptr<IFeatureClass> CreateGDBFeatureClass(
    const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name, esriFeatureType feature_type,
    const SpatialReferenceRef& spatial_reference, esriGeometryType& geometry_type,
    const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid, const std::shared_ptr<UID>& extclsid,
    const std::string& config_keyword, bool, std::int32_t, const Envelope* envelope, std::int32_t feature_count) {
  return Trap("CreateGDBFeatureClass", [&] {
    return NewGeodatabaseClass(workspace, name, feature_type, spatial_reference, geometry_type, fields,
                               std::move(clsid), extclsid, config_keyword, envelope, feature_count);
  });
}

std::shared_ptr<IFeatureClass> CreateDatasetFeatureClass(
    const std::shared_ptr<IFeatureDataset>& dataset, const std::string& name, esriFeatureType feature_type,
    esriGeometryType& geometry_type, const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid,
    const std::shared_ptr<UID>& extclsid, const std::string& config_keyword, const Envelope* envelope) {
  return Trap("CreateDatasetFeatureClass", [&] {
    return NewDatasetClass(dataset, name, feature_type, geometry_type, fields, std::move(clsid), extclsid,
                           config_keyword, envelope);
  });
}

}  // namespace tessarine::MyGeneralOperations
