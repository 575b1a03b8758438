// SPDX-License-Identifier: GPL-2.0-or-later
// Calculations that leave their source as it is and work on a copy of it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "outputs/layer_copy.h"
#include "platform/map.h"
#include "platform/run_scope.h"
#include "platform/tool.h"

namespace tessarine {

/// The layer of a copy: it bears no more than a run needs of one.
class CopiedLayer final : public IFeatureLayer, public IFeatureSelection {
 public:
  CopiedLayer(std::string name, const LayerCopy& copy)
      : name_(std::move(name)), class_(copy.output), selection_(copy.selection) {}

  [[nodiscard]] std::string Name() const override { return name_; }
  void SetName(const std::string& name) override { name_ = name; }
  [[nodiscard]] bool Valid() const override { return true; }
  void SetVisible(bool) override {}
  [[nodiscard]] std::shared_ptr<IFeatureClass> FeatureClass() const override { return class_; }
  void SetFeatureClass(const std::shared_ptr<IFeatureClass>& feature_class) override { class_ = feature_class; }
  [[nodiscard]] std::string DataSourceType() const override { return class_->Category(); }
  /// Null where no record of the source was selected.
  [[nodiscard]] std::shared_ptr<ISelectionSet> SelectionSet() const override { return selection_; }

 private:
  std::string name_;
  std::shared_ptr<IFeatureClass> class_;
  std::shared_ptr<ISelectionSet> selection_;
};

/// What is to be copied, and for which measures.
struct CopyForMeasures {
  std::shared_ptr<IFeatureLayer> source;
  ToolOutput output;
  ToolRecords records = ToolRecords::SelectedIfAny;  ///< `Selected`: the copy holds the selected ones alone
  std::vector<ToolMeasure> measures;
  SpatialReferenceRef reference = nullptr;  ///< that the copy is brought to when it is whole; null for the source's
};

/// A layer to work on, and the measures with their fields as it calls them.
struct LayerForMeasures {
  std::shared_ptr<IFeatureLayer> layer;
  std::vector<ToolMeasure> measures;
};

/// Whether the user has selected records of the layer.
[[nodiscard]] bool AnySelected(const IFeatureLayer& layer);

/// The copy as it would be, for looking at: its columns are there, its rows aren't. Its layer is called like the
/// source, which a user knows. A fault where there can be no such copy. It costs no look at the rows.
[[nodiscard]] LayerForMeasures TryCopy(const CopyForMeasures& wish);
/// The same for a plan's report, with the question that the run would ask.
[[nodiscard]] LayerForMeasures PlanCopy(const CopyForMeasures& wish);

/// Asks about what stands in the place, makes the copy, tells what its format can't keep and returns its layer, which
/// is called like the copy. Null where the user gave up or the copy can't be made, which the journal tells; what is
/// left to be reported of that goes to `report`.
[[nodiscard]] std::optional<LayerForMeasures> MakeCopy(RunScope& scope, const CopyForMeasures& wish,
                                                       const std::optional<RunSpheroid>& spheroid, std::string& report);

}  // namespace tessarine
