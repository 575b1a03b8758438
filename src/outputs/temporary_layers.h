// SPDX-License-Identifier: GPL-2.0-or-later
// Layers that live in the memory of a host's map: a kind of output where the host has them.
#pragma once

#include <functional>
#include <memory>

#include "outputs/formats.h"
#include "platform/data.h"

namespace tessarine {

using WorkspaceMaker = std::function<std::shared_ptr<IWorkspaceFactory>()>;

/// From now on such layers are made by these factories; with null there are none.
void OfferTemporaryLayers(WorkspaceMaker make);

/// Their row, which the searches of the table find as well; null where the host has none.
[[nodiscard]] const Format* TemporaryLayers();

/// The factory of new layers; null where the host has none.
[[nodiscard]] std::shared_ptr<IWorkspaceFactory> CreateTemporaryWorkspaceFactory();

}  // namespace tessarine
