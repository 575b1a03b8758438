// SPDX-License-Identifier: GPL-2.0-or-later
#include "spheroids/USGS_Functions.h"

#include "platform/trap.h"
#include "platform/variant.h"
#include "spheroids/spheroid_entries.h"
#include "support/MyGeneralOperations.h"
#include "support/aml_func_mod.h"
#include "support/attempt.h"

namespace tessarine::USGS_Functions {
namespace {

SpheroidNames Gather(const std::vector<SpheroidEntry>& entries) {
  SpheroidNames list{std::make_shared<KeyedCollection>(), std::make_shared<StrArray>()};
  for (const SpheroidEntry& entry : entries) {
    const auto clone = entry.spheroid ? CloneOf(*entry.spheroid) : nullptr;
    list.rows->Add(SpheroidRow::Make(entry.name, entry.semi_major_axis, entry.semi_minor_axis, entry.text, clone),
                   entry.name);
    list.names->Add(entry.name);
  }
  return list;
}

SpheroidNames CustomSpheroids() {
  const std::string file = CustomSpheroidFile();
  return aml_func_mod::FileExists(file) ? Gather(ReadCustomSpheroidFile(file)) : SpheroidNames{};
}

}  // namespace

std::shared_ptr<VarArray> GetSpheroids() {
  return Trap("GetSpheroids", [] {
    const SpheroidNames custom = CustomSpheroids();
    const SpheroidNames planets = Gather(ReadSpheroidTable(ESRIPlanetString()));
    const SpheroidNames earth = Gather(ReadSpheroidTable(ESRICommonEarthString()));
    return SpheroidLists::Make(custom, planets, earth);
  });
}

std::shared_ptr<const Spheroid> SpheroidFromCode(const SpatialReferenceEnvironment& factory, const std::string& code) {
  return MyGeneralOperations::Attempt([&] { return factory.CreateSpheroid(Variant(code).AsLong()); });
}

}  // namespace tessarine::USGS_Functions
