// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/qgis/settings_text.h"

#include <nlohmann/json.hpp>
#include <vector>

#include "hosts/document/settings_stream.h"

namespace tessarine::qgis {

std::string WriteSettings(IPersistVariant& extension) {
  std::vector<Variant> values;
  SettingsStream stream(values);
  extension.Save(stream);
  auto root = nlohmann::json::array();
  for (const Variant& value : values) root.push_back(SettingToJson(value));
  return root.dump();
}

void ReadSettings(IPersistVariant& extension, const std::string& text) {
  const auto root = nlohmann::json::parse(text, nullptr, false);
  if (root.is_discarded()) Raise(kInvalidCall, "The project's settings of Tessarine Tools can't be read.");
  std::vector<Variant> values;
  JsonPlace(root, "settings").ForEach([&](const JsonPlace& item) { values.push_back(SettingFromJson(item)); });
  SettingsStream stream(values);
  extension.Load(stream);
}

}  // namespace tessarine::qgis
