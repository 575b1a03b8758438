// SPDX-License-Identifier: GPL-2.0-or-later
// The spheroid that a command computes on: one of the catalogue by its name or code, or two radii.
#pragma once

#include <CLI/App.hpp>
#include <optional>
#include <string>
#include <vector>

#include "platform/spheroid_catalog.h"

namespace tessarine {

struct SpheroidOptions {
  std::string spheroid;  ///< a name or a code
  std::string radii;     ///< "A,B" in metres
};

struct ChosenSpheroid {
  std::string name;  ///< "Custom Spheroid" for radii
  double semi_major_axis = 0.0, semi_minor_axis = 0.0;
};

/// Adds --spheroid and --radii, which exclude each other.
void AddSpheroidOptions(CLI::App& command, SpheroidOptions& options);

/// What the options name; empty when none was given. Names compare without regard to case, blanks and hyphens;
/// custom spheroids go before planets, these before Earth. Raises `Refusal`, which lists near matches. A host must be
/// set: it knows where the custom file lies.
[[nodiscard]] std::optional<ChosenSpheroid> ChooseSpheroid(const SpheroidOptions& options);

/// " Near are: ..." or a hint at the list, to stand after a refusal.
[[nodiscard]] std::string NearSpheroidsHint(const std::string& text, const std::vector<NamedSpheroid>& spheroids);

}  // namespace tessarine
