// SPDX-License-Identifier: GPL-2.0-or-later
// New empty classes: their own fields in front of the caller's, and what the geodatabase wants to know of them.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/arrays.h"
#include "platform/data.h"

namespace tessarine::MyGeneralOperations {

/// The fields of a class with nothing of its own but the shape, "Shape"; `extent` is that of the shapes to come, empty
/// where it isn't known. With `add_unique_id` it gets a whole number
/// "Unique_ID", or one with a number after where a field of the caller's bears that name.
[[nodiscard]] FieldsRef PlainFields(const SpatialReferenceRef& reference, esriGeometryType geometry_type,
                                    const std::shared_ptr<VarArray>& fields, bool add_unique_id,
                                    const Envelope& extent);
/// A class with these fields. The name of a shapefile has no ending.
[[nodiscard]] std::shared_ptr<IFeatureClass> NewPlainClass(IFeatureWorkspace& workspace, const std::string& name,
                                                           const SpatialReferenceRef& reference,
                                                           esriGeometryType geometry_type,
                                                           const std::shared_ptr<VarArray>& fields, bool add_unique_id,
                                                           const Envelope& extent);

/// Null without a workspace or name, and for a feature type of which no class can be made. A missing `clsid` follows
/// from the feature type, which may force the geometry type.
[[nodiscard]] std::shared_ptr<IFeatureClass> NewGeodatabaseClass(
    const std::shared_ptr<IFeatureWorkspace>& workspace, const std::string& name, esriFeatureType feature_type,
    const SpatialReferenceRef& spatial_reference, esriGeometryType& geometry_type,
    const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid, const std::shared_ptr<UID>& extclsid,
    const std::string& config_keyword, const Envelope* envelope, std::int32_t feature_count);

/// The same in a feature dataset, in the dataset's own reference.
[[nodiscard]] std::shared_ptr<IFeatureClass> NewDatasetClass(
    const std::shared_ptr<IFeatureDataset>& dataset, const std::string& name, esriFeatureType feature_type,
    esriGeometryType& geometry_type, const std::shared_ptr<VarArray>& fields, std::shared_ptr<UID> clsid,
    const std::shared_ptr<UID>& extclsid, const std::string& config_keyword, const Envelope* envelope);

}  // namespace tessarine::MyGeneralOperations
