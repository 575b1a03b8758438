// SPDX-License-Identifier: GPL-2.0-or-later
// Text and path helpers, one word-like routine per job. Paths use the backslash; places in a text count from its
// start. Each routine reports a fault under its own name and then returns the empty text.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/application.h"
#include "platform/field.h"

namespace tessarine::aml_func_mod {

/// Splits at the delimiter; parts are trimmed. Double quotes protect what lies between them and are taken away. A
/// text of delimiters and blanks alone leaves `parts` untouched.
void ParseString(const std::string& text, std::vector<std::string>& parts, char delimiter);

/// Every `find` cut out of the text; or, with a replacement, overwritten from its place on, character for character,
/// so the text keeps its length.
[[nodiscard]] std::string Subst(const std::string& text, const std::string& find,
                                const std::optional<std::string>& replacement = std::nullopt);

/// What stands before, or after, the first marker; empty when there is none.
[[nodiscard]] std::string Before(const std::string& text, const std::string& marker);
[[nodiscard]] std::string After(const std::string& text, const std::string& marker);

/// Cuts characters of the right set off the end, then characters of the left set off the start.
[[nodiscard]] std::string BasicTrimAvenue(const std::string& text, const std::string& left_set,
                                          const std::string& right_set);

/// A number as text with "," between groups of three digits of its whole part.
[[nodiscard]] std::string InsertCommas(const Variant& value);

/// True for the small, integer, single and double field types.
[[nodiscard]] bool FieldIsNumeric(const Field& field);

/// The path without its last "." part; a path without "." comes back.
[[nodiscard]] std::string ClipExtension(const std::string& path);
[[nodiscard]] std::string SetExtension(const std::string& path, const std::string& extension);
/// The folder with its trailing "\"; a path of one element gives that element and "\".
[[nodiscard]] std::string ReturnDir(const std::string& path);
/// What stands after the last "\".
[[nodiscard]] std::string ReturnFilename(const std::string& path);
/// The long form of a path; the path as given when there is none.
[[nodiscard]] std::string GetFullFileString(const std::string& path);
/// True for a file of this name; False for folders.
[[nodiscard]] bool FileExists(const std::string& path);
/// True for files and folders.
[[nodiscard]] bool ExistFileDir(const std::string& path);
/// The path, or its first free variant with "_2", "_3" and so on ahead of the extension.
[[nodiscard]] std::string MakeUniqueFilename(const std::string& path);
/// The file path of the open document; that of a template for one that was never saved.
[[nodiscard]] std::string GetMxDocPath(const std::shared_ptr<IApplication>& application);
/// The logged-on user.
[[nodiscard]] std::string GetTheUserName();

}  // namespace tessarine::aml_func_mod
