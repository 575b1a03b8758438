// SPDX-License-Identifier: GPL-2.0-or-later
// Creation of output feature classes: what their names, fields and grids are to be.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "outputs/format_workspace.h"
#include "outputs/output_place.h"
#include "platform/arrays.h"
#include "platform/data.h"
#include "platform/run_context.h"

namespace tessarine::MyGeneralOperations {

/// What a run asks for when it makes its output. The place ends as the one that was used.
struct OutputRequest {
  esriGeometryType geometry_type = esriGeometryNull;
  SpatialReferenceRef reference;
  OutputPlace place;                 ///< without a container or a name the user is asked for it
  std::shared_ptr<VarArray> fields;  ///< `Field`s, or null; each ends with the name that the format gave it
  std::string dialog_title;
  bool add_unique_id = false;
  bool projects = false;               ///< the run brings its shapes into the reference of a feature dataset
  const Envelope* envelope = nullptr;  ///< of the data to come, null where that isn't known
  std::int32_t feature_count = 0;
  std::vector<std::shared_ptr<IClass>> sources;  ///< what the run reads: no output may touch it
};

/// Creates the empty class that a run writes to. It stands beside its place until `PublishOutput`; an old one of its
/// name, which the user has agreed to replace, stands until then. Null when the user gave up, which the journal notes
/// as cancelled, and when the request can't be met, which the user was told. Names that the format doesn't take as they
/// are were made legal and told to the journal.
[[nodiscard]] std::shared_ptr<IFeatureClass> CreateOutput(RunContext& context, OutputRequest& request);

/// What `CreateOutput` would find, with nothing made or asked: names in the request end as they would be written. A
/// fault where the output would be refused.
struct OutputPlan {
  std::string path;                   ///< a backslash path
  bool exists = false;                ///< the run would ask whether to overwrite what is there
  std::vector<PlannedField> fields;   ///< with final names and types
  std::vector<std::string> foretold;  ///< what the format can't keep, beyond `ForetoldChanges`
};
[[nodiscard]] OutputPlan PlanOutput(RunContext& context, OutputRequest& request);

/// Notes in the journal what the run would write: path, fields and question. Returns the question, "None" for none.
std::string NotePlan(RunContext& context, const OutputPlan& plan);

/// Gives up the class of a run that failed, unless it was published; the journal tells the rows that are left.
void DiscardUnpublished(RunContext& context, const std::shared_ptr<IFeatureClass>& output);

/// Puts the new class in its place and tells the journal. All cursors on it must be closed. Of a run that was stopped,
/// as the journal has it, a file keeps what was written; a temporary layer raises a fault.
void PublishOutput(RunContext& context, IFeatureClass& output, const OutputRequest& request);

/// The backslash path of the class that was made: its dataset is a part of it.
[[nodiscard]] std::string OutputPath(const IFeatureClass& output, const OutputRequest& request);

/// The field names as an output of this kind will have them, made legal and free; a list of `Field`s that are changed.
void MakeFieldNamesLegal(RunContext& context, const std::shared_ptr<VarArray>& fields, std::int32_t kind);

/// The name of a carried field in an output of this kind: legal there, and none of the `Field`s in the list bears it.
/// Shapefiles and geodatabases alike get names as a dBASE table takes them; all others keep to their own rules.
[[nodiscard]] std::string FieldNameFor(std::int32_t kind, const std::string& name,
                                       const std::shared_ptr<VarArray>& taken);

/// Creates the empty feature class that a run writes to, or returns null when the user gave up or the request can't
/// be met. Without directory or name the user is asked; when the name is taken the user is asked whether to overwrite,
/// and after a No for another name. `directory` and `name` (and the two arguments of the dataset) end as what was
/// used. `fields` is a list of `Field` or null; the class is the same with any `reserved`. `envelope` and
/// `feature_count` describe the data to come and set the grid of a geodatabase class.
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
/// geometry type. The class is the same with any `reserved`.
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
