// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/ogr_fields.h"

#include <algorithm>
#include <cmath>

#include "engine/filegdb_dates.h"
#include "engine/list_text.h"
#include "engine/wide_numbers.h"
#include "outputs/column_loss.h"
#include "platform/calendar.h"
#include "platform/free_name.h"
#include "platform/stored_class.h"
#include "platform/text_encoding.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

// A wider whole number reads back as a double; a column grows when a longer one is met.
constexpr int kLongestDbaseWhole = 18;
constexpr int kUniqueIdText = 38;
constexpr int kTimeText = 18;  // 12:34:56.789+01:00

// What OGR tells of a zone: 1 is a local time, 100 is UTC, and a step is a quarter of an hour.
constexpr int kUtc = 100, kMinutesPerStep = 15;

esriFieldType TypeOf(const OGRFieldDefn& field) {
  switch (field.GetType()) {
    case OFTInteger: {
      const bool small =
          field.GetSubType() == OFSTInt16 || field.GetSubType() == OFSTBoolean || IsShortWhole(field.GetWidth());
      return small ? esriFieldTypeSmallInteger : esriFieldTypeInteger;
    }
    case OFTInteger64:
      return esriFieldTypeInteger64;
    case OFTReal:
      return field.GetSubType() == OFSTFloat32 ? esriFieldTypeSingle : esriFieldTypeDouble;
    case OFTDate:
    case OFTTime:
    case OFTDateTime:
      return esriFieldTypeDate;
    case OFTBinary:
      return esriFieldTypeBlob;
    default:
      return field.GetSubType() == OFSTUUID ? esriFieldTypeGUID : esriFieldTypeString;
  }
}

DateContent ContentOf(OGRFieldType type) {
  return type == OFTDate ? DateContent::Day : type == OFTTime ? DateContent::Time : DateContent::DayAndTime;
}

FieldRef AttributeField(const OGRFieldDefn& definition, ColumnStore store) {
  auto field = std::make_shared<Field>();
  field->Name = ReadableText(definition.GetNameRef());
  const char* alias = definition.GetAlternativeNameRef();
  field->AliasName = alias != nullptr && *alias != '\0' ? ReadableText(alias) : field->Name;
  field->Type = store == ColumnStore::Dbase && IsWideWhole(definition) ? esriFieldTypeInteger64 : TypeOf(definition);
  if (field->Type == esriFieldTypeDate) field->Content = ContentOf(definition.GetType());
  SetStoredWidth(*field, definition.GetWidth(), definition.GetPrecision());
  field->IsNullable = definition.IsNullable() != 0;
  return field;
}

// The name, or one made of it that no attribute bears.
std::string FreeName(const std::string& name, const Fields& attributes) {
  return FirstFreeOfOwn(name, [&](const std::string& candidate) { return attributes.FindField(candidate) >= 0; });
}

FieldRef OidField(OGRLayer& layer, ColumnStore store, const Fields& attributes) {
  const std::string column = layer.GetFIDColumn();
  return StoredOidField(FreeName(!column.empty()               ? column
                                 : store == ColumnStore::Dbase ? "FID"
                                                               : "OBJECTID",
                                 attributes));
}

FieldRef ShapeField(OGRLayer& layer, esriGeometryType shape_type, const SpatialReferenceRef& reference,
                    const Fields& attributes) {
  const std::string column = layer.GetGeometryColumn();
  FieldRef field = StoredShapeField(FreeName(column.empty() ? "Shape" : column, attributes), shape_type, reference);
  field->GeometryDef->HasZ = wkbHasZ(layer.GetGeomType());
  field->GeometryDef->HasM = wkbHasM(layer.GetGeomType());
  return field;
}

struct ReadMoment {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
  float second = 0.0F;
  bool is_there = false;

  ReadMoment(const OGRFeature& feature, int index)
      : is_there(feature.GetFieldAsDateTime(index, &year, &month, &day, &hour, &minute, &second, &zone) != 0) {}

  // Formats that keep dates as digits take any; a minute may end with a leap second.
  [[nodiscard]] bool IsPossible(OGRFieldType type) const {
    const bool time = hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0.0F && second < 61.0F;
    return time && (type == OFTTime || IsCalendarDay(year, month, day));
  }
};

Variant DateOf(const OGRFeature& feature, int index, ColumnStore store) {
  const ReadMoment read(feature, index);
  const OGRFieldType type = feature.GetFieldDefnRef(index)->GetType();
  if (!read.is_there) return Null{};
  if (!read.IsPossible(type)) return ImpossibleDate();
  // A single is right to the thousandth.
  const double second = std::round(static_cast<double>(read.second) * 1000.0) / 1000.0;
  Date date;
  if (type == OFTTime) {
    date.serial = (read.hour * 3600 + read.minute * 60 + second) / 86400.0;
    date.time_only = true;
  } else {
    date = MakeDate(read.year, read.month, read.day, read.hour, read.minute, second);
    if (store == ColumnStore::FileGeodatabase) date = WithoutLateness(date);
  }
  // OGR calls the times of a file geodatabase UTC, which the format doesn't say.
  if (read.zone > 1 && store != ColumnStore::FileGeodatabase)
    date.zone = static_cast<std::int16_t>((read.zone - kUtc) * kMinutesPerStep);
  return date;
}

bool IsGeodatabase(ColumnStore store) {
  return store == ColumnStore::FileGeodatabase || store == ColumnStore::PersonalGeodatabase;
}

void DefineDate(DateContent content, ColumnStore store, OGRFieldDefn& definition) {
  switch (content) {
    case DateContent::Time:
      definition.SetType(store == ColumnStore::Other ? OFTTime : OFTString);
      if (store != ColumnStore::Other) definition.SetWidth(kTimeText);
      return;
    case DateContent::Day:
      definition.SetType(IsGeodatabase(store) ? OFTDateTime : OFTDate);
      return;
    case DateContent::DayAndTime:
      // A dBASE table keeps days only.
      definition.SetType(store == ColumnStore::Dbase ? OFTDate : OFTDateTime);
  }
}

void DefineText(int length, ColumnStore store, OGRFieldDefn& definition) {
  definition.SetWidth(store == ColumnStore::Dbase ? std::min(length, kLongestDbaseText) : length);
}

void DefineWhole64(const Field& field, ColumnStore store, OGRFieldDefn& definition) {
  // A geodatabase has no such column: a double keeps all that have up to 15 digits.
  definition.SetType(IsGeodatabase(store) ? OFTReal : OFTInteger64);
  if (store == ColumnStore::Dbase) definition.SetWidth(std::min(field.Precision, kLongestDbaseWhole));
}

}  // namespace

ColumnStore ColumnStoreOf(FileStore store) {
  switch (store) {
    case FileStore::Shapefile:
      return ColumnStore::Dbase;
    case FileStore::FileGeodatabase:
      return ColumnStore::FileGeodatabase;
    case FileStore::PersonalGeodatabase:
      return ColumnStore::PersonalGeodatabase;
    default:
      return ColumnStore::Other;
  }
}

FieldMap MapFields(OGRLayer& layer, esriGeometryType shape_type, const SpatialReferenceRef& reference,
                   ColumnStore store) {
  FieldMap map;
  Fields attributes;
  const OGRFeatureDefn& definition = *layer.GetLayerDefn();
  for (int index = 0; index < definition.GetFieldCount(); ++index) {
    attributes.AddField(AttributeField(*definition.GetFieldDefn(index), store));
  }
  auto fields = std::make_shared<Fields>();
  fields->AddField(OidField(layer, store, attributes));
  if (shape_type != esriGeometryNull) {
    map.shape_index = 1;
    map.first_attribute = 2;
    fields->AddField(ShapeField(layer, shape_type, reference, attributes));
  }
  for (const FieldRef& field : attributes) fields->AddField(field);
  map.fields = std::move(fields);
  return map;
}

std::unique_ptr<OGRFieldDefn> OgrFieldOf(const Field& field, ColumnStore store) {
  auto definition = std::make_unique<OGRFieldDefn>(field.Name.c_str(), OFTString);
  switch (field.Type) {
    case esriFieldTypeSmallInteger:
      definition->SetType(OFTInteger);
      definition->SetSubType(OFSTInt16);
      if (store != ColumnStore::Other) definition->SetWidth(field.Precision);
      break;
    case esriFieldTypeInteger:
      definition->SetType(OFTInteger);
      if (store != ColumnStore::Other) definition->SetWidth(field.Precision);
      break;
    case esriFieldTypeInteger64:
      DefineWhole64(field, store, *definition);
      break;
    case esriFieldTypeSingle:
    case esriFieldTypeDouble:
      definition->SetType(OFTReal);
      if (field.Type == esriFieldTypeSingle) definition->SetSubType(OFSTFloat32);
      // Widths are those of decimal texts. A server would make a column of so many digits, and refuse what has more.
      if (store == ColumnStore::Other) break;
      definition->SetWidth(field.Precision);
      definition->SetPrecision(field.Scale);
      break;
    case esriFieldTypeDate:
      DefineDate(field.Content, store, *definition);
      break;
    case esriFieldTypeGUID:
    case esriFieldTypeGlobalID:
      DefineText(kUniqueIdText, store, *definition);
      break;
    default:
      DefineText(field.Length, store, *definition);
  }
  if (!field.AliasName.empty() && field.AliasName != field.Name) {
    definition->SetAlternativeName(field.AliasName.c_str());
  }
  return definition;
}

bool IsImpossibleDate(const OGRFeature& feature, int index) {
  const OGRFieldType type = feature.GetFieldDefnRef(index)->GetType();
  if (type != OFTDate && type != OFTTime && type != OFTDateTime) return false;
  const ReadMoment read(feature, index);
  return read.is_there && !read.IsPossible(type);
}

Variant ValueOf(const OGRFeature& feature, int index, ColumnStore store) {
  if (feature.IsFieldSetAndNotNull(index) == 0) return Null{};
  const OGRFieldDefn& field = *feature.GetFieldDefnRef(index);
  switch (field.GetType()) {
    case OFTInteger:
      if (TypeOf(field) == esriFieldTypeSmallInteger)
        return static_cast<std::int16_t>(feature.GetFieldAsInteger(index));
      return static_cast<std::int32_t>(feature.GetFieldAsInteger(index));
    case OFTInteger64:
      return static_cast<std::int64_t>(feature.GetFieldAsInteger64(index));
    case OFTReal:
      if (field.GetSubType() == OFSTFloat32) return static_cast<float>(feature.GetFieldAsDouble(index));
      return feature.GetFieldAsDouble(index);
    case OFTDate:
    case OFTTime:
    case OFTDateTime:
      return DateOf(feature, index, store);
    case OFTIntegerList:
    case OFTInteger64List:
    case OFTRealList:
    case OFTStringList:
      return ListText(feature, index);
    case OFTBinary:
      return Null{};
    default:
      return feature.GetFieldAsString(index);
  }
}

}  // namespace tessarine::engine
