// SPDX-License-Identifier: GPL-2.0-or-later
// The settings of the suite in a document: a stream of variants.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <vector>

#include "hosts/document/json_reading.h"
#include "platform/application.h"

namespace tessarine {

/// Reads from, or writes to, a list of variants from its start.
class SettingsStream final : public IVariantStream {
 public:
  explicit SettingsStream(std::vector<Variant>& values) : values_(values) {}
  /// Fault 5 at the end.
  [[nodiscard]] Variant Read() override;
  void Write(const Variant& value) override { values_.push_back(value); }

 private:
  std::vector<Variant>& values_;
  std::size_t next_ = 0;
};

/// {"double": 3.0}, {"string": "x"}, {"boolean": true}, {"long": 5}.
[[nodiscard]] nlohmann::json SettingToJson(const Variant& value);
[[nodiscard]] Variant SettingFromJson(const JsonPlace& place);

}  // namespace tessarine
