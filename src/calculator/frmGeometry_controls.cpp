// SPDX-License-Identifier: GPL-2.0-or-later
// How the dialog follows the chosen layer.
#include <algorithm>

#include "calculator/frmGeometry.h"
#include "platform/reference_spheroid.h"
#include "platform/text_formats.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"

namespace tessarine {
namespace {

constexpr std::int32_t kNewName = 0xFFFFFF;
constexpr std::int32_t kTakenName = 0xFFFFC3;

std::string Counted(const char* label, std::int32_t count) {
  return std::string(label) + " (n = " + std::to_string(count) + ")";
}

// Controls that keep working without any layer.
bool StaysEnabled(const Control& control) {
  for (const char* name : {"cmdCancel", "cmdManual", "txtMessage", "Line1"}) {
    if (EqualsIgnoringCase(control.Name(), name)) return true;
  }
  return false;
}

}  // namespace

void frmGeometry::SetGeometryControls() {
  for (ComboBox* combo : combos_) {
    combo->Clear();
    combo->SetText("");
    combo->SetVisible(false);
    combo->AddItem("");
  }
  if (layers_->Count() == 0) {
    ShowNoLayers();
  } else {
    const std::shared_ptr<IFeatureLayer> layer = Require(CurrentLayer(), "layer");
    const std::shared_ptr<IFeatureClass> features = Require(layer->FeatureClass(), "FeatureClass");
    ShowSpheroid(*features);
    numeric_names_ = NumericFieldNames(*layer);
    ShowCatalogue(*features);
    ShowRecordChoice(*layer);
  }
  handed_flags_ = use_flags_;
  CheckOK();
}

void frmGeometry::ShowNoLayers() {
  optAll.SetValue(true);
  optAll.SetCaption("Calculate All Records");
  optSel.SetCaption("Only Selected Records");
  for (Control* control : Controls()) {
    if (!StaysEnabled(*control)) control->SetEnabled(false);
  }
  for (CheckBox* box : boxes_) box->SetCaption("No Feature Layers");
  use_flags_.fill(false);
}

void frmGeometry::ShowSpheroid(const IFeatureClass& features) {
  const std::string reason = WhyNoSpheroid(features);
  cmdAdvanced.SetEnabled(reason.empty());
  cmdAdvanced.SetToolTipText(reason);
  if (!reason.empty()) geocentric_ = false;
  const auto spheroid = SpheroidBeneath(features.SpatialReference());
  if (!spheroid) {
    lblSpheroidOptions.SetCaption(kUnknownSpheroid);
    return;
  }
  spheroid_name_ = spheroid->Name();
  semi_major_ = spheroid->SemiMajorAxis();
  semi_minor_ = spheroid->SemiMinorAxis();
  ShowSpheroidLine();
}

void frmGeometry::ShowSpheroidLine() {
  // A label takes a lone "&" for a mnemonic.
  lblSpheroidOptions.SetCaption(Replace(SpheroidLine(spheroid_name_, semi_major_, semi_minor_), "&", "&&"));
}

void frmGeometry::ShowCatalogue(const IFeatureClass& features) {
  const esriGeometryType shape = features.ShapeType();
  const SpatialKind kind = SpatialKindOf(features.SpatialReference());
  lbSelFeatureType.SetCaption(KindOfClassLine(shape, kind));
  use_flags_ = ComboUseFlagsOf(shape, kind);
  for (std::int32_t id = 1; id <= kOptionCount; ++id) {
    const MeasureRow* row = FindMeasure(shape, kind, id);
    CheckBox& box = *boxes_[static_cast<std::size_t>(id - 1)];
    box.SetVisible(row != nullptr);
    box.SetValue(CheckBox::kUnchecked);
    box.SetCaption(row != nullptr ? std::string(row->caption) : "");
    if (row == nullptr) continue;
    for (std::size_t position = 0; position < row->FieldCount(); ++position) {
      FillComboBox(*ComboOf(id, static_cast<std::int32_t>(position)), row->default_fields[position], features);
    }
  }
}

void frmGeometry::ShowRecordChoice(const IFeatureLayer& layer) {
  const std::int32_t all = layer.FeatureClass()->FeatureCount(nullptr);
  const auto* selection = dynamic_cast<const IFeatureSelection*>(&layer);
  const std::shared_ptr<ISelectionSet> set = selection != nullptr ? selection->SelectionSet() : nullptr;
  const std::int32_t chosen = set ? set->Count() : 0;
  optAll.SetEnabled(true);
  optAll.SetCaption(Counted("Calculate All Records", all));
  optSel.SetEnabled(chosen > 0);
  optSel.SetCaption(set ? Counted("Selected Records", chosen) : "Unable to get selection...");
  optAll.SetValue(chosen == 0);
  optSel.SetValue(chosen > 0);
}

void frmGeometry::FillComboBox(ComboBox& combo, std::string_view default_name, const IFeatureClass& features) {
  const auto position = static_cast<std::int32_t>(ProposedPosition(default_name, numeric_names_));
  combo.Clear();
  combo.SetVisible(false);
  if (position == 0) combo.AddItem(NewFieldName(default_name, features, numeric_names_));
  for (const std::string& name : numeric_names_) combo.AddItem(name);
  combo.SetListIndex(position);
  combo.SetBackColor(position > 0 ? kTakenName : kNewName);
  combo.Refresh();
}

void frmGeometry::CheckComboBoxEntry(ComboBox& combo) {
  const std::string text = combo.Text();
  const auto found =
      std::ranges::find_if(numeric_names_, [&](const std::string& name) { return EqualsIgnoringCase(name, text); });
  if (found == numeric_names_.end()) {
    combo.SetBackColor(kNewName);
  } else {
    combo.Clear();
    for (const std::string& name : numeric_names_) combo.AddItem(name);
    combo.SetListIndex(static_cast<std::int32_t>(found - numeric_names_.begin()));
    combo.SetBackColor(kTakenName);
  }
  combo.Refresh();
}

}  // namespace tessarine
