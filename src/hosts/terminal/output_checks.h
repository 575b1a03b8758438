// SPDX-License-Identifier: GPL-2.0-or-later
// What a run would find at its end about the place of its output, looked at before it begins; plans look at it too.
#pragma once

#include "hosts/terminal/common_options.h"
#include "hosts/terminal/output_place.h"

namespace tessarine {

/// Refuses a name that can't be written as it stands, a place whose folder isn't there or can't be written to, and a
/// container that can't be opened or written to, an output that would replace the run's map document, and a report that
/// would lie over the output. Each refusal names the folder or container itself.
void RefuseUnusablePlace(const OutputPlace& place, const CommonOptions& options);

}  // namespace tessarine
