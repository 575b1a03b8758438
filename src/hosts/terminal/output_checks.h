// SPDX-License-Identifier: GPL-2.0-or-later
// What a run would find at its end about the place of its output, looked at before it begins; plans look at it too.
#pragma once

#include <string>

#include "hosts/document/document_layer.h"
#include "hosts/terminal/common_options.h"
#include "hosts/terminal/output_place.h"

namespace tessarine {

/// Refuses a name that can't be written as it stands, a place whose folder isn't there or can't be written to, and a
/// container that can't be opened or written to, an output that would replace the run's map document, and a report that
/// would lie over the output. Each refusal names the folder or container itself.
void RefuseUnusablePlace(const OutputPlace& place, const CommonOptions& options);

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
