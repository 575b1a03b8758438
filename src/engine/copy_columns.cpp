// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/copy_columns.h"

#include <algorithm>

#include "engine/engine_fault.h"
#include "engine/list_text.h"
#include "engine/personal_geodatabase_values.h"
#include "outputs/column_loss.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

using Way = CopyColumn::Way;

bool IsTime(OGRFieldType type) { return type == OFTDate || type == OFTTime || type == OFTDateTime; }

/// The types of columns that a driver makes.
class DriverTypes {
 public:
  explicit DriverTypes(GDALDriver& driver)
      : names_(CSLTokenizeString2(driver.GetMetadataItem(GDAL_DMD_CREATIONFIELDDATATYPES), " ", 0)) {}
  // A driver that tells of none is asked when the column is made.
  [[nodiscard]] bool Has(OGRFieldType type) const {
    return names_.empty() || names_.FindString(OGRFieldDefn::GetFieldTypeName(type)) >= 0;
  }

 private:
  CPLStringList names_;
};

// Columns with ways of their own: dBASE tables, file geodatabases and GeoPackages.
bool IsFitted(const Format& format) { return format.updated_in_place; }

void BecomeText(CopyColumn& column, Way way) {
  column.way = way;
  column.definition->SetType(OFTString);
  column.definition->SetWidth(0);
  column.definition->SetPrecision(0);
}

std::unique_ptr<OGRFieldDefn> PlainDefinition(const OGRFieldDefn& source, const Format& format, bool same_format) {
  auto definition = std::make_unique<OGRFieldDefn>(&source);
  if (same_format) return definition;
  if (format.byte_widths && definition->GetType() == OFTString) definition->SetWidth(0);
  definition->SetNullable(1);
  definition->SetUnique(0);
  definition->SetDefault(nullptr);
  definition->SetDomainName("");
  // The widths of numbers are those of decimal texts; other formats would refuse what has no room in them.
  if (definition->GetType() != OFTString) {
    definition->SetWidth(0);
    definition->SetPrecision(0);
  }
  return definition;
}

CopyColumn ColumnFor(const FieldRef& field, const OGRFieldDefn& source, const DriverTypes& types, const Format& format,
                     bool same_format) {
  CopyColumn column;
  column.field = field;
  const ColumnStore store = ColumnStoreOf(format.store);
  const OGRFieldType type = source.GetType();
  column.definition = PlainDefinition(source, format, same_format);
  if (IsList(type)) {
    column.way = Way::Raw;
    if (!types.Has(type)) BecomeText(column, Way::List);
  } else if (type == OFTBinary) {
    column.way = types.Has(type) ? Way::Raw : Way::LeftOut;
  } else if (store != ColumnStore::Other || IsWideWhole(source)) {
    column.definition = OgrFieldOf(*field, store);
    column.way = Way::Value;
  } else if (IsTime(type)) {
    column.way = IsFitted(format) && type == OFTDateTime ? Way::Moment : Way::Raw;
    if (!types.Has(type)) BecomeText(column, Way::Text);
  } else if (type == OFTInteger64 && !types.Has(type)) {
    column.definition->SetType(OFTReal);
    column.definition->SetWidth(0);
  } else {
    const bool plain = type == OFTInteger || type == OFTInteger64 || type == OFTReal;
    column.way = plain && !IsFitted(format) ? Way::Raw : Way::Value;
  }
  return column;
}

// In UTC, which is all that some formats keep.
Variant InUtc(const Variant& value, ValueChange& change) {
  if (value.kind() != Variant::Kind::Date) return value;
  Date date = value.AsDate();
  if (date.zone == Date::kNoZone || date.zone == 0) return value;
  date.serial -= date.zone / 1440.0;
  date.zone = 0;
  change = ValueChange::ZoneToUtc;
  return date;
}

MadeColumn MadeOf(const Field& field, const CopyColumn& column, OGRFieldType made) {
  switch (field.Type) {
    case esriFieldTypeDate:
      return made == OFTString ? MadeColumn::Text : made == OFTDate ? MadeColumn::Day : MadeColumn::AsAsked;
    case esriFieldTypeInteger64:
      return made == OFTReal ? MadeColumn::Double : MadeColumn::AsAsked;
    case esriFieldTypeString:
      return column.definition->GetWidth() == kLongestDbaseText ? MadeColumn::DbaseText : MadeColumn::AsAsked;
    default:
      return MadeColumn::AsAsked;
  }
}

// What all rows alike lose in the column; empty for nothing.
std::string LossOf(const CopyColumn& column, OGRFieldType made) {
  if (column.way == Way::List) return "lists become texts.";
  if (column.is_clock && made == OFTString) return "times of day become texts.";
  return ForetoldLoss(*column.field, MadeOf(*column.field, column, made));
}

}  // namespace

CopyColumns::CopyColumns(const RowTraits& traits, const OGRFeatureDefn& source, GDALDriver& driver,
                         const Format& format, bool same_format)
    : first_attribute_(traits.fields.first_attribute) {
  const DriverTypes types(driver);
  std::vector<std::string> names;
  for (int index = 0; index < source.GetFieldCount(); ++index) {
    const FieldRef& field = traits.fields.fields->Field(first_attribute_ + index);
    columns_.push_back(ColumnFor(field, *source.GetFieldDefn(index), types, format, same_format));
    columns_.back().source = index;
    names.push_back(field->Name);
  }
  const std::vector<std::string> legal = FreeLegalNames(format.field_names, names);
  std::vector<OGRFieldDefn*> definitions;
  for (std::size_t index = 0; index < columns_.size(); ++index) {
    columns_[index].definition->SetName(legal[index].c_str());
    if (columns_[index].way != Way::LeftOut) definitions.push_back(columns_[index].definition.get());
  }
  if (ColumnStoreOf(format.store) == ColumnStore::PersonalGeodatabase) ShareOutRow(definitions);
}

void CopyColumns::TakeForClocks(std::span<const std::string> names, GDALDriver& driver) {
  const bool has_clocks = DriverTypes(driver).Has(OFTTime);
  for (CopyColumn& column : columns_) {
    column.is_clock = std::ranges::find(names, column.field->Name) != names.end();
    if (!column.is_clock || !has_clocks) continue;
    column.way = Way::Clock;
    column.definition->SetType(OFTTime);
    column.definition->SetWidth(0);
  }
}

void CopyColumns::AddTo(OGRLayer& layer, const std::string& shown) {
  const OGRFeatureDefn& made = *layer.GetLayerDefn();
  bool any = columns_.empty();
  for (CopyColumn& column : columns_) {
    column.target = -1;
    if (column.way == Way::LeftOut) continue;
    const GdalErrorScope errors;
    // Some formats have columns of their own from the start.
    int standing = made.GetFieldIndex(column.definition->GetNameRef());
    while (standing >= 0 && made.GetFieldDefn(standing)->GetType() != column.definition->GetType()) {
      column.definition->SetName((std::string(column.definition->GetNameRef()) + "_").c_str());
      standing = made.GetFieldIndex(column.definition->GetNameRef());
    }
    const int before = made.GetFieldCount();
    const bool created = layer.CreateField(column.definition.get()) == OGRERR_NONE;
    if (created && made.GetFieldCount() == before + 1) {
      column.target = before;
    } else if (standing >= 0 && made.GetFieldDefn(standing)->GetType() == column.definition->GetType()) {
      column.target = standing;
    } else {
      column.way = Way::LeftOut;
      continue;
    }
    any = true;
    const OGRFieldType type = made.GetFieldDefn(column.target)->GetType();
    if (column.way == Way::Clock && type == OFTString) column.way = Way::Value;
    if (column.way == Way::Raw && type != column.definition->GetType()) {
      column.way = IsList(column.definition->GetType()) ? Way::List : type == OFTString ? Way::Text : Way::Value;
    }
  }
  if (!any) {
    Raise(kInvalidCall,
          "'" + shown + "' can't be written: its format keeps no fields of a user's own. Name another format.");
  }
}

ValueChange CopyColumns::Copy(const CopyColumn& column, const OgrRow& from, OgrRow& to) const {
  if (column.way == Way::LeftOut) return ValueChange::None;
  OGRFeature& source = from.Feature();
  OGRFeature& target = to.Feature();
  // A format without a list of columns has those that its records name: none is left unset.
  if (source.IsFieldSetAndNotNull(column.source) == 0) {
    target.SetFieldNull(column.target);
    return ValueChange::None;
  }
  const std::int32_t index = to.Fields()->FieldCount() - target.GetFieldCount() + column.target;
  ValueChange change = ValueChange::None;
  switch (column.way) {
    case Way::Raw:
      if (IsImpossibleDate(source, column.source)) {
        target.SetFieldNull(column.target);
        return ValueChange::Unreadable;
      }
      target.SetField(column.target, source.GetRawFieldRef(column.source));
      return change;
    case Way::List:
      return to.SetValue(index, ListText(source, column.source));
    case Way::Clock:
      target.SetField(column.target, source.GetFieldAsString(column.source));
      return target.IsFieldSetAndNotNull(column.target) != 0 ? change : ValueChange::Unreadable;
    case Way::Text:
      return to.SetValue(index, std::string(source.GetFieldAsString(column.source)));
    case Way::Moment: {
      const Variant moment = InUtc(from.Value(first_attribute_ + column.source), change);
      const ValueChange fitted = to.SetValue(index, moment);
      return fitted == ValueChange::None ? change : fitted;
    }
    default:
      return to.SetValue(index, from.Value(first_attribute_ + column.source));
  }
}

std::string CopyColumns::MadeName(const CopyColumn& column, const OGRFeatureDefn& made) const {
  return column.target < 0 ? "" : made.GetFieldDefn(column.target)->GetNameRef();
}

std::vector<std::string> CopyColumns::Foretold(const OGRFeatureDefn& made) const {
  std::vector<std::string> sentences;
  for (const CopyColumn& column : columns_) {
    const std::string name = MadeName(column, made);
    if (name.empty()) {
      sentences.push_back("The field '" + column.field->Name + "' is left out: the format keeps nothing of its kind.");
      continue;
    }
    if (name != column.field->Name) {
      sentences.push_back("The field '" + column.field->Name + "' is written as '" + name + "'.");
    }
    const std::string loss = LossOf(column, made.GetFieldDefn(column.target)->GetType());
    if (!loss.empty()) sentences.push_back("In the field '" + name + "', " + loss);
  }
  return sentences;
}

}  // namespace tessarine::engine
