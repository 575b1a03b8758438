// SPDX-License-Identifier: GPL-2.0-or-later
// A command that writes a new class: the place is checked and prepared, the browse dialog will answer it, the tool
// runs.
#pragma once

#include <string>

#include "hosts/terminal/output_place.h"
#include "hosts/terminal/session.h"
#include "platform/tool.h"

namespace tessarine {

/// Runs a tool that writes into `output` with coordinates in `reference`, where the data have this extent. Refuses a
/// name that is taken where nobody can be asked about it, and a feature dataset in another reference; a geodatabase
/// that can't be opened, too. A geodatabase that was made for the run and stays empty goes away again.
[[nodiscard]] ExitStatus RunInto(Session& session, const ITool& tool, const Arguments& arguments,
                                 const NamedOutput& output, const SpatialReferenceRef& reference,
                                 const Envelope& extent, const CommonOptions& options);

}  // namespace tessarine
