// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/driver_facts.h"

#include <algorithm>
#include <array>

namespace tessarine {
namespace {

// Names stand between blanks or bars.
constexpr NameRule kOneWord{.longest = 1000, .bytes = true, .characters = NameRule::Characters::Word};

// What the library doesn't tell of drivers without a row.
constexpr std::array kOtherDrivers = {
    Format{.driver = "MSSQLSpatial", .rows_in_place = true},
    Format{.driver = "MySQL", .rows_in_place = true},
    Format{.driver = "OCI", .rows_in_place = true},
    Format{.driver = "KML", .clean_texts = true, .degrees = true},
    Format{.driver = "GPX", .clean_texts = true, .degrees = true},
    Format{.driver = "ODS", .rewritten = true},
    Format{.driver = "XLSX", .rewritten = true},
    Format{.driver = "GeoRSS", .degrees = true},
    Format{.driver = "OGR_GMT", .needs_shapes = true, .field_names = kOneWord},
};

}  // namespace

Format FactsOfDriver(std::string_view driver) {
  const auto other = std::ranges::find(kOtherDrivers, driver, &Format::driver);
  if (other != kOtherDrivers.end()) return *other;
  const Format* row = FormatOfDriver(driver);
  if (row == nullptr) return {};
  Format facts = *row;
  facts.kind = 0;
  facts.updated_in_place = false;
  facts.other_endings = facts.parts = {};
  return facts;
}

}  // namespace tessarine
