#include "conversion/field_transfer.h"

#include "platform/rich_text.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

std::string FreeOwnName(const IFeatureClass& input, std::string_view base) {
  std::string candidate(base);
  for (int number = 2; input.FindField(candidate) != -1; ++number) {
    candidate = std::string(base) + "_" + std::to_string(number);
  }
  return candidate;
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

FieldTransfer::FieldTransfer(const IFeatureClass& input, const modCreateVertices::ConversionRun& run,
                             const VarArray& chosen)
    : unique_id_name_(FreeOwnName(input, "Uniq_ID")) {
  output_fields_->Add(NewUniqueIdField(unique_id_name_));
  for (const std::string_view base : run.MeasureFields) {
    measure_names_.push_back(FreeOwnName(input, base));
    output_fields_->Add(NewMeasureField(measure_names_.back()));
  }
  for (const Variant& element : chosen) {
    const auto source = element.AsObject<Field>();
    const std::shared_ptr<Field> copy = CloneOf(*Require(source, "IField"));
    copy->Name = MyGeneralOperations::ReturnDBASEFieldName(source->Name, output_fields_);
    chosen_.push_back({source->Name, copy->Name});
    output_fields_->Add(copy);
  }
}

void FieldTransfer::Bind(const IFeatureClass& input, const IFeatureClass& output) {
  unique_id_index_ = output.FindField(unique_id_name_);
  for (const std::string& name : measure_names_) measure_indexes_.push_back(output.FindField(name));
  for (const NamePair& names : chosen_) {
    chosen_indexes_.push_back({input.FindField(names.input), output.FindField(names.output)});
  }
}

void FieldTransfer::CopyAttributes(const IRowBuffer& from, IRowBuffer& to) const {
  for (const IndexPair& pair : chosen_indexes_) to.SetValue(pair.output, from.Value(pair.input));
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
