// SPDX-License-Identifier: GPL-2.0-or-later
// Where an output lies, and whether it would touch what a run reads.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "outputs/formats.h"
#include "platform/data.h"

namespace tessarine {

/// The title of the question whether a class that stands in the place of an output may go.
inline constexpr const char* kOutputStands = "Feature Class Already Exists:";

struct OutputPlace {
  const Format* format = nullptr;  ///< null for a folder in which a name is still to be chosen
  std::string container;           ///< the folder or geodatabase: a native path
  std::string dataset;             ///< the feature dataset, empty when there is none
  std::string name;                ///< the class; of a file of its own the file's name; empty for a folder

  [[nodiscard]] bool IsFolder() const { return format == nullptr; }
  [[nodiscard]] bool InContainer() const { return format != nullptr && format->container; }
  /// The format's number in the table of formats; 0 where there is no format.
  [[nodiscard]] std::int32_t Kind() const { return format == nullptr ? 0 : format->kind; }
  /// The container as a backslash path, without a separator at its end unless it is the root of the disk.
  [[nodiscard]] std::string Directory() const;
  /// Container, dataset and name: the backslash path that people see in dialogs and reports.
  [[nodiscard]] std::string Path() const;
  /// The same as a native path; classes of a server have their server's name and a colon ahead.
  [[nodiscard]] std::string NativePath() const;
  /// The name that the format will give the class: "a_b" for "a b" in a geodatabase.
  [[nodiscard]] std::string ClassName() const;
  /// The files that the output would replace or change, as they lie on the disk.
  [[nodiscard]] std::vector<std::filesystem::path> Files() const;
  /// True when these data would be replaced or changed. Files are compared by what they are, not by their names, so
  /// that links and other spellings don't hide anything.
  [[nodiscard]] bool Overlaps(const DatasetFiles& source) const;
};

/// The place in a folder or container, which is given as a backslash path with or without a separator at its end. A
/// kind of no format gives a place without one.
[[nodiscard]] OutputPlace PlaceIn(std::int32_t kind, std::string_view directory, std::string name,
                                  std::string dataset = "");

/// Why nothing can be written under this name, as a sentence; empty where it can. Names with quotation marks, or with
/// blanks at the ends of a part, lose them on the way to the file; "" and ".shp" name nothing.
[[nodiscard]] std::optional<std::string> NameProblem(const OutputPlace& place);

/// The files that a native path of any kind comes down to: archives for what lies in them, other files as they are.
[[nodiscard]] std::string RealFile(std::string_view path);

/// True when both are the same file or folder, by whatever names and links; false where one isn't there.
[[nodiscard]] bool IsSameFile(const std::filesystem::path& first, const std::filesystem::path& second);

/// True when a file that is written to the path would be this file, lie in this geodatabase, or replace either. Neither
/// need be there.
[[nodiscard]] bool WouldTouch(const std::filesystem::path& path, const std::filesystem::path& file);

/// The path, or the first of name_2, name_3 and so on under which no data set has a file.
[[nodiscard]] std::filesystem::path FirstFreePath(const std::filesystem::path& path);

}  // namespace tessarine
