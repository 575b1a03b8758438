// SPDX-License-Identifier: GPL-2.0-or-later
// Sources that are no files of this machine's, and queries as sources.
#pragma once

#include <string>

namespace tessarine {

/// True for GDAL's virtual files, databases on servers and queries.
[[nodiscard]] bool IsRemoteSource(const std::string& path);

/// The path by which GDAL opens it: web addresses go through /vsicurl/, and archives, of the web or of this machine,
/// through /vsizip/. Any other path stays as it is.
[[nodiscard]] std::string PathOfSource(const std::string& text);

/// A source with the result of a query, in the SQL of the data's format, as its only layer, of this name.
[[nodiscard]] std::string QuerySource(const std::string& path, const std::string& sql, const std::string& name);

}  // namespace tessarine
