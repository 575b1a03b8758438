// SPDX-License-Identifier: GPL-2.0-or-later
// The copy that -o of the calculator names.
#pragma once

#include <string>

#include "hosts/document/document_layer.h"
#include "hosts/terminal/common_options.h"
#include "hosts/terminal/output_place.h"

namespace tessarine {

/// Refuses a place that no copy of the layer can be made at, whatever the user would agree to, such as that of the map
/// document, and a report over it or over the source.
void RefuseUnusableCopy(const NamedOutput& copy, const DocumentFeatureLayer& source, const CommonOptions& options);

enum class Replacing { Nothing, Agreed, Declined };
struct ReplacementAnswer {
  Replacing replacing = Replacing::Nothing;
  std::string question;  ///< that a plan tells of
};
/// Whether what stands at the place may go. Asks whoever can answer; raises `Refusal` where nobody can.
[[nodiscard]] ReplacementAnswer AskToReplace(const NamedOutput& copy, const CommonOptions& options);

}  // namespace tessarine
