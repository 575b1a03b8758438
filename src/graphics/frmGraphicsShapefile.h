// SPDX-License-Identifier: GPL-2.0-or-later
// The dialog that makes a feature class: an empty one of a chosen geometry, or one of the graphic elements of the map.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "graphics/graphic_harvest.h"
#include "graphics/graphics_report.h"
#include "platform/application.h"
#include "platform/form.h"
#include "session/clsExtension.h"
#include "support/AnchorObjectList.h"
#include "support/output_chooser.h"
#include "support/output_datasets.h"

namespace tessarine {

/// Set up by `SetArcApplication`, then shown modally. The whole run happens behind OK: the class, the new layer and the
/// report.
class frmGraphicsShapefile final : public Form {
 public:
  frmGraphicsShapefile();

  OptionButton optNew{*this, "optNew"};
  Frame frmNew{*this, "frmNew"};
  OptionButton optPoint{*this, "optPoint"};
  OptionButton optPolyline{*this, "optPolyline"};
  OptionButton optPolygon{*this, "optPolygon"};
  OptionButton optConvert{*this, "optConvert"};
  ListBox lbxGraphics{*this, "lbxGraphics"};
  CheckBox chkSelected{*this, "chkSelected"};
  CommandButton cmdSpRef{*this, "cmdSpRef"};
  Label lblSpRef{*this, "lblSpRef"};
  Label lblOutputName{*this, "lblOutputName"};
  TextBox txtOutput{*this, "txtOutput"};
  CommandButton cmdGetWorkspace{*this, "cmdGetWorkspace"};
  CommandButton cmdHelp{*this, "cmdHelp"};
  CommandButton cmdOK{*this, "cmdOK"};
  CommandButton cmdCancel{*this, "cmdCancel"};

  void SetArcApplication(const std::shared_ptr<IApplication>& application);

 protected:
  void Form_Load() override;
  void Form_Resize() override;
  void Form_Unload() override;

 private:
  // How a press of OK went.
  enum class Outcome { Done, NothingMade, GoBack };
  struct Made {
    MyGeneralOperations::OutputRequest request;
    std::shared_ptr<IFeatureClass> feature_class;
    std::shared_ptr<ISymbol> symbol;
    GraphicsReport report;
  };

  void chkSelected_Click();
  void lbxGraphics_Click();
  void Mode_Click();
  void Shape_Click();
  void cmdSpRef_Click();
  void txtOutput_Change();
  void cmdGetWorkspace_Click();
  void cmdOK_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();

  void SetTexts();
  void SetEvents();
  void LayOut();
  void SetAnchors();
  void FillGraphicsArrays();
  void FillGraphicsListBox();
  void OfferConversions();
  void OfferNoConversion(const char* line);
  void ShowReference();
  void ShowOutput(const MyGeneralOperations::OutputChoice& choice);
  void CheckEnable();

  [[nodiscard]] esriGeometryType ChosenGeometry() const;
  [[nodiscard]] bool SelectedOnly() const { return chkSelected.Value() == CheckBox::kChecked; }
  [[nodiscard]] const GraphicSet& ChosenSet() const { return SelectedOnly() ? harvest_->selected : harvest_->all; }
  [[nodiscard]] MyGeneralOperations::OutputChoice TypedPlace() const;

  Outcome MakeOutput(RunContext& context, Made& made);
  Outcome MakeEmptyClass(RunContext& context, Made& made);
  Outcome ConvertGraphics(RunContext& context, Made& made);
  Outcome AskAboutMissing(const std::string& title, const std::string& text);
  /// Creates the class of the report, or in a plan only says where it would be.
  bool MakeClass(RunContext& context, esriGeometryType geometry_type, GraphicMeasure measure, bool names, Made& made);
  void Plan(RunContext& context, Made& made) const;
  void AddLayer(RunContext& context, const Made& made);

  std::shared_ptr<IApplication> application_;
  std::shared_ptr<IMxDocument> document_;
  std::shared_ptr<clsExtension> extension_;
  std::optional<GraphicHarvest> harvest_;
  SpatialReferenceRef reference_;         // of the output
  SpatialReferenceRef output_reference_;  // of the class that was made
  MyGeneralOperations::OutputChoice output_;
  AnchorObjectList anchors_;
};

}  // namespace tessarine
