#include "engine/ogr_fields.h"

#include <array>
#include <charconv>
#include <cmath>

#include "platform/fault.h"
#include "platform/text_formats.h"

namespace tessarine::engine {
namespace {

esriFieldType TypeOf(const OGRFieldDefn& field) {
  switch (field.GetType()) {
    case OFTInteger: {
      const bool small = field.GetSubType() == OFSTInt16 || field.GetSubType() == OFSTBoolean ||
                         (field.GetWidth() > 0 && field.GetWidth() <= 4);
      return small ? esriFieldTypeSmallInteger : esriFieldTypeInteger;
    }
    case OFTInteger64:
      return esriFieldTypeDouble;
    case OFTReal:
      return field.GetSubType() == OFSTFloat32 ? esriFieldTypeSingle : esriFieldTypeDouble;
    case OFTDate:
    case OFTTime:
    case OFTDateTime:
      return esriFieldTypeDate;
    case OFTBinary:
      return esriFieldTypeBlob;
    default:
      return esriFieldTypeString;
  }
}

FieldRef AttributeField(const OGRFieldDefn& definition) {
  auto field = std::make_shared<Field>();
  field->Name = definition.GetNameRef();
  const char* alias = definition.GetAlternativeNameRef();
  field->AliasName = alias != nullptr && *alias != '\0' ? alias : field->Name;
  field->Type = TypeOf(definition);
  if (field->Type == esriFieldTypeString) {
    field->Length = definition.GetWidth();
  } else if (field->Type != esriFieldTypeDate && field->Type != esriFieldTypeBlob) {
    field->Precision = definition.GetWidth();
    field->Scale = definition.GetPrecision();
  }
  field->IsNullable = definition.IsNullable() != 0;
  return field;
}

FieldRef OidField(OGRLayer& layer, bool is_shapefile) {
  auto field = std::make_shared<Field>();
  const std::string column = layer.GetFIDColumn();
  field->Name = !column.empty() ? column : is_shapefile ? "FID" : "OBJECTID";
  field->AliasName = field->Name;
  field->Type = esriFieldTypeOID;
  field->Editable = false;
  field->IsNullable = false;
  return field;
}

FieldRef ShapeField(OGRLayer& layer, esriGeometryType shape_type, const SpatialReferenceRef& reference) {
  auto field = std::make_shared<Field>();
  const std::string column = layer.GetGeometryColumn();
  field->Name = column.empty() ? "Shape" : column;
  field->AliasName = field->Name;
  field->Type = esriFieldTypeGeometry;
  field->GeometryDef = std::make_shared<GeometryDef>();
  field->GeometryDef->GeometryType = shape_type;
  field->GeometryDef->SpatialReference = reference;
  return field;
}

std::string JoinedList(const OGRFeature& feature, int index) {
  std::string text = feature.GetFieldAsString(index);
  // OGR writes "(n:a,b,c)".
  const std::size_t colon = text.find(':');
  if (text.size() > 1 && text.front() == '(' && text.back() == ')' && colon != std::string::npos) {
    return text.substr(colon + 1, text.size() - colon - 2);
  }
  return text;
}

Variant DateOf(const OGRFeature& feature, int index) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
  float second = 0.0F;
  if (feature.GetFieldAsDateTime(index, &year, &month, &day, &hour, &minute, &second, &zone) == 0) return Null{};
  if (feature.GetFieldDefnRef(index)->GetType() == OFTTime) {
    return Date{(hour * 3600 + minute * 60 + static_cast<double>(second)) / 86400.0};
  }
  return MakeDate(year, month, day, hour, minute, static_cast<int>(second));
}

bool PrintsAs(double value, int decimals, std::string_view beginning) {
  std::array<char, 400> room;
  const auto end = std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed, decimals);
  return std::string_view(room.data(), static_cast<std::size_t>(end.ptr - room.data())).starts_with(beginning);
}

}  // namespace

FieldMap MapFields(OGRLayer& layer, esriGeometryType shape_type, const SpatialReferenceRef& reference,
                   bool is_shapefile) {
  FieldMap map;
  auto fields = std::make_shared<Fields>();
  fields->AddField(OidField(layer, is_shapefile));
  if (shape_type != esriGeometryNull) {
    map.shape_index = 1;
    map.first_attribute = 2;
    fields->AddField(ShapeField(layer, shape_type, reference));
  }
  const OGRFeatureDefn& definition = *layer.GetLayerDefn();
  for (int index = 0; index < definition.GetFieldCount(); ++index) {
    fields->AddField(AttributeField(*definition.GetFieldDefn(index)));
  }
  map.fields = std::move(fields);
  return map;
}

std::unique_ptr<OGRFieldDefn> OgrFieldOf(const Field& field, bool dbase) {
  auto definition = std::make_unique<OGRFieldDefn>(field.Name.c_str(), OFTString);
  switch (field.Type) {
    case esriFieldTypeSmallInteger:
      definition->SetType(OFTInteger);
      definition->SetSubType(OFSTInt16);
      definition->SetWidth(field.Precision);
      break;
    case esriFieldTypeInteger:
      definition->SetType(OFTInteger);
      definition->SetWidth(field.Precision);
      break;
    case esriFieldTypeSingle:
    case esriFieldTypeDouble:
      definition->SetType(OFTReal);
      if (field.Type == esriFieldTypeSingle) definition->SetSubType(OFSTFloat32);
      definition->SetWidth(field.Precision);
      definition->SetPrecision(field.Scale);
      break;
    case esriFieldTypeDate:
      // A dBASE table keeps days only.
      definition->SetType(dbase ? OFTDate : OFTDateTime);
      break;
    default:
      definition->SetWidth(field.Length);
  }
  if (!field.AliasName.empty() && field.AliasName != field.Name) {
    definition->SetAlternativeName(field.AliasName.c_str());
  }
  return definition;
}

Variant ValueOf(const OGRFeature& feature, int index) {
  if (feature.IsFieldSetAndNotNull(index) == 0) return Null{};
  const OGRFieldDefn& field = *feature.GetFieldDefnRef(index);
  switch (field.GetType()) {
    case OFTInteger:
      if (TypeOf(field) == esriFieldTypeSmallInteger)
        return static_cast<std::int16_t>(feature.GetFieldAsInteger(index));
      return static_cast<std::int32_t>(feature.GetFieldAsInteger(index));
    case OFTInteger64:
      return static_cast<double>(feature.GetFieldAsInteger64(index));
    case OFTReal:
      if (field.GetSubType() == OFSTFloat32) return static_cast<float>(feature.GetFieldAsDouble(index));
      return feature.GetFieldAsDouble(index);
    case OFTDate:
    case OFTTime:
    case OFTDateTime:
      return DateOf(feature, index);
    case OFTIntegerList:
    case OFTInteger64List:
    case OFTRealList:
    case OFTStringList:
      return JoinedList(feature, index);
    case OFTBinary:
      return Null{};
    default:
      return feature.GetFieldAsString(index);
  }
}

std::string_view NumberInColumn(double value, std::size_t width, int decimals, std::span<char> room) {
  for (; decimals >= 0; --decimals) {
    const auto end = std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed, decimals);
    const auto size = static_cast<std::size_t>(end.ptr - room.data());
    if (end.ec == std::errc() && size <= width) return {room.data(), size};
  }
  return {};
}

AttributeWriter::AttributeWriter(const OGRFeatureDefn& definition, bool dbase) {
  for (int index = 0; index < definition.GetFieldCount(); ++index) {
    const OGRFieldDefn& field = *definition.GetFieldDefn(index);
    Column column{field.GetType(), field.GetWidth(), field.GetPrecision(), 0.0};
    if (dbase && column.type == OFTReal && column.width > 0) {
      // The sign and the point take a place each.
      const int whole_places = column.width - column.decimals - (column.decimals > 0 ? 2 : 1);
      column.safe_limit = std::pow(10.0, whole_places) - 1.0;
    }
    columns_.push_back(column);
  }
}

double AttributeWriter::Fitted(double value, const Column& column, const char* name) const {
  std::array<char, 400> room;
  const std::string_view text = NumberInColumn(value, static_cast<std::size_t>(column.width), column.decimals, room);
  if (text.empty()) {
    Raise(kOverflow, "The value " + NumberText(value) + " doesn't fit the field '" + name + "' of width " +
                         std::to_string(column.width) + ".");
  }
  double number = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  // OGR prints all decimals and cuts them off at the width: a number just below the text would lose its last digit.
  if (PrintsAs(number, column.decimals, text)) return number;
  const double above = std::nextafter(number, std::copysign(HUGE_VAL, number));
  return PrintsAs(above, column.decimals, text) ? above : number;
}

void AttributeWriter::WriteNumber(OGRFeature& feature, int index, const Variant& value) const {
  const Column& column = columns_[static_cast<std::size_t>(index)];
  if (column.type == OFTInteger) {
    feature.SetField(index, static_cast<int>(value.AsLong()));
  } else if (column.type == OFTInteger64) {
    const double whole = std::round(value.AsDouble());
    if (!(std::fabs(whole) < 9.2e18)) Raise(kOverflow, "The value " + NumberText(whole) + " is too large.");
    feature.SetField(index, static_cast<GIntBig>(whole));
  } else {
    double number = value.AsDouble();
    if (!std::isfinite(number)) Raise(kOverflow, "The value is no finite number.");
    if (column.safe_limit != 0.0 && std::fabs(number) > column.safe_limit) {
      number = Fitted(number, column, feature.GetFieldDefnRef(index)->GetNameRef());
    }
    feature.SetField(index, number);
  }
}

void AttributeWriter::Write(OGRFeature& feature, int index, const Variant& value) const {
  if (value.IsNull() || value.IsEmpty()) {
    feature.SetFieldNull(index);
    return;
  }
  try {
    switch (columns_[static_cast<std::size_t>(index)].type) {
      case OFTInteger:
      case OFTInteger64:
      case OFTReal:
        WriteNumber(feature, index, value);
        return;
      case OFTDate:
      case OFTTime:
      case OFTDateTime: {
        const DateParts parts = Split(value.AsDate());
        feature.SetField(index, parts.year, parts.month, parts.day, parts.hour, parts.minute,
                         static_cast<float>(parts.second));
        return;
      }
      case OFTString:
        if (value.kind() == Variant::Kind::String) {
          feature.SetField(index, value.Text().c_str());
        } else {
          feature.SetField(index, value.AsText().c_str());
        }
        return;
      default:
        Raise(kTypeMismatch, "Such fields can't be written.");
    }
  } catch (const Fault& fault) {
    throw Fault(fault.Number(), fault.Source(),
                std::string("Field '") + feature.GetFieldDefnRef(index)->GetNameRef() + "': " + fault.Description(),
                fault.Line());
  }
}

}  // namespace tessarine::engine
