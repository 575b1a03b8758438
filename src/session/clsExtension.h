// SPDX-License-Identifier: GPL-2.0-or-later
// The extension object: one for each application, and the one place where commands, dialogs and workers leave what
// they have to tell each other.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/application.h"
#include "platform/arrays.h"
#include "platform/form.h"

namespace tessarine {

/// Before the first `Load` every number is 0, every text empty, every flag False, every reference null. Nothing is
/// checked on the way in.
class clsExtension final : public IExtension, public IPersistVariant {
 public:
  // NOLINTBEGIN(readability-identifier-naming): other programs know these names
  std::shared_ptr<VarArray> frmLayerFieldsReturn;  ///< of other programs: nothing here reads it
  std::shared_ptr<VarArray> frmBoundaryWrapReturn;
  double CustomBoundaryWest = 0.0;
  double CustomBoundaryNorth = 0.0;
  double CustomBoundaryEast = 0.0;
  double CustomBoundarySouth = 0.0;
  double LongitudeShift = 0.0;
  std::int32_t LongitudeWrapOption = 0;
  std::string CurrentSpheroidName;
  double CurrentSpheroidMajorAxis = 0.0;
  double CurrentSpheroidMinorAxis = 0.0;
  bool CurrentSpheroidCanceled = false;
  bool CurrentSpheroidGeocentric = false;
  std::string FeatDatasetName;
  bool IsFeatureDataset = false;
  std::string DirectoryType;
  std::shared_ptr<VarArray> frmGeoCentricReturn;
  double BuildClusterTolerance = 0.0;
  bool BuildShouldTransferLabels = false;
  bool BuildUseAllLabelPoints = false;
  bool BuildUseFirstLabelPoint = false;
  [[nodiscard]] bool IsVersion92() const { return is_version_92_; }
  std::int32_t AnalysisRecordCount = 0;
  bool ProgressDialogAutoClose = false;
  bool ProgressDialogSetExpanded = false;
  std::shared_ptr<VarArray> GeometryOptions;
  std::string NewShapefileLocation;
  bool DoAllRecords = false;
  std::shared_ptr<VarArray> SelectedFields;
  std::shared_ptr<IFeatureClass> SelectedFeatureClass;
  std::string ReportOfAnalysis;  ///< of other programs: nothing here reads it
  std::shared_ptr<IFeatureLayer> SelectedPointLayer;
  std::shared_ptr<IFeatureLayer> SelectedLayer;
  std::string DirectoryPath;
  std::string FieldName;           ///< of other programs: nothing here reads it
  std::string AttributeFieldName;  ///< of other programs: nothing here reads it
  bool ShouldContinue = false;
  // NOLINTEND(readability-identifier-naming)
  std::weak_ptr<Form> progress_left_open;  ///< the status window that the last run left to the user

  [[nodiscard]] std::string Name() const override;
  void Startup(const Variant& initialization_data) override;
  void Shutdown() override;

  [[nodiscard]] std::shared_ptr<UID> ID() const override;
  /// Reads the twelve persisted values in the order in which `Save` writes them. A stream that ends early, or holds a
  /// value of the wrong kind, ends in the fault report; what was read until then stays.
  void Load(IVariantStream& stream) override;
  void Save(IVariantStream& stream) override;

 private:
  bool is_version_92_ = false;
  double stream_version_ = 0.0;
  ObjectRef other_extension_;
};

/// The extension of the application, null when it has none.
[[nodiscard]] std::shared_ptr<clsExtension> FindExtension(const std::shared_ptr<IApplication>& application);

/// The host's version text from the registry, as "9.3.1", or "Unable to determine ArcGIS Version!".
[[nodiscard]] std::string ReturnArcGISVersion();
/// "Software\", company, "\", product and, where a version is given, "\" and the version.
[[nodiscard]] std::string SubKey(const std::string& company, const std::string& product, const std::string& version);

}  // namespace tessarine
