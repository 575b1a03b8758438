// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/attribute_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

#include "engine/personal_geodatabase_values.h"
#include "outputs/column_loss.h"
#include "platform/fault.h"

namespace tessarine::engine {
namespace {

constexpr int kUtc = 100, kMinutesPerStep = 15;  // OGR's zones

using Kind = ColumnLimits::Kind;

Kind KindOf(const OGRFieldDefn& field) {
  switch (field.GetType()) {
    case OFTInteger:
    case OFTInteger64:
      return Kind::Whole;
    case OFTReal:
      return field.GetSubType() == OFSTFloat32 ? Kind::Single : Kind::Double;
    case OFTDate:
      return Kind::Day;
    case OFTTime:
      return Kind::Time;
    case OFTDateTime:
      return Kind::DayAndTime;
    case OFTString:
      return Kind::Text;
    default:
      return Kind::Unwritable;
  }
}

template <class Whole>
void LimitTo(ColumnLimits& limits) {
  limits.least = std::numeric_limits<Whole>::min();
  limits.most = std::numeric_limits<Whole>::max();
}

// What the type itself holds.
ColumnLimits LimitsOf(const OGRFieldDefn& field, ColumnStore store) {
  ColumnLimits limits;
  limits.kind = KindOf(field);
  if (field.GetType() == OFTInteger) LimitTo<std::int32_t>(limits);
  if (field.GetSubType() == OFSTInt16) LimitTo<std::int16_t>(limits);
  if (field.GetSubType() == OFSTBoolean) limits.least = 0, limits.most = 1;
  if (store == ColumnStore::PersonalGeodatabase) {
    const bool byte = field.GetSubType() == OFSTInt16 && field.GetWidth() == kByteWidth;
    if (byte) limits.least = 0, limits.most = std::numeric_limits<std::uint8_t>::max();
    const bool money = field.GetType() == OFTReal && field.GetWidth() > 0;
    if (money) {
      limits.LimitDecimals(field.GetWidth(), field.GetPrecision());
      limits.farthest = kMostMoney;
    }
    limits.keeps_mark = false;
    limits.most_units = static_cast<std::size_t>(std::max(field.GetWidth(), 0));
  } else if (store == ColumnStore::Dbase) {
    if (field.GetType() == OFTReal && field.GetWidth() > 0) {
      limits.LimitDecimals(field.GetWidth(), field.GetPrecision());
      limits.takes_exponent = true;
    }
    limits.most_bytes = kLongestDbaseText;
  } else if (field.GetWidth() > 0) {
    limits.most_characters = static_cast<std::size_t>(field.GetWidth());
  }
  limits.keeps_fraction = store == ColumnStore::Other;
  // All times of a file geodatabase are read as those of UTC.
  limits.keeps_zone = limits.keeps_fraction || store == ColumnStore::FileGeodatabase;
  return limits;
}

std::string_view Printed(double value, int decimals, std::span<char> room) {
  const auto end = std::to_chars(room.data(), room.data() + room.size(), value, std::chars_format::fixed, decimals);
  return {room.data(), static_cast<std::size_t>(end.ptr - room.data())};
}

bool PrintsAs(double value, int decimals, std::string_view beginning) {
  std::array<char, 400> room;
  return Printed(value, decimals, room).starts_with(beginning);
}

// Whether nothing is cut off after `width`, or digits that would be rounded off, too.
bool CutsLikeRounding(double value, std::size_t width, int decimals) {
  std::array<char, 400> room;
  const std::string_view text = Printed(value, decimals, room);
  if (text.size() <= width) return true;
  const std::size_t point = text.find('.');
  return point != std::string_view::npos && point + 1 < width && text[width] < '5';
}

// OGR prints all decimals and cuts them off at the width: a number just below its text would lose its last digit.
double SafeFromCutting(double number, const ColumnLimits& column) {
  if (column.width <= 0 || std::fabs(number) < column.safe_below) return number;
  const auto width = static_cast<std::size_t>(column.width);
  if (CutsLikeRounding(number, width, column.decimals)) return number;
  std::array<char, 400> room;
  const std::string_view text = NumberInColumn(number, width, column.decimals, room);
  if (text.empty() || PrintsAs(number, column.decimals, text)) return number;
  const double above = std::nextafter(number, std::copysign(HUGE_VAL, number));
  return PrintsAs(above, column.decimals, text) ? above : number;
}

void PutDate(OGRFeature& feature, int index, Date date) {
  const DateParts parts = SplitToMilliseconds(date);
  const auto second = static_cast<float>(parts.second + parts.millisecond / 1000.0);
  const int zone = date.zone == Date::kNoZone ? 0 : kUtc + date.zone / kMinutesPerStep;
  if (date.time_only) {
    feature.SetField(index, 0, 0, 0, parts.hour, parts.minute, second, zone);
  } else {
    feature.SetField(index, parts.year, parts.month, parts.day, parts.hour, parts.minute, second, zone);
  }
}

// False where there was nothing to do.
bool BringToUtc(Variant& value) {
  if (value.kind() != Variant::Kind::Date) return false;
  Date date = value.AsDate();
  if (date.zone == Date::kNoZone || date.zone == 0 || date.time_only) return false;
  date.serial -= date.zone / 1440.0;
  date.zone = 0;
  value = date;
  return true;
}

void Put(OGRFeature& feature, int index, const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::LongLong:
      feature.SetField(index, static_cast<GIntBig>(value.AsLongLong()));
      return;
    case Variant::Kind::Double:
      feature.SetField(index, value.AsDouble());
      return;
    case Variant::Kind::Date:
      PutDate(feature, index, value.AsDate());
      return;
    case Variant::Kind::String:
      feature.SetField(index, value.Text().c_str());
      return;
    default:
      feature.SetFieldNull(index);
  }
}

}  // namespace

AttributeWriter::AttributeWriter(const OGRFeatureDefn& definition, ColumnStore store, bool in_utc) : in_utc_(in_utc) {
  for (int index = 0; index < definition.GetFieldCount(); ++index) {
    const OGRFieldDefn& field = *definition.GetFieldDefn(index);
    Column column{field.GetType(), LimitsOf(field, store), LimitsOf(field, store)};
    if (store == ColumnStore::Dbase && field.GetWidth() > 0) {
      column.stored.LimitPlaces(field.GetWidth());
      column.stored.most_bytes = static_cast<std::size_t>(field.GetWidth());
    }
    columns_.push_back(column);
  }
}

bool AttributeWriter::NeedsExponent(const OGRFeature& feature, int index) const {
  const ColumnLimits& column = columns_[static_cast<std::size_t>(index)].stored;
  if (!column.takes_exponent || feature.IsFieldSetAndNotNull(index) == 0) return false;
  const double value = feature.GetFieldAsDouble(index);
  if (std::fabs(value) < column.safe_below) return false;
  return !HasRoomInColumn(value, static_cast<std::size_t>(column.width));
}

ValueChange AttributeWriter::Write(OGRFeature& feature, int index, const Variant& value, RowUse use) const {
  const Column& column = columns_[static_cast<std::size_t>(index)];
  const ColumnLimits& limits = use == RowUse::New ? column.grown : column.stored;
  if (limits.kind == Kind::Unwritable) {
    Raise(kInvalidCall, std::string("Field '") + feature.GetFieldDefnRef(index)->GetNameRef() +
                            "': binary values and lists can't be written.");
  }
  FittedValue fitted = FitValue(value, limits);
  if (in_utc_ && BringToUtc(fitted.value) && fitted.change == ValueChange::None) {
    fitted.change = ValueChange::ZoneToUtc;
  }
  if (use == RowUse::New && fitted.value.kind() == Variant::Kind::Double) {
    fitted.value = SafeFromCutting(fitted.value.AsDouble(), limits);
  }
  Put(feature, index, fitted.value);
  return fitted.change;
}

void AttributeWriter::GuardFromCutting(OGRFeature& feature, std::span<const int> attributes) const {
  for (const int index : attributes) {
    const Column& column = columns_[static_cast<std::size_t>(index)];
    if (column.type != OFTReal || feature.IsFieldSetAndNotNull(index) == 0) continue;
    feature.SetField(index, SafeFromCutting(feature.GetFieldAsDouble(index), column.stored));
  }
}

}  // namespace tessarine::engine
