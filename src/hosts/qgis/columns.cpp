// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/columns.h"

#include <qgsjsonutils.h>
#include <qgsvectordataprovider.h>

#include <QDateTime>
#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <string_view>
#include <utility>

#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "outputs/driver_facts.h"
#include "platform/fault.h"
#include "platform/free_name.h"
#include "platform/stored_class.h"
#include "platform/value_fit.h"

namespace tessarine::qgis {
namespace {

constexpr const char* kSixteenBitTypes[] = {"smallint", "int2", "int16"};

bool IsSixteenBits(const QgsField& field) {
  const QString type = field.typeName();
  for (const char* name : kSixteenBitTypes) {
    if (type.compare(QLatin1String(name), Qt::CaseInsensitive) == 0) return true;
  }
  return false;
}

bool IsUniqueId(const QgsField& field) {
  const QString type = field.typeName();
  return type.compare(QLatin1String("uuid"), Qt::CaseInsensitive) == 0 ||
         type.compare(QLatin1String("uniqueidentifier"), Qt::CaseInsensitive) == 0;
}

esriFieldType TypeOf(const QgsField& field) {
  switch (field.type()) {
    case QVariant::Bool:
      return esriFieldTypeSmallInteger;
    case QVariant::Int:
      return IsSixteenBits(field) || IsShortWhole(field.length()) ? esriFieldTypeSmallInteger : esriFieldTypeInteger;
    case QVariant::UInt:
    case QVariant::LongLong:
    case QVariant::ULongLong:
      return esriFieldTypeInteger64;
    case QVariant::Double:
      return esriFieldTypeDouble;
    case QVariant::Date:
    case QVariant::Time:
    case QVariant::DateTime:
      return esriFieldTypeDate;
    case QVariant::ByteArray:
      return esriFieldTypeBlob;
    default:
      return IsUniqueId(field) ? esriFieldTypeGUID : esriFieldTypeString;
  }
}

DateContent ContentOf(QVariant::Type type) {
  return type == QVariant::Date   ? DateContent::Day
         : type == QVariant::Time ? DateContent::Time
                                  : DateContent::DayAndTime;
}

FieldRef AttributeField(const QgsField& source, bool stored) {
  auto field = std::make_shared<Field>();
  field->Name = FromQt(source.name());
  field->AliasName = FromQt(source.displayName());
  field->Type = TypeOf(source);
  field->Content = ContentOf(source.type());
  SetStoredWidth(*field, source.length(), source.precision());
  field->Editable = stored && !source.isReadOnly();
  field->IsNullable = !(source.constraints().constraints() & QgsFieldConstraints::ConstraintNotNull);
  return field;
}

// File formats show their row identifier as an attribute, too.
int IdentifierAttribute(const QgsVectorLayer& layer) {
  if (layer.providerType() != QStringLiteral("ogr")) return Columns::kNoAttribute;
  const QgsAttributeList keys = layer.dataProvider()->pkAttributeIndexes();
  return keys.size() == 1 ? keys.front() : Columns::kNoAttribute;
}

std::string FreeName(const std::string& name, const QgsFields& fields) {
  return FirstFreeOfOwn(name, [&](const std::string& candidate) { return fields.lookupField(ToQt(candidate)) >= 0; });
}

FieldRef OidField(const QgsVectorLayer& layer, int identifier) {
  const QgsFields fields = layer.fields();
  if (identifier >= 0) return StoredOidField(FromQt(fields.at(identifier).name()));
  const bool shapefile = FactsOfLayer(layer).store == FileStore::Shapefile;
  return StoredOidField(FreeName(shapefile ? "FID" : "OBJECTID", fields));
}

FieldRef ShapeField(const QgsVectorLayer& layer, esriGeometryType type) {
  // Providers don't tell the name of the column.
  return StoredShapeField(FreeName("Shape", layer.fields()), type, ReferenceOf(layer.crs()));
}

Date DateOf(const QDateTime& time) {
  const QDate day = time.date();
  const QTime clock = time.time();
  Date date = MakeDate(day.year(), day.month(), day.day(), clock.hour(), clock.minute(),
                       clock.second() + clock.msec() / 1000.0);
  // Times without a zone come as local ones.
  if (time.timeSpec() != Qt::LocalTime) date.zone = static_cast<std::int16_t>(time.offsetFromUtc() / 60);
  return date;
}

Date DateOf(const QTime& time) {
  Date date{time.msecsSinceStartOfDay() / 86400000.0};
  date.time_only = true;
  return date;
}

QTime ClockOf(const DateParts& parts) { return {parts.hour, parts.minute, parts.second, parts.millisecond}; }

QVariant TimeOf(Date date, QVariant::Type type) {
  const DateParts parts = SplitToMilliseconds(date);
  if (type == QVariant::Time) return ClockOf(parts);
  const QDate day(parts.year, parts.month, parts.day);
  if (type == QVariant::Date) return day;
  if (date.zone == Date::kNoZone) return QDateTime(day, ClockOf(parts));
  return QDateTime(day, ClockOf(parts), Qt::OffsetFromUTC, date.zone * 60);
}

template <class Whole>
void LimitTo(ColumnLimits& limits) {
  limits.least = std::numeric_limits<Whole>::min();
  limits.most = std::numeric_limits<Whole>::max();
}

void LimitWhole(const QgsField& field, ColumnLimits& limits) {
  limits.kind = ColumnLimits::Kind::Whole;
  if (field.type() == QVariant::Bool) limits.least = 0, limits.most = 1;
  if (field.type() == QVariant::Int) LimitTo<std::int32_t>(limits);
  if (field.type() == QVariant::UInt) LimitTo<std::uint32_t>(limits);
  if (field.type() == QVariant::ULongLong) limits.least = 0;
  if (IsSixteenBits(field)) LimitTo<std::int16_t>(limits);
}

// Decimal numbers of databases: so many digits, sign and point not counted.
bool IsDecimal(const QgsField& field) {
  return field.length() > 0 && (field.typeName().startsWith(QStringLiteral("numeric"), Qt::CaseInsensitive) ||
                                field.typeName().startsWith(QStringLiteral("decimal"), Qt::CaseInsensitive));
}

void LimitDecimal(const QgsField& field, ColumnLimits& limits) {
  const int decimals = std::max(field.precision(), 0);
  constexpr int kSignAndPoint = 2;
  limits.LimitDecimals(field.length() + kSignAndPoint, decimals);
  // What would be rounded up to one digit more has no room.
  limits.farthest = std::nextafter(std::pow(10.0, field.length() - decimals) - 0.5 * std::pow(10.0, -decimals), 0.0);
}

ColumnLimits LimitsOf(const QgsField& field, bool dbase) {
  ColumnLimits limits;
  switch (field.type()) {
    case QVariant::Bool:
    case QVariant::Int:
    case QVariant::UInt:
    case QVariant::LongLong:
    case QVariant::ULongLong:
      LimitWhole(field, limits);
      if (dbase) limits.LimitPlaces(field.length());
      return limits;
    case QVariant::Double:
      limits.kind = ColumnLimits::Kind::Double;
      if (IsDecimal(field)) {
        LimitDecimal(field, limits);
      } else if (field.length() > 0 && (dbase || field.precision() > 0)) {
        // Rounded here, because dBASE drivers cut the places off that are too many.
        limits.LimitDecimals(field.length(), std::max(field.precision(), 0));
      }
      return limits;
    case QVariant::Date:
      limits.kind = ColumnLimits::Kind::Day;
      return limits;
    case QVariant::Time:
      limits.kind = ColumnLimits::Kind::Time;
      return limits;
    case QVariant::DateTime:
      limits.kind = ColumnLimits::Kind::DayAndTime;
      return limits;
    case QVariant::String:
      if (field.length() > 0) {
        (dbase ? limits.most_bytes : limits.most_characters) = static_cast<std::size_t>(field.length());
      }
      return limits;
    default:
      limits.kind = ColumnLimits::Kind::Unwritable;
      return limits;
  }
}

QVariant Plain(const Variant& value, const QgsField& field) {
  switch (value.kind()) {
    case Variant::Kind::LongLong:
      return static_cast<qlonglong>(value.AsLongLong());
    case Variant::Kind::Double:
      return value.AsDouble();
    case Variant::Kind::String:
      return ToQt(value.Text());
    case Variant::Kind::Date:
      return TimeOf(value.AsDate(), field.type());
    default:
      return QVariant(field.type());
  }
}

QVariant::Type StorageOf(const Field& field) {
  switch (field.Type) {
    case esriFieldTypeSmallInteger:
    case esriFieldTypeInteger:
      return QVariant::Int;
    case esriFieldTypeInteger64:
      return QVariant::LongLong;
    case esriFieldTypeSingle:
    case esriFieldTypeDouble:
      return QVariant::Double;
    case esriFieldTypeDate:
      return field.Content == DateContent::Day    ? QVariant::Date
             : field.Content == DateContent::Time ? QVariant::Time
                                                  : QVariant::DateTime;
    default:
      return QVariant::String;
  }
}

// Where a format lacks the type.
QVariant::Type NextBest(QVariant::Type type) {
  switch (type) {
    case QVariant::LongLong:
      return QVariant::Double;
    case QVariant::Date:
      return QVariant::DateTime;
    case QVariant::Time:
      return QVariant::String;
    default:
      return type;
  }
}

// Databases also have decimal numbers, whose places before the point run out, and numbers of half the precision.
constexpr const char* kDoubleTypes[] = {"double precision", "double", "binary_double", "float8", "float"};

std::ptrdiff_t RankOfType(const QString& name) {
  const auto* found = std::ranges::find_if(
      kDoubleTypes, [&](const char* type) { return name.compare(QLatin1String(type), Qt::CaseInsensitive) == 0; });
  return found - std::begin(kDoubleTypes);
}

int Clamped(int wanted, int least, int most) {
  if (wanted <= 0) return least > 0 ? least : 0;
  if (most > 0 && wanted > most) return most;
  return std::max(wanted, least);
}

}  // namespace

Format FactsOfLayer(const QgsVectorLayer& layer) { return FactsOfDriver(FromQt(layer.storageType())); }

int Columns::AttributeOf(std::int32_t index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= attributes.size()) {
    Raise(kInvalidCall, "The layer has no field " + std::to_string(index) + ".");
  }
  return attributes[static_cast<std::size_t>(index)];
}

bool IsList(const QgsField& field) { return field.type() == QVariant::List || field.type() == QVariant::StringList; }

bool IsStored(const QgsFields& fields, int index) {
  const QgsFields::FieldOrigin origin = fields.fieldOrigin(index);
  return origin == QgsFields::OriginProvider || origin == QgsFields::OriginEdit;
}

Columns ColumnsOf(const QgsVectorLayer& layer) {
  Columns columns;
  auto list = std::make_shared<Fields>();
  const int identifier = IdentifierAttribute(layer);
  list->AddField(OidField(layer, identifier));
  columns.attributes.push_back(Columns::kNoAttribute);
  const esriGeometryType type = ShapeTypeOf(layer.wkbType());
  if (type != esriGeometryNull) {
    columns.shape_index = 1;
    list->AddField(ShapeField(layer, type));
    columns.attributes.push_back(Columns::kNoAttribute);
  }
  const QgsFields fields = layer.fields();
  for (int index = 0; index < fields.count(); ++index) {
    if (index == identifier) continue;
    list->AddField(AttributeField(fields.at(index), IsStored(fields, index)));
    columns.attributes.push_back(index);
  }
  columns.fields = std::move(list);
  return columns;
}

Variant ValueOf(const QVariant& value, const QgsField& field) {
  if (!value.isValid() || value.isNull()) return Null{};
  switch (field.type()) {
    case QVariant::Bool:
      return static_cast<std::int16_t>(value.toBool() ? 1 : 0);
    case QVariant::Int:
      if (TypeOf(field) == esriFieldTypeSmallInteger) return static_cast<std::int16_t>(value.toInt());
      return static_cast<std::int32_t>(value.toInt());
    case QVariant::UInt:
    case QVariant::LongLong:
      return static_cast<std::int64_t>(value.toLongLong());
    case QVariant::ULongLong:
      if (std::in_range<std::int64_t>(value.toULongLong())) return static_cast<std::int64_t>(value.toLongLong());
      return static_cast<double>(value.toULongLong());
    case QVariant::Double:
      return value.toDouble();
    case QVariant::Date:
    case QVariant::DateTime:
      return DateOf(value.toDateTime());
    case QVariant::Time:
      return DateOf(value.toTime());
    case QVariant::ByteArray:
      return Null{};
    case QVariant::StringList:
    case QVariant::List:
    case QVariant::Map:  // the program reads a text of JSON so
      return FromQt(QgsJsonUtils::encodeValue(value));
    default:
      return FromQt(value.toString());
  }
}

StoredValue FitToField(const Variant& value, const QgsField& field, bool dbase) {
  const ColumnLimits limits = LimitsOf(field, dbase);
  if (limits.kind == ColumnLimits::Kind::Unwritable) {
    Raise(kInvalidCall, "The field '" + FromQt(field.name()) + "' can't be written: binary values and lists can't.");
  }
  const FittedValue fitted = FitValue(value, limits);
  StoredValue stored{Plain(fitted.value, field), fitted.change};
  // What the program itself refuses becomes null, too.
  if (stored.value.isNull() || field.convertCompatible(stored.value)) return stored;
  return {QVariant(field.type()), ValueChange::Unreadable};
}

QgsField NewFieldFor(const Field& field, const QgsVectorDataProvider& provider) {
  QList<QgsVectorDataProvider::NativeType> types = provider.nativeTypes();
  std::stable_sort(types.begin(), types.end(), [](const auto& first, const auto& second) {
    return RankOfType(first.mTypeName) < RankOfType(second.mTypeName);
  });
  const QVariant::Type wanted = StorageOf(field);
  for (const QVariant::Type type : {wanted, NextBest(wanted)}) {
    const bool text = type == QVariant::String;
    for (const QgsVectorDataProvider::NativeType& native : types) {
      if (native.mType != type) continue;
      // A double that is given a width would be kept as a decimal number of no more digits than that, or rounded to
      // them. In dBASE tables it is one.
      const bool has_double = type == QVariant::Double && RankOfType(native.mTypeName) < std::ssize(kDoubleTypes) &&
                              FactsOfDriver(FromQt(provider.storageType())).store != FileStore::Shapefile;
      if (has_double) return {ToQt(field.Name), type, native.mTypeName, 0, 0};
      const int length = Clamped(text ? field.Length : field.Precision, native.mMinLen, native.mMaxLen);
      const int decimals = text ? 0 : Clamped(field.Scale, native.mMinPrec, native.mMaxPrec);
      return {ToQt(field.Name), type, native.mTypeName, length, decimals};
    }
  }
  Raise(kTypeMismatch, "The layer's format has no type for the field '" + field.Name + "'.");
}

}  // namespace tessarine::qgis
