// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/frmGeometry.h"

#include <algorithm>

#include "platform/host.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "spheroids/frmSpheroidOptionsExt.h"
#include "spheroids/spheroid_lists.h"
#include "support/MyGeneralOperations.h"
#include "support/frmMessageBox.h"
#include "support/manual.h"

namespace tessarine {
namespace {

using namespace MyGeneralOperations;

constexpr std::int32_t kNewName = 0xFFFFFF;

}  // namespace

void frmGeometry::ConnectEvents() {
  lbxLayers.Click = [this] { lbxLayers_Click(); };
  for (std::int32_t id = 1; id <= kOptionCount; ++id) {
    boxes_[static_cast<std::size_t>(id - 1)]->Click = [this, id] { chk_Click(id); };
  }
  for (ComboBox* combo : combos_) {
    combo->Change = [combo] { combo->SetBackColor(kNewName); };
    combo->LostFocus = [this, combo] { cbx_LostFocus(*combo); };
  }
  cmdAdvanced.Click = [this] { cmdAdvanced_Click(); };
  cmdManual.Click = [this] { cmdManual_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
}

ComboBox* frmGeometry::ComboOf(std::int32_t option_id, std::int32_t position) const {
  const std::int32_t index = ComboIndex(option_id, position);
  return index < 0 ? nullptr : combos_[static_cast<std::size_t>(index)];
}

void frmGeometry::SetArcApplication(const std::shared_ptr<IApplication>& application) {
  Trap("ArcApplication", [&] {
    application_ = application;
    document_ = Cast<IMxDocument>(application_->Document());
    const auto selected = Cast<IFeatureLayer>(document_->SelectedLayer());
    selected_layer_ = selected ? selected->Name() : "";
    if (!extension_) {
      extension_ = FindExtension(application_);
      Require(extension_, "clsExtension")->ShouldContinue = false;
    }
    layers_ = Require(
        ReturnLayersByType(document_->FocusMap(), kPointLayers | kPolylineLayers | kPolygonLayers | kMultipointLayers),
        "ReturnLayersByType");
    lbxLayers.Clear();
    std::int32_t chosen = 0;
    for (std::int32_t index = 0; index < layers_->Count(); ++index) {
      const std::string name = layers_->Element(index).AsObject<IFeatureLayer>()->Name();
      lbxLayers.AddItem(name);
      if (EqualsIgnoringCase(name, selected_layer_)) chosen = index;
    }
    if (layers_->Count() == 0) {
      SetGeometryControls();
    } else {
      lbxLayers.SetListIndex(chosen);
    }
    geocentric_ = false;
  });
}

std::shared_ptr<IFeatureLayer> frmGeometry::CurrentLayer() const {
  return layers_->Element(lbxLayers.ListIndex()).AsObject<IFeatureLayer>();
}

void frmGeometry::lbxLayers_Click() {
  Trap("lbxLayers_Click", [this] { SetGeometryControls(); });
}

void frmGeometry::chk_Click(std::int32_t option_id) {
  Trap("chk" + std::to_string(option_id) + "_Click", [&] {
    const bool ticked = boxes_[static_cast<std::size_t>(option_id - 1)]->Value() == CheckBox::kChecked;
    for (const std::int32_t position : {0, 1}) {
      ComboBox* combo = ComboOf(option_id, position);
      if (combo != nullptr) combo->SetVisible(ticked && UsesField(use_flags_, option_id, position));
    }
    CheckOK();
  });
}

void frmGeometry::cbx_LostFocus(ComboBox& combo) {
  Trap(combo.Name() + "_LostFocus", [&] { CheckComboBoxEntry(combo); });
}

void frmGeometry::CheckOK() {
  cmdOK.SetEnabled(std::ranges::any_of(boxes_, [](const CheckBox* box) { return box->Value() == CheckBox::kChecked; }));
}

void frmGeometry::cmdAdvanced_Click() {
  Trap("cmdAdvanced_Click", [this] {
    {
      frmSpheroidOptionsExt dialog;
      dialog.SetArcApplication(
          SpheroidDialogInput::Make(application_, extension_, spheroid_name_, semi_major_, semi_minor_));
      dialog.ShowModal();
    }
    if (extension_->CurrentSpheroidCanceled) return;
    spheroid_name_ = extension_->CurrentSpheroidName;
    semi_major_ = extension_->CurrentSpheroidMajorAxis;
    semi_minor_ = extension_->CurrentSpheroidMinorAxis;
    geocentric_ = extension_->CurrentSpheroidGeocentric;
    ShowSpheroidLine();
  });
}

void frmGeometry::cmdManual_Click() {
  Trap("cmdManual_Click", [] { OpenManual(); });
}

std::vector<OptionEntry> frmGeometry::ChosenOptions() const {
  std::vector<OptionEntry> entries;
  for (std::int32_t id = 1; id <= kOptionCount; ++id) {
    if (boxes_[static_cast<std::size_t>(id - 1)]->Value() != CheckBox::kChecked) continue;
    const ComboBox* second = ComboOf(id, 1);
    entries.emplace_back(static_cast<std::int16_t>(id), ComboOf(id, 0)->Text(),
                         second != nullptr ? second->Text() : std::string());
  }
  return entries;
}

std::vector<NamedField> frmGeometry::ChosenFields() const {
  std::vector<NamedField> fields;
  for (std::int32_t id = 1; id <= kOptionCount; ++id) {
    const CheckBox& box = *boxes_[static_cast<std::size_t>(id - 1)];
    if (box.Value() != CheckBox::kChecked) continue;
    for (const std::int32_t position : {0, 1}) {
      if (const ComboBox* combo = ComboOf(id, position)) fields.push_back({box.Caption(), combo->Text()});
    }
  }
  return fields;
}

bool frmGeometry::Confirm(const std::optional<NameQuestion>& question) const {
  if (!question) return true;
  extension_->ShouldContinue = false;
  Host().Beep();
  frmMessageBox box;
  box.SetArcApplication(application_);
  box.SetCaption(question->title);
  box.txtMessage.SetText(question->text);
  box.ShowModal();
  return extension_->ShouldContinue;
}

bool frmGeometry::ConfirmNames(const std::vector<NamedField>& fields) const {
  return Confirm(DoubtfulNames(*CurrentLayer(), fields)) && Confirm(TakenNames(fields, numeric_names_));
}

void frmGeometry::cmdOK_Click() {
  Trap("cmdOK_Click", [this] {
    GeometryChoices choices;
    choices.layer = Require(CurrentLayer(), "layer");
    choices.all_records = optAll.Value();
    choices.options = ChosenOptions();
    choices.use_flags = handed_flags_;
    if (!ConfirmNames(ChosenFields())) return;
    choices.spheroid_name = spheroid_name_;
    choices.semi_major = semi_major_;
    choices.semi_minor = semi_minor_;
    choices.geocentric = geocentric_;
    extension_->GeometryOptions = GeometryOptions(choices).Carrier();
    extension_->ShouldContinue = true;
    Unload();
  });
}

void frmGeometry::cmdCancel_Click() {
  Trap("cmdCancel_Click", [this] {
    extension_->GeometryOptions = nullptr;
    extension_->ShouldContinue = false;
    Unload();
  });
}

void frmGeometry::Form_Unload() {
  application_ = nullptr;
  document_ = nullptr;
  extension_ = nullptr;
  layers_ = nullptr;
}

}  // namespace tessarine
