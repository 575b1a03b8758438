// SPDX-License-Identifier: GPL-2.0-or-later
// The workspace of a data set.
#pragma once

#include <memory>
#include <string>

#include "outputs/formats.h"
#include "platform/data.h"

namespace tessarine::engine {

/// The workspace that a dataset of this format lies in: the folder of a file, or the geodatabase.
[[nodiscard]] std::shared_ptr<IWorkspace> WorkspaceOf(const Format& format, const std::string& native_path);
/// That of a geodatabase.
[[nodiscard]] std::shared_ptr<IWorkspace> WorkspaceAt(const std::string& native_path);

}  // namespace tessarine::engine
