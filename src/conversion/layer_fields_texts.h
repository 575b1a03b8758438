// SPDX-License-Identifier: GPL-2.0-or-later
// What differs between the eight conversions in the dialog in front of them.
#pragma once

#include <cstdint>
#include <string_view>

namespace tessarine {

struct LayerFieldsTexts {
  std::int32_t conversion_option;
  std::string_view form_caption;
  std::int32_t layer_mask;
  std::string_view default_output_name;
  std::string_view record_verb;  ///< the first word of the two record options
  std::string_view instruction;
};

/// Nothing for an option that is none of the eight.
[[nodiscard]] const LayerFieldsTexts* FindLayerFieldsTexts(std::int32_t conversion_option);

}  // namespace tessarine
