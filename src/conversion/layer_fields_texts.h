// SPDX-License-Identifier: GPL-2.0-or-later
// What differs between the conversions in the dialog in front of them.
#pragma once

#include <cstdint>
#include <string_view>

namespace tessarine {

struct LayerFieldsTexts {
  std::string_view form_caption;
  std::int32_t layer_mask;
  std::string_view default_output_name;
  std::string_view record_verb;  ///< the first word of the two record options
  std::string_view instruction;
};

/// Null for an option that no conversion has. The rows stand with their tools.
[[nodiscard]] const LayerFieldsTexts* FindLayerFieldsTexts(std::int32_t conversion_option);

}  // namespace tessarine
