// SPDX-License-Identifier: GPL-2.0-or-later
// The JSON file of a map document. docs/map-document.md tells its members.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "hosts/document/map_document.h"

namespace tessarine {

/// Reads a document. The fault of a file that is missing, no JSON or no document names the file, the place in it and
/// what is wrong; nothing is opened yet of the data that layers name.
[[nodiscard]] std::shared_ptr<MapDocument> ReadDocumentFile(const std::string& native_path);
/// The same from text; relative data paths are seen from `folder`.
[[nodiscard]] std::shared_ptr<MapDocument> ReadDocumentText(std::string_view text, const std::string& folder);

/// Writes the document to its own path. The file is replaced as a whole, so a failure leaves the old one; its
/// permissions stay, and a link to it stays a link. A file that may not be written is refused.
void WriteDocumentFile(const MapDocument& document);
[[nodiscard]] std::string WriteDocumentText(const MapDocument& document, const std::string& folder);

}  // namespace tessarine
