// SPDX-License-Identifier: GPL-2.0-or-later
// What commands look at before they run into an output, and how they find the controls of a form.
#pragma once

#include <string>

#include "hosts/document/document_layer.h"
#include "hosts/terminal/common_options.h"
#include "hosts/terminal/output_place.h"
#include "platform/fault.h"
#include "platform/form.h"

namespace tessarine {

/// The control of this name and kind; a fault when the form has none.
template <class Kind>
[[nodiscard]] Kind& ControlOf(Form& form, const char* name) {
  auto* control = form.FindAs<Kind>(name);
  if (control == nullptr) Raise(kInvalidCall, std::string("The form has no control '") + name + "'.");
  return *control;
}

/// True where a container was named without a layer, and stands already: it may hold layers that the user doesn't
/// know of.
[[nodiscard]] bool EntersContainer(const NamedOutput& output);
/// Asks whether a layer may be added to the container.
[[nodiscard]] std::string EnteringQuestion(const OutputPlace& place);

/// Refuses an output that exists, and a container that would be entered, where nobody could be asked about it.
void RefuseTakenPlace(const NamedOutput& output, const CommonOptions& options);

/// Refuses an output that is the very data to be read.
void RefuseSource(const OutputPlace& place, const DocumentFeatureLayer& layer);

/// Refuses a feature dataset in another reference than the output's.
void CheckDataset(const OutputPlace& place, const SpatialReferenceRef& reference);

}  // namespace tessarine
