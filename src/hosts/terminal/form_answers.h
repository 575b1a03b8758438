// SPDX-License-Identifier: GPL-2.0-or-later
// The answers that commands give to forms with a layer, fields and an output.
#pragma once

#include <string>
#include <vector>

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

/// Chooses the layer's line. Refuses a layer that the form doesn't offer: `command` takes only `takes`.
void ChooseLayer(ListBox& list, const DocumentFeatureLayer& layer, const std::string& command,
                 const std::string& takes);

/// Selects the lines of the named fields, or all. A field is named by its name or, where no field has that name, by the
/// alias that the layer shows; an alias of several fields is refused.
void ChooseFields(ListBox& list, const DocumentFeatureLayer& layer, const std::string& option,
                  const std::vector<std::string>& names, bool all);

/// True for shapefiles, whose paths the dialogs take as they are typed. All other places are browsed for.
[[nodiscard]] bool IsTypedPlace(const OutputPlace& output);

/// Fills "txtOutput", by way of the browse button where the place can't be typed. In a folder the class takes the
/// name that the form proposes, with a number where that is taken, so nothing is ever replaced there.
void ChooseOutput(Form& form, const OutputPlace& output);

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
