// SPDX-License-Identifier: GPL-2.0-or-later
#include "conversion/field_choice.h"

#include "platform/letter_case.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

// Fields that no output can carry over.
bool IsTransferable(const Field& field) {
  switch (field.Type) {
    case esriFieldTypeOID:
    case esriFieldTypeGeometry:
    case esriFieldTypeBlob:
    case esriFieldTypeRaster:
    case esriFieldTypeGUID:
    case esriFieldTypeGlobalID:
    case esriFieldTypeXML:
      return false;
    default:
      return true;
  }
}

bool IsStoredMeasure(const Field& field) {
  return EqualsIgnoringCase(field.Name, "Shape_Area") || EqualsIgnoringCase(field.Name, "Shape_Length");
}

std::string AliasOf(const IFeatureLayer& layer, const Field& field) {
  const auto* layer_fields = dynamic_cast<const ILayerFields*>(&layer);
  if (layer_fields == nullptr) return field.AliasName;
  const std::int32_t index = layer_fields->FindField(field.Name);
  return index < 0 ? field.AliasName : layer_fields->FieldInfo(index).Alias;
}

bool IsListed(const Field& field, StoredMeasures measures) {
  return IsTransferable(field) && (measures == StoredMeasures::Listed || !IsStoredMeasure(field));
}

// Every field that a user may see, whether it can be carried over or not.
std::vector<TransferableField> ShownFields(const IFeatureLayer& layer) {
  std::vector<TransferableField> fields;
  for (const FieldRef& field : *layer.FeatureClass()->Fields()) {
    if (field->Type == esriFieldTypeOID || field->Type == esriFieldTypeGeometry) continue;
    fields.push_back({field, AliasOf(layer, *field)});
  }
  return fields;
}

// The places of the fields that a user may mean.
std::vector<std::size_t> Meant(const std::vector<TransferableField>& fields, const std::string& name) {
  using Same = bool (*)(const std::string&, const std::string&);
  const Same exactly = [](const std::string& a, const std::string& b) { return a == b; };
  const Same but_for_case = [](const std::string& a, const std::string& b) { return FoldedCase(a) == FoldedCase(b); };
  for (const bool by_alias : {false, true}) {
    for (const Same same : {exactly, but_for_case}) {
      std::vector<std::size_t> called;
      for (std::size_t index = 0; index < fields.size(); ++index) {
        if (same(by_alias ? fields[index].alias : fields[index].field->Name, name)) called.push_back(index);
      }
      if (!called.empty()) return called;
    }
  }
  return {};
}

Objection Unsure(const IFeatureLayer& layer, std::string_view parameter, const std::string& name,
                 const std::vector<TransferableField>& fields, const std::vector<std::size_t>& meant) {
  std::string several;
  for (const std::size_t index : meant) several += (several.empty() ? "" : ", ") + fields[index].field->Name;
  return {std::string(parameter), "'" + name + "' may be one of several fields of '" + layer.Name() +
                                      "'. Give the name of one, or another alias: " + several + "."};
}

Objection NoSuchField(const IFeatureLayer& layer, std::string_view parameter, const std::string& name,
                      StoredMeasures measures) {
  std::string listed;
  for (const TransferableField& field : TransferableFields(layer, measures)) {
    listed += (listed.empty() ? "" : ", ") + field.alias;
  }
  return {std::string(parameter), "'" + layer.Name() + "' has no field '" + name + "'. It has: " +
                                      (listed.empty() ? "none that can be carried over" : listed) + "."};
}

}  // namespace

std::vector<TransferableField> TransferableFields(const IFeatureLayer& layer, StoredMeasures measures) {
  std::vector<TransferableField> fields = ShownFields(layer);
  std::erase_if(fields, [&](const TransferableField& one) { return !IsListed(*one.field, measures); });
  return fields;
}

FieldChoice FieldsCalled(const IFeatureLayer& layer, StoredMeasures measures, const std::vector<std::string>& names,
                         std::string_view parameter) {
  FieldChoice choice;
  const std::vector<TransferableField> shown = ShownFields(layer);
  std::vector<bool> wanted(shown.size());
  for (const std::string& name : names) {
    const std::vector<std::size_t> meant = Meant(shown, name);
    if (meant.size() > 1) {
      choice.objection = Unsure(layer, parameter, name, shown, meant);
      return choice;
    }
    if (meant.empty() || !IsListed(*shown[meant.front()].field, measures)) {
      choice.objection = NoSuchField(layer, parameter, name, measures);
      return choice;
    }
    wanted[meant.front()] = true;
  }
  for (std::size_t index = 0; index < shown.size(); ++index) {
    if (wanted[index]) choice.fields->Add(shown[index].field);
  }
  return choice;
}

FieldChoice AllFields(const IFeatureLayer& layer, StoredMeasures measures) {
  FieldChoice choice;
  for (const TransferableField& field : TransferableFields(layer, measures)) choice.fields->Add(field.field);
  return choice;
}

}  // namespace tessarine
