// SPDX-License-Identifier: GPL-2.0-or-later
#include "engine/copy_values.h"

#include <cpl_conv.h>
#include <cpl_json.h>
#include <algorithm>

#include <cmath>
#include <string>
#include <utility>

#include "engine/engine_fault.h"
#include "engine/list_text.h"
#include "engine/ogr_fields.h"
#include "platform/text_encoding.h"

namespace tessarine::engine {
namespace {

constexpr int kUtc = 100;
constexpr double kSameNumber = 1e-10;  // relative, of a coordinate

bool IsNull(const OGRFeature& feature, int index) { return feature.IsFieldSetAndNotNull(index) == 0; }

// Texts without characters are null to some formats.
bool IsEmpty(const OGRFeature& feature, int index) {
  return feature.GetFieldDefnRef(index)->GetType() == OFTString && *feature.GetFieldAsString(index) == '\0';
}

std::string TextOfList(const OGRFeature& feature, int index) {
  return IsList(feature.GetFieldDefnRef(index)->GetType()) ? ListText(feature, index) : feature.GetFieldAsString(index);
}

bool SameNumber(double first, double second) { return first == second || (std::isnan(first) && std::isnan(second)); }

ValueChange CompareReals(double meant, double written) {
  if (SameNumber(meant, written)) return ValueChange::None;
  if (!std::isfinite(meant)) return ValueChange::NotFinite;
  const bool near = std::fabs(meant - written) <= 1e-3 * std::fabs(meant);
  return near || std::fabs(meant - written) < 1.0 ? ValueChange::Rounded : ValueChange::OutOfRange;
}

ValueChange CompareWholes(const OGRFeature& meant, int meant_index, const OGRFeature& written, int written_index) {
  const GIntBig whole = meant.GetFieldAsInteger64(meant_index);
  if (written.GetFieldDefnRef(written_index)->GetType() == OFTReal) {
    const double number = written.GetFieldAsDouble(written_index);
    if (std::fabs(number) < 9.2e18 && static_cast<GIntBig>(number) == whole) return ValueChange::None;
    return CompareReals(static_cast<double>(whole), number) == ValueChange::OutOfRange ? ValueChange::OutOfRange
                                                                                       : ValueChange::Rounded;
  }
  return whole == written.GetFieldAsInteger64(written_index) ? ValueChange::None : ValueChange::OutOfRange;
}

struct Moment {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
  float second = 0.0F;

  Moment(const OGRFeature& feature, int index) {
    feature.GetFieldAsDateTime(index, &year, &month, &day, &hour, &minute, &second, &zone);
    if (zone <= 1 || zone == kUtc) zone = 0;
  }
  [[nodiscard]] bool SameDay(const Moment& other) const {
    return year == other.year && month == other.month && day == other.day;
  }
  [[nodiscard]] bool SameTime(const Moment& other) const {
    return hour == other.hour && minute == other.minute && std::fabs(second - other.second) < 0.0005F;
  }
};

ValueChange CompareMoments(const OGRFeature& meant, int meant_index, const OGRFeature& written, int written_index) {
  const OGRFieldType type = written.GetFieldDefnRef(written_index)->GetType();
  if (type == OFTString) {
    const std::string text = meant.GetFieldAsString(meant_index);
    return text == written.GetFieldAsString(written_index) ? ValueChange::None : ValueChange::Unreadable;
  }
  const Moment first(meant, meant_index), second(written, written_index);
  const bool day_matters = meant.GetFieldDefnRef(meant_index)->GetType() != OFTTime;
  if (day_matters && !first.SameDay(second))
    return first.zone != 0 ? ValueChange::ZoneDropped : ValueChange::Unreadable;
  if (first.zone != second.zone) return ValueChange::ZoneDropped;
  return first.SameTime(second) ? ValueChange::None : ValueChange::TimeDropped;
}

ValueChange CompareTexts(const std::string& meant, const std::string& written) {
  if (meant == written) return ValueChange::None;
  if (written.size() < meant.size() && meant.starts_with(written)) return ValueChange::TextCut;
  return IsUtf8(meant) ? ValueChange::OtherText : ValueChange::BadText;
}

// The same members and values, however they are spaced.
bool SameJson(const char* first, const char* second) {
  const GdalErrorScope quiet;
  CPLJSONDocument a, b;
  return a.LoadMemory(std::string(first)) && b.LoadMemory(std::string(second)) &&
         a.GetRoot().Format(CPLJSONObject::PrettyFormat::Plain) ==
             b.GetRoot().Format(CPLJSONObject::PrettyFormat::Plain);
}

ValueChange Missing(const OGRFeature& meant, int index) {
  const OGRFieldType type = meant.GetFieldDefnRef(index)->GetType();
  if (type == OFTReal && !std::isfinite(meant.GetFieldAsDouble(index))) return ValueChange::NotFinite;
  return type == OFTInteger || type == OFTInteger64 || type == OFTReal ? ValueChange::OutOfRange
                                                                       : ValueChange::Unreadable;
}

bool Near(double first, double second) {
  return std::fabs(first - second) <= kSameNumber * std::max(1.0, std::fabs(first));
}

}  // namespace

ValueChange CompareValues(const OGRFeature& meant, int meant_index, const OGRFeature& written, int written_index) {
  const bool was_null = IsNull(meant, meant_index);
  if (IsNull(written, written_index)) {
    return was_null || IsEmpty(meant, meant_index) ? ValueChange::None : Missing(meant, meant_index);
  }
  if (was_null) return ValueChange::NullFilled;
  const OGRFieldType type = meant.GetFieldDefnRef(meant_index)->GetType();
  switch (type) {
    case OFTInteger:
    case OFTInteger64:
      return CompareWholes(meant, meant_index, written, written_index);
    case OFTReal:
      return CompareReals(meant.GetFieldAsDouble(meant_index), written.GetFieldAsDouble(written_index));
    case OFTDate:
    case OFTTime:
    case OFTDateTime:
      return CompareMoments(meant, meant_index, written, written_index);
    default:
      break;
  }
  if (IsList(type)) {
    return TextOfList(meant, meant_index) == TextOfList(written, written_index) ? ValueChange::None
                                                                                : ValueChange::Unreadable;
  }
  if (meant.GetFieldDefnRef(meant_index)->GetSubType() == OFSTJSON &&
      SameJson(meant.GetFieldAsString(meant_index), std::string(written.GetFieldAsString(written_index)).c_str())) {
    return ValueChange::None;
  }
  // Some formats write a text of JSON as what it tells.
  return CompareTexts(meant.GetFieldAsString(meant_index), TextOfList(written, written_index));
}

ShapeShift ShiftOf(const OGRGeometry& meant, const OGRGeometry& written) {
  constexpr double kRounding = 1e-5;
  OGREnvelope first, second;
  meant.getEnvelope(&first);
  written.getEnvelope(&second);
  const std::pair<double, double> sides[] = {
      {first.MinX, second.MinX}, {first.MinY, second.MinY}, {first.MaxX, second.MaxX}, {first.MaxY, second.MaxY}};
  if (std::ranges::all_of(sides, [](const auto& side) { return Near(side.first, side.second); })) {
    return ShapeShift::None;
  }
  double largest = 1.0, farthest = 0.0;
  for (const auto& [there, here] : sides) {
    largest = std::max(largest, std::fabs(there));
    farthest = std::max(farthest, std::fabs(there - here));
  }
  return farthest <= kRounding * largest ? ShapeShift::Rounded : ShapeShift::Elsewhere;
}

}  // namespace tessarine::engine
