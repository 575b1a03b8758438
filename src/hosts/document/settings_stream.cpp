// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/document/settings_stream.h"

#include <limits>

namespace tessarine {

Variant SettingsStream::Read() {
  if (next_ == values_.size()) Raise(kInvalidCall, "The document's settings end early.");
  return values_[next_++];
}

nlohmann::json SettingToJson(const Variant& value) {
  switch (value.kind()) {
    case Variant::Kind::Double:
      return {{"double", value.AsDouble()}};
    case Variant::Kind::Boolean:
      return {{"boolean", value.AsBoolean()}};
    case Variant::Kind::Long:
      return {{"long", value.AsLong()}};
    case Variant::Kind::String:
      return {{"string", value.Text()}};
    default:
      Raise(kTypeMismatch, "Settings are numbers, texts and flags only.");
  }
}

Variant SettingFromJson(const JsonPlace& place) {
  if (place.Has("double")) return place.Member("double").Number();
  if (place.Has("boolean")) return place.Member("boolean").Flag();
  if (place.Has("string")) return place.Member("string").Text();
  if (place.Has("long")) {
    const std::int64_t whole = place.Member("long").Whole();
    if (whole < std::numeric_limits<std::int32_t>::min() || whole > std::numeric_limits<std::int32_t>::max()) {
      place.Member("long").Fail("a whole number of 32 bits");
    }
    return static_cast<std::int32_t>(whole);
  }
  place.Fail("an object with \"double\", \"long\", \"boolean\" or \"string\"");
}

}  // namespace tessarine
