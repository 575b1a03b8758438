// SPDX-License-Identifier: GPL-2.0-or-later
#include "support/numeric_helpers.h"

#include <algorithm>

#include "platform/at_hand.h"
#include "platform/fault.h"
#include "platform/host.h"
#include "platform/known_ids.h"
#include "platform/paths.h"
#include "platform/tell_user.h"
#include "platform/text_formats.h"
#include "platform/trap.h"
#include "support/aml_func_mod.h"

namespace tessarine::MyGeneralOperations {
namespace {

// The text that the box would hold after the point was typed at the caret.
bool PointMakesNumber(const TextBox& box) {
  const std::string& text = box.Text();
  const auto caret = static_cast<std::size_t>(box.SelStart());
  const std::size_t at = std::min(caret, text.size());
  return IsNumericText(text.substr(0, at) + "." + text.substr(at));
}

bool Passes(std::int32_t key, const TextBox& box, bool negative_allowed) {
  if (key <= 8) return true;
  switch (key) {
    case ',':
      return true;
    case '-':
      return negative_allowed;
    case '.':
      return PointMakesNumber(box);
    default:
      return key >= '0' && key <= '9';
  }
}

}  // namespace

void CheckNumericReal(std::int32_t& key_code, const TextBox& text_box) {
  Trap("CheckNumericReal", [&] {
    if (!Passes(key_code, text_box, true)) key_code = 0;
  });
}

void CheckNumericRealPositive(std::int32_t& key_code, const TextBox& text_box) {
  Trap("CheckNumericRealPositive", [&] {
    if (!Passes(key_code, text_box, false)) key_code = 0;
  });
}

std::string TrimZerosAndDecimals(double number, bool use_thousands) {
  return TrapHelper("TrimZerosAndDecimals", [&] {
    std::string text = FixedText(number, 15, use_thousands);
    while (!text.empty() && text.back() == '0') text.pop_back();
    if (!text.empty() && text.back() == '.') text.pop_back();
    return text;
  });
}

void OpenDoc(const std::string& path) {
  Trap("OpenDoc", [&] {
    if (aml_func_mod::FileExists(path)) {
      SystemAtHand().ShellExecute(path, aml_func_mod::ReturnDir(path));
      return;
    }
    TellUser("Unable to find the following file:\r\n\r\n" + ToNativePath(path) + "\r\n\r\nBailing out...",
             "Missing File:");
  });
}

bool CompareSpatialReferences(const SpatialReferenceRef& first, const SpatialReferenceRef& second) {
  return TrapHelper("CompareSpatialReferences", [&] {
    if (!first || !second) return !first && !second;
    return first->IsEqual(*second) && first->IsXYPrecisionEqual(*second);
  });
}

void EnableSelectTool(const std::shared_ptr<IApplication>& application) {
  Trap("EnableSelectTool", [&] {
    const std::shared_ptr<IDocument> document = Require(application, "IApplication")->Document();
    const std::shared_ptr<ICommandBars> bars = Require(document, "IDocument")->CommandBars();
    const std::shared_ptr<ICommandItem> item =
        Require(bars, "ICommandBars")->Find(UID(known_ids::kSelectElementsTool), false, false);
    if (item) item->Execute();
  });
}

}  // namespace tessarine::MyGeneralOperations
