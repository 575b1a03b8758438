// SPDX-License-Identifier: GPL-2.0-or-later
// What a user wants of an output beyond what its tool makes: another reference, and a stamp.
#pragma once

#include "hosts/terminal/common_options.h"
#include "hosts/terminal/output_place.h"
#include "platform/run_context.h"

namespace tessarine {

/// Adds --to for a tool whose output can be in any reference.
void AddReferenceOption(CLI::App& command, OutputOptions& options);
/// Adds it for one whose output means nothing in another: `RefuseReference` says why.
void AddRefusedReferenceOption(CLI::App& command, OutputOptions& options);
void RefuseReference(const OutputOptions& options, const std::string& why);

/// Refuses a reference that the data can't be brought to, or that the format of the output doesn't keep. `own` is the
/// one that the tool works in, `extent` that of the data in it.
void RefuseUnreachableReference(const NamedOutput& output, const SpatialReferenceRef& own, const Envelope& extent);

[[nodiscard]] OutputWishes WishesFor(const NamedOutput& output, const CommonOptions& options);

}  // namespace tessarine
