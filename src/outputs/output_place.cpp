// SPDX-License-Identifier: GPL-2.0-or-later
#include "outputs/output_place.h"

#include <algorithm>

#include "outputs/staged_output.h"
#include "platform/free_name.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kVirtual = "/vsi";

// "/vsizip/{/data/a.zip}/b.shp" and "/vsisubfile/10_20,/data/a.bin" without what stands ahead of the path.
std::string_view WithoutVirtualPrefix(std::string_view path) {
  const std::size_t slash = path.find('/', 1);
  if (slash == std::string_view::npos) return {};
  const bool part = path.substr(0, slash) == "/vsisubfile";
  path.remove_prefix(slash + 1);
  if (part) path.remove_prefix(std::min(path.find(',') + 1, path.size()));
  if (path.starts_with('{')) path = path.substr(1, path.find('}') - 1);
  return path;
}

// The longest beginning of the path that is there.
fs::path LongestThatExists(fs::path path) {
  std::error_code error;
  while (!path.empty() && path.has_relative_path() && !fs::exists(path, error)) path = path.parent_path();
  return path;
}

bool IsIn(const fs::path& file, const fs::path& container) {
  std::error_code error;
  return IsSameFile(file, container) || IsSameFile(fs::canonical(file, error).parent_path(), container);
}

bool KeepsItsSpelling(const std::string& part) { return part.find('"') == std::string::npos && Trim(part) == part; }

}  // namespace

std::string RealFile(std::string_view path) {
  if (!path.starts_with(kVirtual)) return std::string(path);
  while (path.starts_with(kVirtual)) path = WithoutVirtualPrefix(path);
  return LongestThatExists(std::string(path)).string();
}

bool IsSameFile(const fs::path& first, const fs::path& second) {
  std::error_code error;
  return fs::equivalent(first, second, error) && !error;
}

bool WouldTouch(const fs::path& path, const fs::path& file) {
  std::error_code error;
  const auto real = [&](const fs::path& any) { return fs::weakly_canonical(fs::absolute(any), error); };
  if (real(path) == real(file) || IsSameFile(path, file)) return true;
  const Format* format = FormatOfPath(file.string());
  return format != nullptr && format->folder && real(path).parent_path() == real(file);
}

OutputPlace PlaceIn(std::int32_t kind, std::string_view directory, std::string name, std::string dataset) {
  std::string container = ToNativePath(directory);
  if (container.size() > 1 && container.ends_with('/')) container.pop_back();
  return {FormatOfKind(kind), std::move(container), std::move(dataset), std::move(name)};
}

std::string OutputPlace::Directory() const {
  std::string directory = FromNativePath(container);
  if (directory.size() > 1 && directory.ends_with('\\')) directory.pop_back();
  return directory;
}

std::string OutputPlace::Path() const {
  std::string path = Directory();
  if (!path.ends_with('\\')) path += '\\';
  if (!dataset.empty()) path += dataset + '\\';
  return path + name;
}

std::string OutputPlace::NativePath() const {
  if (format != nullptr && format->server) return container + ":" + name;
  fs::path path = container;
  if (!dataset.empty()) path /= dataset;
  if (!name.empty()) path /= name;
  return path.string();
}

std::string OutputPlace::ClassName() const {
  if (!InContainer()) return name;
  // An ending that was typed out of habit isn't a part of the name.
  const bool ending = EndsWithIgnoringCase(name, ".shp");
  return LegalName(format->class_names, ending ? name.substr(0, name.size() - 4) : name);
}

std::vector<fs::path> OutputPlace::Files() const {
  if (format != nullptr && format->server) return {};
  if (InContainer()) return FilesOfDataset(container);
  return IsFolder() ? std::vector<fs::path>() : FilesOfDataset(NativePath());
}

bool OutputPlace::Overlaps(const DatasetFiles& source) const {
  if (format != nullptr && format->server) {
    const auto same = [](const std::string& text) { return [&](const std::string& other) { return text == other; }; };
    return std::ranges::any_of(source.files, same(container)) && std::ranges::any_of(source.classes, same(ClassName()));
  }
  const auto is_read = [&](const fs::path& own) {
    return std::ranges::any_of(source.files, [&](const std::string& file) {
      return InContainer() ? IsIn(RealFile(file), own) : IsSameFile(RealFile(file), own);
    });
  };
  const std::vector<fs::path> own = Files();
  if (std::ranges::none_of(own, is_read)) return false;
  // Other classes of the container stay as they are.
  return !InContainer() || source.classes.empty() || std::ranges::any_of(source.classes, [&](const std::string& read) {
    return read.empty() || EqualsIgnoringCase(read, ClassName());
  });
}

std::optional<std::string> NameProblem(const OutputPlace& place) {
  if (place.IsFolder()) return std::nullopt;
  const std::string shown = "The output '" + place.NativePath() + "' can't be written under this name: ";
  const bool nameless = place.name.empty() || EqualsIgnoringCase(place.name, place.format->ending);
  if (place.format->server) return std::nullopt;
  if (place.InContainer() && place.name.find('/') != std::string::npos) {
    return shown + "the name of a layer holds no slash. Choose another name.";
  }
  if (nameless) return shown + "it names no class. Put a name ahead of '" + std::string(place.format->ending) + "'.";
  const fs::path path = place.NativePath();
  for (const fs::path& part : path) {
    if (KeepsItsSpelling(part.string())) continue;
    return shown + "'" + part.string() +
           "' holds a quotation mark or a blank at one of its ends. Choose another name, "
           "or rename the folder.";
  }
  if (path.string().find('\\') != std::string::npos) {
    return shown + "it holds a backslash. Choose another name, or rename the folder.";
  }
  return std::nullopt;
}

fs::path FirstFreePath(const fs::path& path) {
  const auto numbered = [&](int number) {
    const std::string name = path.stem().string() + "_" + std::to_string(number);
    return fs::path(path).replace_filename(name + path.extension().string());
  };
  const auto taken = [](const fs::path& candidate) {
    std::error_code error;
    return fs::exists(candidate, error) || !FilesOfDataset(candidate).empty();
  };
  return FirstFree(path, numbered, taken);
}

}  // namespace tessarine
