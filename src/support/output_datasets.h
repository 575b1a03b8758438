// Creation of output feature classes, with the system's own rules for names, fields and grids.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/arrays.h"
#include "platform/data.h"

namespace tessarine::MyGeneralOperations {

/// Creates the empty feature class that a run writes to, or answers nothing when the user gave up or the request can't
/// be met. Without directory or name the user is asked; when the name is taken the user is asked whether to overwrite,
/// and after a No for another name. `directory` and `name` (and the two arguments of the dataset) end as what was
/// used. `fields` is a list of `Field` or nothing. `envelope` and `feature_count` describe the data to come and set
/// the grid of a geodatabase class.
[[nodiscard]] std::shared_ptr<IFeatureClass> CreateGeneralFeatureClass(
    esriGeometryType& geometry_type, const SpatialReferenceRef& spatial_reference, std::string& directory,
    std::string& name, std::int32_t output_kind, const std::shared_ptr<VarArray>& fields,
    const std::string& dialog_title, bool& is_feature_dataset, std::string& feature_dataset_name, bool reserved,
    bool add_unique_id, const Envelope* envelope, std::int32_t feature_count);

/// A shapefile in a folder. The folder may be given by the path of a shapefile in it.
[[nodiscard]] std::shared_ptr<IFeatureClass> CreateShapefileFeatureClass(std::string& directory, std::string& name,
                                                                         const SpatialReferenceRef& spatial_reference,
                                                                         esriGeometryType& geometry_type,
                                                                         const std::shared_ptr<VarArray>& fields,
                                                                         bool add_unique_id);

/// A stand-alone class of a geodatabase. A missing `clsid` follows from the feature type, which may force the
/// geometry type.
[[nodiscard]] std::shared_ptr<IFeatureClass> CreateGDBFeatureClass(
    const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name, esriFeatureType feature_type,
    const SpatialReferenceRef& spatial_reference, esriGeometryType& geometry_type,
    const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid, const std::shared_ptr<UID>& extclsid,
    const std::string& config_keyword, bool reserved, std::int32_t output_kind, const Envelope* envelope,
    std::int32_t feature_count);

/// A class in a feature dataset, in the dataset's own spatial reference.
[[nodiscard]] std::shared_ptr<IFeatureClass> CreateDatasetFeatureClass(
    const std::shared_ptr<IFeatureDataset>& dataset, const std::string& name, esriFeatureType feature_type,
    esriGeometryType& geometry_type, const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid,
    const std::shared_ptr<UID>& extclsid, const std::string& config_keyword, const Envelope* envelope = nullptr);

/// The size of the spatial grid for data of this extent: about 200 features to a tile, never larger than the extent;
/// 100 when nothing is known.
[[nodiscard]] double GridSizeFor(const Envelope* envelope, std::int32_t feature_count);

}  // namespace tessarine::MyGeneralOperations
