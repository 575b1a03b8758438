// SPDX-License-Identifier: GPL-2.0-or-later
#include "planetary/carried_fields.h"

#include "outputs/formats.h"
#include "platform/text_formats.h"
#include "support/MyGeneralOperations.h"

namespace tessarine {
namespace {

bool CanBeCarried(const Field& field) {
  switch (field.Type) {
    case esriFieldTypeGeometry:
    case esriFieldTypeOID:
    case esriFieldTypeBlob:
    case esriFieldTypeRaster:
      return false;
    default:
      return true;
  }
}

bool BeginsCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The characters of a text, each with all its bytes.
std::vector<std::string> Characters(const std::string& text) {
  std::vector<std::string> characters;
  for (const char c : text) {
    if (BeginsCharacter(c) || characters.empty()) characters.emplace_back();
    characters.back() += c;
  }
  return characters;
}

bool IsTaken(const std::string& name, const VarArray& fields) {
  for (const Variant& element : fields) {
    if (EqualsIgnoringCase(element.AsObject<Field>()->Name, name)) return true;
  }
  return false;
}

// A name that came out twice, or that letters beyond ASCII make too long for its column, follows the rule of all other
// dBASE tables.
std::string FreeShapefileName(const std::string& name, const std::shared_ptr<VarArray>& fields) {
  const std::string cut = ShapefileFieldName(name);
  if (cut.size() <= kDbaseNameLength && !IsTaken(cut, *fields)) return cut;
  return MyGeneralOperations::ReturnDBASEFieldName(cut, fields);
}

}  // namespace

std::string ShapefileFieldName(const std::string& name) {
  const bool digit_first = !name.empty() && IsDigit(name.front());
  std::vector<std::string> characters = Characters(name);
  if (characters.size() > kDbaseNameLength) characters.resize(kDbaseNameLength);
  // "Z" takes the room of the digit where all the room is taken.
  const std::size_t first = digit_first && characters.size() == kDbaseNameLength ? 1 : 0;
  std::string cut = digit_first ? "Z" : "";
  for (std::size_t index = first; index < characters.size(); ++index) cut += characters[index];
  return cut;
}

std::vector<std::int32_t> CarriedPositions(const Fields& input) {
  std::vector<std::int32_t> positions;
  for (std::int32_t index = 0; index < input.FieldCount(); ++index) {
    if (CanBeCarried(*input.Field(index))) positions.push_back(index);
  }
  return positions;
}

CarriedFields CarryFields(const Fields& input, std::int32_t output_kind) {
  CarriedFields carried{std::make_shared<VarArray>(), std::make_shared<VarArray>()};
  for (const FieldRef& field : input) {
    if (!CanBeCarried(*field)) continue;
    const FieldRef copy = CloneOf(*field);
    if (output_kind == MyGeneralOperations::kShapefile) copy->Name = FreeShapefileName(field->Name, carried.fields);
    carried.names->Add(std::make_shared<StrArray>(StrArray{field->Name, copy->Name}));
    carried.fields->Add(copy);
  }
  return carried;
}

std::vector<CarriedField> CarriedUnder(const Fields& input, const VarArray& names) {
  std::vector<CarriedField> fields;
  const std::vector<std::int32_t> positions = CarriedPositions(input);
  for (std::size_t index = 0; index < positions.size(); ++index) {
    const auto pair = names.Element(static_cast<std::int32_t>(index)).AsObject<StrArray>();
    fields.push_back({input.Field(positions[index]), pair->Element(1)});
  }
  return fields;
}

}  // namespace tessarine
