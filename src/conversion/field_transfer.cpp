// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/field_transfer.h"

#include <algorithm>

#include "platform/fault.h"
#include "platform/free_name.h"
#include "platform/rich_text.h"
#include "support/MyGeneralOperations.h"
#include "support/output_datasets.h"

namespace tessarine {
namespace {

constexpr std::string_view kUniqueId = "Uniq_ID";

template <class Taken>
std::vector<std::string> FreeNames(std::span<const std::string_view> bases, Taken&& taken) {
  std::vector<std::string> names;
  for (const std::string_view base : bases) names.push_back(FirstFree(std::string(base), taken));
  return names;
}

FieldRef NewUniqueIdField(const std::string& name) {
  auto field = std::make_shared<Field>();
  field->Length = 8;
  field->Name = name;
  field->Type = esriFieldTypeInteger;
  field->Precision = 0;
  return field;
}

FieldRef NewMeasureField(const std::string& name) {
  auto field = std::make_shared<Field>();
  field->Name = name;
  field->Type = esriFieldTypeDouble;
  field->Precision = 16;
  field->Scale = 8;
  return field;
}

}  // namespace

FieldTransfer FieldTransfer::BesideInput(const IFeatureClass& input, std::span<const std::string_view> measures,
                                         const VarArray& chosen, std::int32_t output_kind) {
  const auto taken = [&](const std::string& name) { return input.FindField(name) != -1; };
  return {FirstFree(std::string(kUniqueId), taken), FreeNames(measures, taken), chosen, output_kind};
}

FieldTransfer FieldTransfer::BesideChosen(std::span<const std::string_view> measures, const VarArray& chosen,
                                          std::int32_t output_kind) {
  const auto taken = [&](const std::string& name) {
    return std::any_of(chosen.begin(), chosen.end(), [&](const Variant& element) {
      const auto field = element.AsObject<Field>();
      return Require(field, "IField")->Name == name;
    });
  };
  return {FirstFree(std::string(kUniqueId), taken), FreeNames(measures, taken), chosen, output_kind};
}

FieldTransfer::FieldTransfer(std::string unique_id_name, std::vector<std::string> measure_names, const VarArray& chosen,
                             std::int32_t output_kind)
    : unique_id_name_(std::move(unique_id_name)), measure_names_(std::move(measure_names)) {
  output_fields_->Add(NewUniqueIdField(unique_id_name_));
  for (const std::string& name : measure_names_) output_fields_->Add(NewMeasureField(name));
  for (const Variant& element : chosen) {
    const auto source = element.AsObject<Field>();
    const std::shared_ptr<Field> copy = CloneOf(*Require(source, "IField"));
    copy->Name = MyGeneralOperations::FieldNameFor(output_kind, source->Name, output_fields_);
    chosen_.push_back({source->Name, copy->Name});
    chosen_fields_.push_back(source);
    output_fields_->Add(copy);
  }
}

std::vector<CarriedField> FieldTransfer::Carried() const {
  std::vector<CarriedField> fields;
  for (std::size_t index = 0; index < chosen_.size(); ++index) {
    fields.push_back({chosen_fields_[index], chosen_[index].output});
  }
  return fields;
}

void FieldTransfer::Bind(const IFeatureClass* input, const IFeatureClass& output) {
  std::vector<std::int32_t> places =
      LastAttributes(*output.Fields(), static_cast<std::size_t>(output_fields_->Count()));
  const auto first_measure = places.begin() + 1;
  const auto first_chosen = first_measure + static_cast<std::ptrdiff_t>(measure_names_.size());
  unique_id_index_ = places.front();
  measure_indexes_.assign(first_measure, first_chosen);
  if (input == nullptr) return;
  const FieldsRef input_fields = input->Fields();
  std::vector<std::int32_t> sources;
  for (const FieldRef& field : chosen_fields_) {
    sources.push_back(input_fields->IndexOf(*field));
    if (sources.back() >= 0) continue;
    Raise(kInvalidCall, "'" + input->Name() + "' has no field '" + field->Name + "' any more.");
  }
  places.erase(places.begin(), first_chosen);
  copy_ = AttributeCopy(sources, places, *output.Fields());
}

std::string FieldTransfer::FieldReport() const {
  if (chosen_.empty()) return "       <-- No Fields Selected -->\\par\r\n";
  std::string report;
  int ordinal = 0;
  for (const NamePair& names : chosen_) {
    report += "       " + std::to_string(++ordinal) + "] " + EscapeRtf(names.input) + "\\par\r\n";
  }
  return report;
}

}  // namespace tessarine
