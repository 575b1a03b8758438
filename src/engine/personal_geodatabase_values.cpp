// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/personal_geodatabase_values.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

namespace tessarine::engine {
namespace {

// Rows are up to 4060 bytes long. The rest is for fields that are added later.
constexpr std::size_t kSafeRowLength = 3800;
constexpr std::size_t kRowFrame = 40;     // counts, and the mask of nulls
constexpr std::size_t kLongValue = 12;    // the reference to it
constexpr std::size_t kPlaceOfValue = 2;  // of a value whose length varies
constexpr std::size_t kOwnColumns = 18;   // identifier and shape
constexpr std::size_t kWidestNumber = 8;
constexpr int kGuidText = 38;
constexpr double kSecondsPerDay = 86400.0;
constexpr double kMoneyUnit = 10000.0;
constexpr int kMoneyWidth = 21, kMoneyDecimals = 4;  // with the sign and the point

std::size_t MostBytes(const jet::Column& column) {
  return (column.IsLong() ? kLongValue : column.length) + (column.fixed ? 0 : kPlaceOfValue);
}

bool IsShortText(const OGRFieldDefn& field) {
  const int width = field.GetWidth();
  return field.GetType() == OFTString && width > 0 && width <= static_cast<int>(jet::kLongestText);
}

std::size_t MostBytes(const OGRFieldDefn& field) {
  if (IsShortText(field)) return static_cast<std::size_t>(field.GetWidth()) * 2 + kPlaceOfValue;
  const bool is_long = field.GetType() == OFTString || field.GetType() == OFTBinary;
  return is_long ? kLongValue + kPlaceOfValue : kWidestNumber;
}

// Days from 30 December 1899 to a day of the Gregorian calendar.
std::int64_t DaysTo(int year, int month, int day) {
  using namespace std::chrono;
  const sys_days date = std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month)) /
                        std::chrono::day(static_cast<unsigned>(day));
  return (date - sys_days(std::chrono::year(1899) / 12 / 30)).count();
}

void PutDate(double stored, OGRFeature& feature, int attribute) {
  using namespace std::chrono;
  if (!std::isfinite(stored) || std::fabs(stored) > 3e6) return feature.SetFieldNull(attribute);
  double days = std::trunc(stored);
  double milliseconds_of_day = std::round(std::fabs(stored - days) * kSecondsPerDay * 1000.0);
  if (milliseconds_of_day >= kSecondsPerDay * 1000.0) {
    milliseconds_of_day = 0.0;
    days += 1.0;
  }
  const sys_days date = sys_days(year(1899) / 12 / 30) + std::chrono::days(static_cast<int>(days));
  const year_month_day parts(date);
  const auto whole = static_cast<std::int64_t>(milliseconds_of_day);
  feature.SetField(attribute, static_cast<int>(parts.year()), static_cast<int>(static_cast<unsigned>(parts.month())),
                   static_cast<int>(static_cast<unsigned>(parts.day())), static_cast<int>(whole / 3600000),
                   static_cast<int>(whole / 60000 % 60),
                   static_cast<float>(static_cast<double>(whole % 60000) / 1000.0), 0);
}

jet::Value DateOf(const OGRFeature& feature, int attribute) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
  float second = 0.0F;
  feature.GetFieldAsDateTime(attribute, &year, &month, &day, &hour, &minute, &second, &zone);
  const double seconds = std::round(static_cast<double>(second) * 1000.0) / 1000.0;
  return PersonalDate(year, month, day, hour * 3600.0 + minute * 60.0 + seconds);
}

[[noreturn]] void ThrowUnfit(const jet::Column& column, const std::string& why) {
  throw jet::RowError("the value of field '" + column.name + "' " + why);
}

jet::Value BytesOf(const OGRFeature& feature, int attribute) {
  int length = 0;
  const GByte* bytes = feature.GetFieldAsBinary(attribute, &length);
  return jet::Bytes(bytes, bytes + length);
}

// A mark of byte order in front is no part of a text, and the format has another use for it.
std::string TextWithoutMark(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  while (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  return std::string(text);
}

jet::Value WholeOf(const OGRFeature& feature, int attribute, const jet::Column& column) {
  const GIntBig number = feature.GetFieldAsInteger64(attribute);
  if (number < INT32_MIN || number > INT32_MAX) ThrowUnfit(column, "is too large for the column");
  return static_cast<std::int32_t>(number);
}

}  // namespace

std::unique_ptr<OGRFieldDefn> FieldOfColumn(const jet::Column& column) {
  auto field = std::make_unique<OGRFieldDefn>(column.name.c_str(), OFTString);
  switch (column.type) {
    case jet::ColumnType::Flag:
      field->SetType(OFTInteger);
      field->SetSubType(OFSTBoolean);
      break;
    case jet::ColumnType::Byte:
      field->SetType(OFTInteger);
      field->SetSubType(OFSTInt16);
      field->SetWidth(kByteWidth);
      break;
    case jet::ColumnType::Short:
      field->SetType(OFTInteger);
      field->SetSubType(OFSTInt16);
      break;
    case jet::ColumnType::Long:
      field->SetType(OFTInteger);
      break;
    case jet::ColumnType::Single:
      field->SetType(OFTReal);
      field->SetSubType(OFSTFloat32);
      break;
    case jet::ColumnType::Money:
      field->SetType(OFTReal);
      field->SetWidth(kMoneyWidth);
      field->SetPrecision(kMoneyDecimals);
      break;
    case jet::ColumnType::Double:
    case jet::ColumnType::Numeric:
      field->SetType(OFTReal);
      break;
    case jet::ColumnType::Date:
      field->SetType(OFTDateTime);
      break;
    case jet::ColumnType::Binary:
    case jet::ColumnType::Ole:
      field->SetType(OFTBinary);
      break;
    case jet::ColumnType::Text:
      field->SetWidth(column.length / 2);
      break;
    case jet::ColumnType::Memo:
      break;
    case jet::ColumnType::Guid:
      field->SetSubType(OFSTUUID);
      field->SetWidth(kGuidText);
      break;
  }
  return field;
}

void ShareOutRow(std::span<OGRFieldDefn* const> fields) {
  std::vector<OGRFieldDefn*> texts;
  std::size_t taken = kRowFrame + kOwnColumns;
  for (OGRFieldDefn* field : fields) {
    taken += MostBytes(*field);
    if (IsShortText(*field)) texts.push_back(field);
  }
  std::ranges::stable_sort(texts, std::ranges::greater{}, [](const OGRFieldDefn* field) { return field->GetWidth(); });
  for (OGRFieldDefn* text : texts) {
    if (taken <= kSafeRowLength) return;
    taken -= MostBytes(*text);
    text->SetWidth(0);
    taken += MostBytes(*text);
  }
}

jet::ColumnSpec ColumnOfField(const OGRFieldDefn& field, const jet::TableDefinition& table) {
  jet::ColumnSpec spec{field.GetNameRef()};
  switch (field.GetType()) {
    case OFTInteger:
      spec.type = field.GetSubType() == OFSTNone ? jet::ColumnType::Long : jet::ColumnType::Short;
      return spec;
    case OFTInteger64:
      spec.type = jet::ColumnType::Double;
      return spec;
    case OFTReal:
      spec.type = field.GetSubType() == OFSTFloat32 ? jet::ColumnType::Single : jet::ColumnType::Double;
      return spec;
    case OFTDate:
    case OFTDateTime:
      spec.type = jet::ColumnType::Date;
      return spec;
    case OFTBinary:
      spec.type = jet::ColumnType::Ole;
      return spec;
    case OFTString:
      break;
    default:
      throw jet::Error("the field '" + spec.name + "' is of a type that a personal geodatabase doesn't have");
  }
  std::size_t taken = kRowFrame;
  for (const jet::Column& column : table.columns) taken += MostBytes(column);
  const bool short_text = IsShortText(field) && taken + MostBytes(field) <= kSafeRowLength;
  const auto width = static_cast<std::size_t>(std::max(field.GetWidth(), 0));
  spec.type = short_text ? jet::ColumnType::Text : jet::ColumnType::Memo;
  spec.length = short_text ? width : 0;
  return spec;
}

void PutColumnValue(const jet::Table& table, std::size_t place, const jet::Value& value, OGRFeature& feature,
                    int attribute) {
  if (jet::IsNull(value)) return feature.SetFieldNull(attribute);
  const jet::Column& column = table.Definition().columns[place];
  switch (column.type) {
    case jet::ColumnType::Flag:
      return feature.SetField(attribute, std::get<bool>(value) ? 1 : 0);
    case jet::ColumnType::Byte:
    case jet::ColumnType::Short:
    case jet::ColumnType::Long:
      return feature.SetField(attribute, std::get<std::int32_t>(value));
    case jet::ColumnType::Money:
      return feature.SetField(attribute, static_cast<double>(std::get<std::int64_t>(value)) / kMoneyUnit);
    case jet::ColumnType::Single:
      return feature.SetField(attribute, static_cast<double>(std::get<float>(value)));
    case jet::ColumnType::Double:
      return feature.SetField(attribute, std::get<double>(value));
    case jet::ColumnType::Numeric:
      return feature.SetField(attribute, jet::NumericValue(std::get<jet::Bytes>(value), column.scale));
    case jet::ColumnType::Date:
      return PutDate(std::get<double>(value), feature, attribute);
    case jet::ColumnType::Text:
      return feature.SetField(attribute, std::get<std::string>(value).c_str());
    case jet::ColumnType::Memo:
      return feature.SetField(attribute, table.ReadMemo(value).c_str());
    case jet::ColumnType::Guid:
      return feature.SetField(attribute, jet::GuidText(std::get<jet::Bytes>(value)).c_str());
    case jet::ColumnType::Binary:
    case jet::ColumnType::Ole: {
      const jet::Bytes bytes =
          column.type == jet::ColumnType::Ole ? table.ReadLong(value) : std::get<jet::Bytes>(value);
      return feature.SetField(attribute, static_cast<int>(bytes.size()), bytes.data());
    }
  }
}

jet::Value ColumnValueOf(const OGRFeature& feature, int attribute, const jet::Column& column) {
  if (feature.IsFieldSetAndNotNull(attribute) == 0) return {};
  switch (column.type) {
    case jet::ColumnType::Flag:
      return feature.GetFieldAsInteger(attribute) != 0;
    case jet::ColumnType::Byte:
    case jet::ColumnType::Short:
    case jet::ColumnType::Long:
      return WholeOf(feature, attribute, column);
    case jet::ColumnType::Money: {
      const double units = std::round(feature.GetFieldAsDouble(attribute) * kMoneyUnit);
      if (!(std::fabs(units) < 9.2e18)) ThrowUnfit(column, "is too large for the column");
      return static_cast<std::int64_t>(units);
    }
    case jet::ColumnType::Single:
      return static_cast<float>(feature.GetFieldAsDouble(attribute));
    case jet::ColumnType::Double:
      return feature.GetFieldAsDouble(attribute);
    case jet::ColumnType::Date:
      return DateOf(feature, attribute);
    case jet::ColumnType::Text:
    case jet::ColumnType::Memo:
      return TextWithoutMark(feature.GetFieldAsString(attribute));
    case jet::ColumnType::Guid:
      return jet::GuidOf(feature.GetFieldAsString(attribute));
    case jet::ColumnType::Binary:
    case jet::ColumnType::Ole:
      return BytesOf(feature, attribute);
    case jet::ColumnType::Numeric:
      ThrowUnfit(column, "can't be written: decimal numbers are only read");
  }
  return {};
}

double PersonalDate(int year, int month, int day, double seconds) {
  const auto days = static_cast<double>(DaysTo(year, month, day));
  const double part = seconds / kSecondsPerDay;
  return days < 0.0 ? days - part : days + part;
}

double PersonalDateNow() {
  using namespace std::chrono;
  const auto since_1970 = duration<double>(system_clock::now().time_since_epoch()).count();
  return 25569.0 + since_1970 / kSecondsPerDay;
}

double LengthOfShape(const OGRGeometry& shape) {
  switch (wkbFlatten(shape.getGeometryType())) {
    case wkbLineString:
      return shape.toLineString()->get_Length();
    case wkbPolygon: {
      double sum = 0.0;
      for (const OGRLinearRing* ring : shape.toPolygon()) sum += ring->get_Length();
      return sum;
    }
    case wkbMultiLineString:
    case wkbMultiPolygon: {
      double sum = 0.0;
      for (const OGRGeometry* part : shape.toGeometryCollection()) sum += LengthOfShape(*part);
      return sum;
    }
    default:
      return 0.0;
  }
}

double AreaOfShape(const OGRGeometry& shape) {
  const OGRwkbGeometryType type = wkbFlatten(shape.getGeometryType());
  if (type == wkbPolygon) return shape.toPolygon()->get_Area();
  if (type == wkbMultiPolygon) return shape.toMultiPolygon()->get_Area();
  return 0.0;
}

}  // namespace tessarine::engine
