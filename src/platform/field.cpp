// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/field.h"

#include <algorithm>

#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine {

double GeometryDef::GridSize(std::int32_t level) const {
  const auto index = static_cast<std::size_t>(level);
  return level >= 0 && index < grid_sizes_.size() ? grid_sizes_[index] : 0.0;
}

void GeometryDef::SetGridSize(std::int32_t level, double size) {
  if (level < 0) Raise(kInvalidCall, "A grid level can't be negative.");
  const auto index = static_cast<std::size_t>(level);
  if (index >= grid_sizes_.size()) grid_sizes_.resize(index + 1);
  grid_sizes_[index] = size;
}

ObjectRef Field::Clone() const {
  auto copy = std::make_shared<Field>(*this);
  if (GeometryDef) copy->GeometryDef = std::make_shared<tessarine::GeometryDef>(*GeometryDef);
  return copy;
}

bool Field::IsEqual(const Object& other) const {
  const auto* field = dynamic_cast<const Field*>(&other);
  return field != nullptr && field->Name == Name && field->AliasName == AliasName && field->Type == Type &&
         field->Length == Length && field->Precision == Precision && field->Scale == Scale && field->Content == Content;
}

const FieldRef& Fields::Field(std::int32_t index) const {
  if (index < 0 || index >= FieldCount()) {
    Raise(kInvalidCall,
          "There is no field " + std::to_string(index) + " in a list of " + std::to_string(FieldCount()) + ".");
  }
  return fields_[static_cast<std::size_t>(index)];
}

std::int32_t Fields::FindField(std::string_view name) const {
  for (std::int32_t index = 0; index < FieldCount(); ++index) {
    if (EqualsIgnoringCase(fields_[static_cast<std::size_t>(index)]->Name, name)) return index;
  }
  return -1;
}

std::int32_t Fields::IndexOf(const tessarine::Field& field) const {
  const auto find = [this](const auto& matches) {
    const auto found = std::ranges::find_if(fields_, matches);
    return found == fields_.end() ? -1 : static_cast<std::int32_t>(found - fields_.begin());
  };
  const std::int32_t itself = find([&](const FieldRef& own) { return own.get() == &field; });
  if (itself >= 0) return itself;
  const std::int32_t exact = find([&](const FieldRef& own) { return IsAttribute(*own) && own->Name == field.Name; });
  if (exact >= 0) return exact;
  return find([&](const FieldRef& own) { return IsAttribute(*own) && EqualsIgnoringCase(own->Name, field.Name); });
}

}  // namespace tessarine
