// SPDX-License-Identifier: GPL-2.0-or-later
// What a person would see as wrong in the layout of a form.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/text_formats.h"

namespace tessarine::testing {

/// Controls that reach out of the form or lie on each other, captions longer than their room at four units a
/// character, places in the tab order taken twice. `behind` lies under other controls on purpose.
inline std::vector<std::string> LayoutProblems(const Form& form, const std::set<std::string>& behind = {}) {
  std::vector<std::string> problems;
  std::vector<const Control*> placed;
  std::set<std::int32_t> tabs;
  for (const Control* control : form.Controls()) {
    if (!control->Visible() || dynamic_cast<const Timer*>(control) != nullptr) continue;
    if (control->TabIndex() >= 0 && !tabs.insert(control->TabIndex()).second) {
      problems.push_back(control->Name() + " shares its place in the tab order");
    }
    if (const auto* captioned = dynamic_cast<const Captioned*>(control)) {
      const double room = dynamic_cast<const Label*>(control) != nullptr ? 0.0 : 10.0;
      const double text = 4.0 * static_cast<double>(Replace(captioned->Caption(), "&", "").size());
      if (text > 0 && text + room > control->Width()) problems.push_back(control->Name() + " clips its caption");
    }
    if (&control->Container() != static_cast<const Container*>(&form)) continue;
    if (control->Left() < 0 || control->Top() < 0 || control->Left() + control->Width() > form.Width() ||
        control->Top() + control->Height() > form.Height()) {
      problems.push_back(control->Name() + " reaches out of the form");
    }
    if (behind.contains(control->Name())) continue;
    for (const Control* other : placed) {
      if (control->Left() < other->Left() + other->Width() && other->Left() < control->Left() + control->Width() &&
          control->Top() < other->Top() + other->Height() && other->Top() < control->Top() + control->Height()) {
        problems.push_back(control->Name() + " lies on " + other->Name());
      }
    }
    placed.push_back(control);
  }
  return problems;
}

}  // namespace tessarine::testing
