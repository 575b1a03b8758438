// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/frmLayerFields.h"

#include <array>

#include "conversion/layer_choices.h"
#include "conversion/layer_fields_texts.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"
#include "support/manual.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

}  // namespace

frmLayerFields::frmLayerFields() : Form("frmLayerFields") {
  SetCaption(" Input Parameters:");
  lblLayer.SetCaption("Select &Layer to Convert:");
  lblFields.SetCaption("Select &Fields to Include:");
  cmdSelFields.SetCaption(SelectFieldsCaption(false));
  optAll.SetCaption("Convert All Records");
  optSel.SetCaption("Convert Selected Records");
  lblOutputName.SetCaption("Output Feature &Class:");
  cmdGetWorkspace.SetToolTipText("Browse for Output Folder...");
  cmdManual.SetCaption("Manual");
  cmdOK.SetCaption("OK");
  cmdCancel.SetCaption("Cancel");
  lbxFields.MultiSelect = true;
  txtMessage.Locked = true;
  txtMessage.MultiLine = true;
  cmdGetWorkspace.PictureId = 201;
  cmdOK.Default = true;
  cmdCancel.Cancel = true;

  lbxLayers.Click = [this] { lbxLayers_Click(); };
  cmdSelFields.Click = [this] { cmdSelFields_Click(); };
  optAll.Click = [this] { optAll_Click(); };
  txtOutput.Change = [this] { txtOutput_Change(); };
  cmdGetWorkspace.Click = [this] { cmdGetWorkspace_Click(); };
  cmdManual.Click = [this] { cmdManual_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  LayOut();
}

void frmLayerFields::LayOut() {
  SetSize(320, 262);
  SetMinimumSize(320, 220);
  lblLayer.Move(7, 7, 148, 9);
  lbxLayers.Move(7, 18, 148, 66);
  lblFields.Move(165, 7, 148, 9);
  lbxFields.Move(165, 18, 148, 84);
  cmdSelFields.Move(165, 106, 148, 14);
  optAll.Move(7, 91, 148, 11);
  optSel.Move(7, 106, 148, 11);
  txtMessage.Move(7, 128, 306, 74);
  lblOutputName.Move(7, 209, 280, 9);
  txtOutput.Move(7, 220, 286, 13);
  cmdGetWorkspace.Move(297, 219, 16, 15);
  cmdManual.Move(7, 241, 56, 14);
  cmdOK.Move(197, 241, 56, 14);
  cmdCancel.Move(257, 241, 56, 14);

  txtMessage.SetBackColor(kButtonFace);
  lbxLayers.SetBackColor(kWindowBackground);
  lbxFields.SetBackColor(kWindowBackground);
  txtOutput.SetBackColor(kWindowBackground);

  std::int32_t tab_index = 0;
  const std::array<Control*, 14> tab_order = {&lblLayer,        &lbxLayers,    &optAll,     &optSel,        &lblFields,
                                              &lbxFields,       &cmdSelFields, &txtMessage, &lblOutputName, &txtOutput,
                                              &cmdGetWorkspace, &cmdManual,    &cmdOK,      &cmdCancel};
  for (Control* control : tab_order) control->SetTabIndex(tab_index++);
}

void frmLayerFields::SetArcApplication(const std::shared_ptr<IApplication>& application) {
  Trap("ArcApplication", [&] {
    application_ = application;
    document_ = Cast<IMxDocument>(application_->Document());
    const auto selected = Cast<IFeatureLayer>(document_->SelectedLayer());
    preferred_layer_ = selected ? selected->Name() : "";
    extension_ = FindExtension(application_);
    extension_->ShouldContinue = false;
    all_selected_ = false;
    UpdateSelName();
  });
}

void frmLayerFields::SetConversionOption(std::int32_t option) {
  Trap("ConversionOption", [&] {
    conversion_option_ = option;
    lbxLayers.Clear();
    lbxFields.Clear();
    layers_ = std::make_shared<VarArray>();
    std::string base_name;
    if (const LayerFieldsTexts* texts = FindLayerFieldsTexts(option)) {
      SetCaption(std::string(texts->form_caption));
      txtMessage.SetText(std::string(texts->instruction));
      layers_ = Require(ReturnLayersByType(document_->FocusMap(), texts->layer_mask), "ReturnLayersByType");
      base_name = texts->default_output_name;
      FillLayers();
    }
    output_.Show(ProposeOutput(*extension_, application_, base_name));
    if (layers_->Count() == 0) optAll.SetValue(true);
    UpdateOkState();
  });
}

void frmLayerFields::FillLayers() {
  const std::int32_t preferred = ListLayers(*layers_, preferred_layer_, lbxLayers);
  if (lbxLayers.ListCount() > 0) lbxLayers.SetListIndex(preferred);
}

std::shared_ptr<IFeatureLayer> frmLayerFields::CurrentLayer() const { return LayerAt(layers_, lbxLayers.ListIndex()); }

void frmLayerFields::lbxLayers_Click() {
  Trap("lbxLayers_Click", [this] {
    const std::shared_ptr<IFeatureLayer> layer = CurrentLayer();
    Require(layer, "layer");
    fields_ = ListFields(*layer, StoredMeasures::LeftOut, lbxFields);
    all_selected_ = false;
    UpdateSelName();
    ShowRecordCounts(layer);
    UpdateOkState();
  });
}

void frmLayerFields::ShowRecordCounts(const std::shared_ptr<IFeatureLayer>& layer) {
  const LayerFieldsTexts* texts = FindLayerFieldsTexts(conversion_option_);
  const std::string verb(texts != nullptr ? texts->record_verb : "Convert");
  ShowRecordChoice(layer, verb + " All Records", verb + " Selected Records", optAll, optSel);
}

void frmLayerFields::UpdateSelName() {
  cmdSelFields.SetCaption(SelectFieldsCaption(all_selected_));
  UpdateOkState();
}

void frmLayerFields::UpdateOkState() { cmdOK.SetEnabled(lbxLayers.ListIndex() >= 0); }

void frmLayerFields::cmdSelFields_Click() {
  Trap("cmdSelFields_Click", [this] {
    SelectAllLines(lbxFields, !all_selected_);
    all_selected_ = !all_selected_;
    UpdateSelName();
  });
}

void frmLayerFields::optAll_Click() {
  Trap("optAll_Click", [this] { UpdateOkState(); });
}

void frmLayerFields::txtOutput_Change() {
  Trap("txtOutput_Change", [this] { output_.FollowText(); });
}

void frmLayerFields::cmdGetWorkspace_Click() {
  Trap("cmdGetWorkspace_Click", [this] {
    if (output_.Browse()) UpdateOkState();
  });
}

void frmLayerFields::cmdOK_Click() {
  Trap("cmdOK_Click", [this] {
    if (!output_.PlaceExists()) return;
    LeaveChoices(*extension_, CurrentLayer(), optAll.Value() ? ToolRecords::All : ToolRecords::Selected, output_);
    extension_->SelectedFields = SelectedFieldsOf(lbxFields, fields_);
    extension_->ShouldContinue = true;
    Unload();
  });
}

void frmLayerFields::cmdCancel_Click() {
  Trap("cmdCancel_Click", [this] {
    ForgetChoices(*extension_);
    Unload();
  });
}

void frmLayerFields::cmdManual_Click() {
  Trap("cmdManual_Click", [] { OpenManual(); });
}

void frmLayerFields::Form_Load() {
  Trap("Form_Load", [this] {
    SetTopmost(true);
    MoveToUpperMiddle();
    if (!extension_) extension_ = FindExtension(application_);
    anchors_.Hold({
        {lblLayer, enumStartSize, enumStartSize},
        {lbxLayers, enumNone, enumStartEnd},
        {lblFields, enumNone, enumStartSize},
        {lbxFields, enumNone, enumStartEnd},
        {cmdSelFields, enumNone, enumSizeEnd},
        {optAll, enumStartSize, enumSizeEnd},
        {optSel, enumStartSize, enumSizeEnd},
        {txtMessage, enumStartEnd, enumSizeEnd},
        {lblOutputName, enumStartSize, enumSizeEnd},
        {txtOutput, enumStartEnd, enumSizeEnd},
        {cmdGetWorkspace, enumSizeEnd, enumSizeEnd},
        {cmdManual, enumStartSize, enumSizeEnd},
        {cmdOK, enumSizeEnd, enumSizeEnd},
        {cmdCancel, enumSizeEnd, enumSizeEnd},
    });
    anchors_.SetForm(*this);
  });
}

void frmLayerFields::Form_Resize() {
  Trap("Form_Resize", [this] { anchors_.DoAnchors(); });
}

void frmLayerFields::Form_Unload() {
  application_ = nullptr;
  document_ = nullptr;
  extension_ = nullptr;
  layers_ = nullptr;
  fields_.clear();
}

}  // namespace tessarine
