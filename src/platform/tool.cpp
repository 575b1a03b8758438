// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/tool.h"

namespace tessarine {

std::string SentenceOf(const Objection& objection,
                       const std::function<std::string(std::string_view parameter)>& written) {
  std::string sentence;
  std::string_view rest = objection.text;
  for (;;) {
    const std::size_t open = rest.find('{');
    const std::size_t close = open == std::string_view::npos ? open : rest.find('}', open);
    if (close == std::string_view::npos) return sentence.append(rest);
    sentence.append(rest.substr(0, open)) += written(rest.substr(open + 1, close - open - 1));
    rest.remove_prefix(close + 1);
  }
}

}  // namespace tessarine
