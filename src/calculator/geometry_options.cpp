// SPDX-License-Identifier: GPL-2.0-or-later
#include "calculator/geometry_options.h"

namespace tessarine {
namespace {

enum EntryPosition : std::int32_t { kOptionId, kFirstField, kSecondField, kEntrySize };

enum OptionsPosition : std::int32_t {
  kLayer,
  kAllRecords,
  kOptions,
  kUseFlags,
  kSpheroidName,
  kSemiMajor,
  kSemiMinor,
  kGeocentric,
  kOptionsSize,
};

std::shared_ptr<VarArray> Checked(std::shared_ptr<VarArray> carrier, std::int32_t size, const char* what) {
  if (Require(carrier, what)->Count() != size) {
    Raise(kInvalidCall, std::string(what) + " has " + std::to_string(carrier->Count()) + " elements instead of " +
                            std::to_string(size) + ".");
  }
  return carrier;
}

std::shared_ptr<VarArray> ListOfEntries(const std::vector<OptionEntry>& entries) {
  auto list = std::make_shared<VarArray>();
  for (const OptionEntry& entry : entries) list->Add(entry.Carrier());
  return list;
}

std::shared_ptr<VarArray> ListOfFlags(const ComboUseFlags& flags) {
  auto list = std::make_shared<VarArray>();
  for (const bool flag : flags) list->Add(flag);
  return list;
}

std::shared_ptr<VarArray> ListAt(const VarArray& carrier, std::int32_t position, const char* what) {
  return Require(carrier.Element(position).AsObject<VarArray>(), what);
}

}  // namespace

OptionEntry::OptionEntry(std::int16_t option_id, std::string first_field, std::string second_field)
    : carrier_(std::make_shared<VarArray>()) {
  carrier_->Add(option_id);
  carrier_->Add(std::move(first_field));
  carrier_->Add(std::move(second_field));
}

OptionEntry::OptionEntry(std::shared_ptr<VarArray> carrier)
    : carrier_(Checked(std::move(carrier), kEntrySize, "OptionEntry")) {}

std::int32_t OptionEntry::OptionId() const { return carrier_->Element(kOptionId).AsLong(); }
std::string OptionEntry::FirstField() const { return carrier_->Element(kFirstField).AsText(); }
std::string OptionEntry::SecondField() const { return carrier_->Element(kSecondField).AsText(); }
void OptionEntry::SetFirstField(const std::string& name) { carrier_->SetElement(kFirstField, name); }
void OptionEntry::SetSecondField(const std::string& name) { carrier_->SetElement(kSecondField, name); }

std::string OptionEntry::Field(std::int32_t position) const { return position == 0 ? FirstField() : SecondField(); }

bool UsesField(const ComboUseFlags& flags, std::int32_t option_id, std::int32_t position) {
  const std::int32_t index = ComboIndex(option_id, position);
  return index >= 0 && flags[static_cast<std::size_t>(index)];
}

std::vector<std::string> FieldNamesInUse(const std::vector<OptionEntry>& entries, const ComboUseFlags& flags) {
  std::vector<std::string> names;
  for (const OptionEntry& entry : entries) {
    for (const std::int32_t position : {0, 1}) {
      if (UsesField(flags, entry.OptionId(), position)) names.push_back(entry.Field(position));
    }
  }
  return names;
}

GeometryOptions::GeometryOptions(const GeometryChoices& choices) : carrier_(std::make_shared<VarArray>()) {
  carrier_->Add(choices.layer);
  carrier_->Add(choices.all_records);
  carrier_->Add(ListOfEntries(choices.options));
  carrier_->Add(ListOfFlags(choices.use_flags));
  carrier_->Add(choices.spheroid_name);
  carrier_->Add(choices.semi_major);
  carrier_->Add(choices.semi_minor);
  carrier_->Add(choices.geocentric);
}

GeometryOptions::GeometryOptions(std::shared_ptr<VarArray> carrier)
    : carrier_(Checked(std::move(carrier), kOptionsSize, "GeometryOptions")) {}

std::shared_ptr<IFeatureLayer> GeometryOptions::Layer() const {
  return carrier_->Element(kLayer).AsObject<IFeatureLayer>();
}

bool GeometryOptions::AllRecords() const { return carrier_->Element(kAllRecords).AsBoolean(); }

std::vector<OptionEntry> GeometryOptions::Options() const {
  std::vector<OptionEntry> entries;
  for (const Variant& element : *ListAt(*carrier_, kOptions, "the options of GeometryOptions")) {
    entries.emplace_back(element.AsObject<VarArray>());
  }
  return entries;
}

ComboUseFlags GeometryOptions::UseFlags() const {
  const auto list =
      Checked(ListAt(*carrier_, kUseFlags, "ComboUseFlags"), static_cast<std::int32_t>(kComboCount), "ComboUseFlags");
  ComboUseFlags flags{};
  std::size_t index = 0;
  for (const Variant& flag : *list) flags[index++] = flag.AsBoolean();
  return flags;
}

std::string GeometryOptions::SpheroidName() const { return carrier_->Element(kSpheroidName).AsText(); }
double GeometryOptions::SemiMajor() const { return carrier_->Element(kSemiMajor).AsDouble(); }
double GeometryOptions::SemiMinor() const { return carrier_->Element(kSemiMinor).AsDouble(); }
bool GeometryOptions::Geocentric() const { return carrier_->Element(kGeocentric).AsBoolean(); }

}  // namespace tessarine
