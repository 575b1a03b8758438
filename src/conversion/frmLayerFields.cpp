// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/frmLayerFields.h"

#include "conversion/layer_choices.h"
#include "conversion/layer_fields_texts.h"
#include "platform/trap.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

}  // namespace

frmLayerFields::frmLayerFields() : OutputForm("frmLayerFields", FollowTypedPath) {
  SetCaption(" Input Parameters:");
  lblLayer.SetCaption("Select &Layer to Convert:");
  lblFields.SetCaption("Select &Fields to Include:");
  cmdSelFields.SetCaption(SelectFieldsCaption(false));
  optAll.SetCaption("Convert All Records");
  optSel.SetCaption("Convert Selected Records");
  lblOutputName.SetCaption("Output Feature &Class:");
  lbxFields.MultiSelect = true;
  txtMessage.Locked = true;
  txtMessage.MultiLine = true;

  lbxLayers.Click = [this] { lbxLayers_Click(); };
  cmdSelFields.Click = [this] { cmdSelFields_Click(); };
  optAll.Click = [this] { optAll_Click(); };
  LayOut();
}

void frmLayerFields::LayOut() {
  lblLayer.Move(7, 7, 148, 9);
  lbxLayers.Move(7, 18, 148, 66);
  lblFields.Move(165, 7, 148, 9);
  lbxFields.Move(165, 18, 148, 84);
  cmdSelFields.Move(165, 106, 148, 14);
  optAll.Move(7, 91, 148, 11);
  optSel.Move(7, 106, 148, 11);
  txtMessage.Move(7, 128, 306, 74);
  PlaceOutputRow({.top = 209, .width = 320, .least_width = 320, .least_height = 220});

  txtMessage.SetBackColor(kButtonFace);
  lbxLayers.SetBackColor(kWindowBackground);
  lbxFields.SetBackColor(kWindowBackground);

  SetTabOrder({&lblLayer, &lbxLayers, &optAll, &optSel, &lblFields, &lbxFields, &cmdSelFields, &txtMessage});
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

void frmLayerFields::cmdOK_Click() {
  if (!output_.PlaceExists()) return;
  LeaveChoices(*extension_, CurrentLayer(), optAll.Value() ? ToolRecords::All : ToolRecords::Selected, output_);
  extension_->SelectedFields = SelectedFieldsOf(lbxFields, fields_);
  extension_->ShouldContinue = true;
  Unload();
}

void frmLayerFields::ForgetChoices(clsExtension& extension) { ForgetLayerAndFields(extension); }

void frmLayerFields::Form_Load() {
  OutputForm::Form_Load();
  Trap("Form_Load", [this] {
    anchors_.Hold({
        {lblLayer, enumStartSize, enumStartSize},
        {lbxLayers, enumNone, enumStartEnd},
        {lblFields, enumNone, enumStartSize},
        {lbxFields, enumNone, enumStartEnd},
        {cmdSelFields, enumNone, enumSizeEnd},
        {optAll, enumStartSize, enumSizeEnd},
        {optSel, enumStartSize, enumSizeEnd},
        {txtMessage, enumStartEnd, enumSizeEnd},
    });
  });
}

void frmLayerFields::Form_Unload() {
  OutputForm::Form_Unload();
  document_ = nullptr;
  layers_ = nullptr;
  fields_.clear();
}

}  // namespace tessarine
