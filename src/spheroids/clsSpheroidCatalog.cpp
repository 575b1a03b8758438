// SPDX-License-Identifier: GPL-2.0-or-later
#include "spheroids/clsSpheroidCatalog.h"

#include "platform/variant.h"
#include "spheroids/USGS_Functions.h"
#include "spheroids/spheroid_entries.h"
#include "support/aml_func_mod.h"

namespace tessarine {
namespace {

using USGS_Functions::SpheroidEntry;

std::vector<NamedSpheroid> Named(const std::vector<SpheroidEntry>& entries) {
  std::vector<NamedSpheroid> named;
  for (const SpheroidEntry& entry : entries) {
    const std::int32_t code = entry.code.empty() ? 0 : Variant(entry.code).AsLong();
    named.push_back({entry.name, code, entry.semi_major_axis, entry.semi_minor_axis});
  }
  return named;
}

}  // namespace

std::string clsSpheroidCatalog::CustomFile() const { return USGS_Functions::CustomSpheroidFile(); }

std::vector<NamedSpheroid> clsSpheroidCatalog::ReadCustomFile(const std::string& path) const {
  return Named(USGS_Functions::ReadCustomSpheroidFile(path));
}

std::vector<NamedSpheroid> clsSpheroidCatalog::Spheroids(SpheroidList list) const {
  switch (list) {
    case SpheroidList::Planets:
      return Named(USGS_Functions::ReadSpheroidTable(USGS_Functions::ESRIPlanetString()));
    case SpheroidList::Earth:
      return Named(USGS_Functions::ReadSpheroidTable(USGS_Functions::ESRICommonEarthString()));
    default:
      return aml_func_mod::FileExists(CustomFile()) ? ReadCustomFile(CustomFile()) : std::vector<NamedSpheroid>();
  }
}

}  // namespace tessarine
