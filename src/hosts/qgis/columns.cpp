#include "hosts/qgis/columns.h"

#include <qgsvectordataprovider.h>

#include <QDateTime>
#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <string_view>

#include "engine/ogr_fields.h"
#include "hosts/qgis/values.h"
#include "hosts/windows/qt_text.h"
#include "platform/fault.h"

namespace tessarine::qgis {
namespace {

constexpr int kLongestSmallInteger = 4;

esriFieldType TypeOf(const QgsField& field) {
  switch (field.type()) {
    case QVariant::Bool:
      return esriFieldTypeSmallInteger;
    case QVariant::Int:
      return field.length() > 0 && field.length() <= kLongestSmallInteger ? esriFieldTypeSmallInteger
                                                                          : esriFieldTypeInteger;
    case QVariant::UInt:
    case QVariant::LongLong:
    case QVariant::ULongLong:
    case QVariant::Double:
      return esriFieldTypeDouble;
    case QVariant::Date:
    case QVariant::Time:
    case QVariant::DateTime:
      return esriFieldTypeDate;
    case QVariant::ByteArray:
      return esriFieldTypeBlob;
    default:
      return esriFieldTypeString;
  }
}

FieldRef AttributeField(const QgsField& source, bool stored) {
  auto field = std::make_shared<Field>();
  field->Name = FromQt(source.name());
  field->AliasName = FromQt(source.displayName());
  field->Type = TypeOf(source);
  if (field->Type == esriFieldTypeString) {
    field->Length = source.length();
  } else if (field->Type != esriFieldTypeDate && field->Type != esriFieldTypeBlob) {
    field->Precision = source.length();
    field->Scale = source.precision();
  }
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

FieldRef OidField(const QgsVectorLayer& layer, int identifier) {
  auto field = std::make_shared<Field>();
  const bool shapefile = layer.storageType() == QStringLiteral("ESRI Shapefile");
  QString name = identifier >= 0 ? layer.fields().at(identifier).name() : shapefile ? "FID" : "OBJECTID";
  while (identifier < 0 && layer.fields().lookupField(name) >= 0) name += '_';
  field->Name = FromQt(name);
  field->AliasName = field->Name;
  field->Type = esriFieldTypeOID;
  field->Editable = false;
  field->IsNullable = false;
  return field;
}

FieldRef ShapeField(const QgsVectorLayer& layer, esriGeometryType type) {
  auto field = std::make_shared<Field>();
  // Providers don't tell the name of the column.
  const QString name = QStringLiteral("Shape");
  field->Name = FromQt(layer.fields().lookupField(name) < 0 ? name : name + '_');
  field->AliasName = field->Name;
  field->Type = esriFieldTypeGeometry;
  field->GeometryDef = std::make_shared<GeometryDef>();
  field->GeometryDef->GeometryType = type;
  field->GeometryDef->SpatialReference = ReferenceOf(layer.crs());
  return field;
}

Date DateOf(const QDateTime& time) {
  const QDate day = time.date();
  const QTime clock = time.time();
  return MakeDate(day.year(), day.month(), day.day(), clock.hour(), clock.minute(), clock.second());
}

QDateTime TimeOf(Date date) {
  const DateParts parts = Split(date);
  return {QDate(parts.year, parts.month, parts.day), QTime(parts.hour, parts.minute, parts.second)};
}

QVariant Plain(const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::Boolean:
      return value.AsBoolean();
    case Variant::Kind::Short:
    case Variant::Kind::Long:
      return value.AsLong();
    case Variant::Kind::Single:
    case Variant::Kind::Double:
      return value.AsDouble();
    case Variant::Kind::String:
      return ToQt(value.Text());
    case Variant::Kind::Date:
      return TimeOf(value.AsDate());
    default:
      return {};
  }
}

// A number in a column of fixed width may lose decimals, never the places before the point: nothing for one that
// doesn't fit. Rounded here, because dBASE drivers cut the places off that are too many.
std::optional<double> Fitted(double value, const QgsField& field) {
  if (field.length() <= 0 || field.precision() <= 0) return value;
  std::array<char, 400> room{};
  const std::string_view text =
      engine::NumberInColumn(value, static_cast<std::size_t>(field.length()), field.precision(), room);
  if (text.empty()) return std::nullopt;
  double fitted = value;
  std::from_chars(text.data(), text.data() + text.size(), fitted);
  return fitted;
}

QVariant::Type StorageOf(esriFieldType type) {
  switch (type) {
    case esriFieldTypeSmallInteger:
    case esriFieldTypeInteger:
      return QVariant::Int;
    case esriFieldTypeSingle:
    case esriFieldTypeDouble:
      return QVariant::Double;
    case esriFieldTypeDate:
      return QVariant::DateTime;
    default:
      return QVariant::String;
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

int Columns::AttributeOf(std::int32_t index) const {
  if (index < 0 || static_cast<std::size_t>(index) >= attributes.size()) {
    Raise(kInvalidCall, "The layer has no field " + std::to_string(index) + ".");
  }
  return attributes[static_cast<std::size_t>(index)];
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
    list->AddField(AttributeField(fields.at(index), fields.fieldOrigin(index) == QgsFields::OriginProvider));
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
    case QVariant::ULongLong:
    case QVariant::Double:
      return value.toDouble();
    case QVariant::Date:
    case QVariant::DateTime:
      return DateOf(value.toDateTime());
    case QVariant::Time:
      return Date{QTime(0, 0).secsTo(value.toTime()) / 86400.0};
    case QVariant::ByteArray:
      return Null{};
    case QVariant::StringList:
    case QVariant::List: {
      QStringList texts;
      for (const QVariant& member : value.toList()) texts << member.toString();
      return FromQt(texts.join(','));
    }
    default:
      return FromQt(value.toString());
  }
}

QVariant StoredValue(const Variant& value, const QgsField& field) {
  const std::string name = FromQt(field.name());
  if (value.IsNull() || value.IsEmpty()) return QVariant(field.type());
  QVariant stored = Plain(value);
  if (!stored.isValid()) Raise(kTypeMismatch, "The field '" + name + "' can't hold this value.");
  const bool is_number = stored.type() == QVariant::Double || stored.type() == QVariant::Int;
  if (is_number && field.type() == QVariant::Double) {
    const std::optional<double> fitted = Fitted(stored.toDouble(), field);
    if (fitted) return *fitted;
    Raise(kOverflow, "The number " + FromQt(stored.toString()) + " is too large for the field '" + name + "'.");
  }
  QString problem;
  if (!field.convertCompatible(stored, &problem)) {
    Raise(is_number ? kOverflow : kTypeMismatch,
          "The field '" + name + "' can't hold '" + FromQt(Plain(value).toString()) + "': " + FromQt(problem));
  }
  return stored;
}

QgsField NewFieldFor(const Field& field, const QgsVectorDataProvider& provider) {
  const QVariant::Type wanted = StorageOf(field.Type);
  const bool text = wanted == QVariant::String;
  QList<QgsVectorDataProvider::NativeType> types = provider.nativeTypes();
  std::stable_sort(types.begin(), types.end(), [](const auto& first, const auto& second) {
    return RankOfType(first.mTypeName) < RankOfType(second.mTypeName);
  });
  for (const QgsVectorDataProvider::NativeType& native : types) {
    if (native.mType != wanted) continue;
    const int length = Clamped(text ? field.Length : field.Precision, native.mMinLen, native.mMaxLen);
    const int decimals = text ? 0 : Clamped(field.Scale, native.mMinPrec, native.mMaxPrec);
    return {ToQt(field.Name), wanted, native.mTypeName, length, decimals};
  }
  Raise(kTypeMismatch, "The layer's format has no type for the field '" + field.Name + "'.");
}

}  // namespace tessarine::qgis
