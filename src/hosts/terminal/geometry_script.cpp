// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/geometry_script.h"

#include <algorithm>
#include <set>

#include "hosts/document/component_loader.h"
#include "hosts/terminal/refusal.h"
#include "platform/host.h"
#include "platform/measure_catalog.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

constexpr int kBoxes = 11;
constexpr std::int32_t kTakenName = 0xFFFFC3;

template <class Kind>
Kind& ControlOf(const Form& form, const std::string& name) {
  auto* control = form.FindAs<Kind>(name);
  if (control == nullptr) Raise(kInvalidCall, "The form '" + form.Name() + "' has no control '" + name + "'.");
  return *control;
}

void ChooseLayer(const Form& form, const DocumentFeatureLayer& layer) {
  auto& list = ControlOf<ListBox>(form, "lbxLayers");
  for (std::int32_t line = 0; line < list.ListCount(); ++line) {
    if (list.List(line) != layer.Name()) continue;
    list.SetListIndex(line);
    return;
  }
  throw Refusal("The layer '" + layer.Name() +
                "' is of the wrong kind: measures are for points, multipoints, polylines and polygons.");
}

// The combo boxes of a box, as far as the dialog shows them while it is ticked.
std::vector<ComboBox*> ShownCombos(const Form& form, int box) {
  std::vector<ComboBox*> combos;
  for (int position = 1; position <= 2; ++position) {
    auto* combo = form.FindAs<ComboBox>("cbx" + std::to_string(box) + std::to_string(position));
    if (combo != nullptr && combo->Visible()) combos.push_back(combo);
  }
  return combos;
}

// The layer's measures; the box of a measure bears its option id.
std::vector<CataloguedMeasure> CatalogueOf(const DocumentFeatureLayer& layer) {
  return CreateComponentAs<IMeasureCatalog>("Tessarine.clsMeasureCatalog", "IMeasureCatalog")
      ->Measures(layer.FeatureClass()->ShapeType(), layer.SpatialReference());
}

bool IsCalled(const CataloguedMeasure& measure, const std::string& name) {
  const auto same = [&](const std::string& label) { return EqualsIgnoringCase(label, name); };
  return same(measure.Caption) || same(std::to_string(measure.OptionId)) ||
         std::ranges::any_of(measure.ReportLabels, same);
}

OfferedMeasure OfferOf(const Form& form, const CataloguedMeasure& measure) {
  const int box_number = measure.OptionId;
  auto& box = ControlOf<CheckBox>(form, "chk" + std::to_string(box_number));
  OfferedMeasure offer{box_number, box.Caption(), measure.ReportLabels, measure.Slow, {}};
  box.SetValue(CheckBox::kChecked);
  for (const ComboBox* combo : ShownCombos(form, box_number)) {
    offer.fields.push_back({combo->Text(), combo->BackColor() == kTakenName});
  }
  box.SetValue(CheckBox::kUnchecked);
  return offer;
}

std::vector<std::string> SplitAtCommas(const std::string& text) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == ',') {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  for (std::string& part : parts) part = Trim(part);
  return parts;
}

// Why no measure can be written to the field, as the end of a sentence; empty where it can.
std::string Obstacle(const DocumentFeatureLayer& layer, const std::string& name) {
  const std::int32_t index = layer.FeatureClass()->FindField(name);
  if (index < 0) return "";
  const FieldRef field = layer.FeatureClass()->Fields()->Field(index);
  if (field->Type == esriFieldTypeOID) return "it identifies the records";
  if (field->Type == esriFieldTypeGeometry) return "it holds the shapes";
  if (field->Type == esriFieldTypeBlob) return "it holds binary data";
  return field->Editable ? "" : "the data don't let it be changed";
}

void NameFields(Form& form, int box, const DocumentFeatureLayer& layer, const std::string& measure,
                const std::vector<std::string>& fields) {
  const std::vector<ComboBox*> combos = ShownCombos(form, box);
  for (const std::string& name : fields) {
    const std::string obstacle = Obstacle(layer, name);
    if (obstacle.empty()) continue;
    throw Refusal("-m \"" + measure + "\": the field '" + name + "' can't be written to: " + obstacle +
                  ". Name another field.");
  }
  if (fields.size() != combos.size()) {
    throw Refusal("-m \"" + measure + "\": this measure has " +
                  (combos.size() == 1 ? "one field" : std::to_string(combos.size()) + " fields") + ", but " +
                  std::to_string(fields.size()) + " are named.");
  }
  for (std::size_t index = 0; index < combos.size(); ++index) {
    form.SetActiveControl(combos[index]);
    combos[index]->SetText(fields[index]);
  }
  // Leaving a box lets the dialog look at what was typed.
  form.SetActiveControl(form.Find("cmdOK"));
}

}  // namespace

MeasureText::MeasureText(const std::string& text) {
  const std::size_t equals = text.find('=');
  name = Trim(text.substr(0, equals));
  if (equals != std::string::npos) fields = SplitAtCommas(text.substr(equals + 1));
}

std::string MeasureText::Joined() const {
  std::string text = name;
  for (std::size_t index = 0; index < fields.size(); ++index) text += (index == 0 ? '=' : ',') + fields[index];
  return text;
}

void MeasureListing::Answer(Form& form) {
  ChooseLayer(form, layer_);
  offered_.layer = layer_.Name();
  offered_.feature_type = ControlOf<Label>(form, "lbSelFeatureType").Caption();
  offered_.spheroid = Replace(ControlOf<Label>(form, "lblSpheroidOptions").Caption(), "&&", "&");
  for (const CataloguedMeasure& measure : CatalogueOf(layer_)) offered_.measures.push_back(OfferOf(form, measure));
  ControlOf<CommandButton>(form, "cmdCancel").Press();
}

void GeometryScript::Answer(Form& form) {
  if (form.Name() == "frmGeometry") {
    AnswerGeometry(form);
  } else if (form.Name() == "frmSpheroidOptionsExt") {
    AnswerSpheroid(form);
  } else {
    AnswerQuestion(form);
  }
}

void GeometryScript::AnswerGeometry(Form& form) {
  ChooseLayer(form, layer_);
  if (answers_.all_measures) {
    for (int number = 1; number <= kBoxes; ++number) {
      auto& box = ControlOf<CheckBox>(form, "chk" + std::to_string(number));
      if (box.Visible()) box.SetValue(CheckBox::kChecked);
    }
  }
  std::set<std::int32_t> named;
  for (const std::string& measure : answers_.measures) {
    const std::int32_t option_id = Tick(form, measure);
    if (measure.find('=') == std::string::npos || named.insert(option_id).second) continue;
    throw Refusal("-m \"" + measure + "\": the fields of this measure were named before; a run writes it once.");
  }
  if (answers_.spheroid || answers_.planetocentric) {
    auto& advanced = ControlOf<CommandButton>(form, "cmdAdvanced");
    if (!advanced.Enabled()) {
      throw Refusal("--spheroid, --radii and --planetocentric can't be used on '" + layer_.Name() + "'. " +
                    Replace(advanced.ToolTipText(), ":", "."));
    }
    advanced.Press();
    // The dialog shows its reason itself.
    if (!spheroid_taken_) throw Refusal("The spheroid dialog doesn't take --spheroid, --radii or --planetocentric.");
  }
  ControlOf<CommandButton>(form, "cmdOK").Press();
}

std::int32_t GeometryScript::Tick(Form& form, const std::string& measure) const {
  const MeasureText text(measure);
  const std::string& name = text.name;
  std::string offered;
  for (const CataloguedMeasure& known : CatalogueOf(layer_)) {
    if (!IsCalled(known, name)) {
      offered += (offered.empty() ? "" : ", ") + known.Caption;
      continue;
    }
    ControlOf<CheckBox>(form, "chk" + std::to_string(known.OptionId)).SetValue(CheckBox::kChecked);
    if (!text.fields.empty()) NameFields(form, known.OptionId, layer_, measure, text.fields);
    return known.OptionId;
  }
  throw Refusal("-m \"" + measure + "\": '" + layer_.Name() + "' has no measure '" + name + "'. It has: " + offered +
                ".");
}

void GeometryScript::AnswerSpheroid(Form& form) {
  if (answers_.spheroid) FillSpheroidForm(form, *answers_.spheroid);
  if (answers_.planetocentric) ControlOf<OptionButton>(form, "optCentric").SetValue(true);
  auto& ok = ControlOf<CommandButton>(form, "cmdOK");
  spheroid_taken_ = ok.Enabled();
  ok.Press();
}

void GeometryScript::AnswerQuestion(Form& form) {
  const std::string text = ControlOf<TextBox>(form, "txtMessage").Text();
  const bool yes = Host().MessageBox().Show(text, form.Caption(), MessageButtons::YesNo) == MessageAnswer::Yes;
  ControlOf<CommandButton>(form, yes ? "cmdYes" : "cmdNo").Press();
}

}  // namespace tessarine
