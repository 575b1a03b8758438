// SPDX-License-Identifier: GPL-2.0-or-later
#include "hosts/terminal/output_place.h"

#include <filesystem>
#include <optional>
#include <vector>

#include "engine/data_source.h"
#include "engine/format_abilities.h"
#include "engine/personal_geodatabase.h"
#include "hosts/terminal/pipes.h"
#include "hosts/terminal/refusal.h"
#include "outputs/layer_copy.h"
#include "platform/paths.h"
#include "platform/text_formats.h"

namespace tessarine {
namespace {

namespace fs = std::filesystem;

const Format* ContainerFormat(const std::string& path) {
  const Format* format = FormatOfPath(path);
  return format != nullptr && format->container ? format : nullptr;
}

/// Reads the text of -o.
class OutputText {
 public:
  OutputText(const OutputOptions& options, const Format* format) : text_(options.text), format_(format) {}

  NamedOutput Parse(Folders folders) const {
    if (text_ == kPipe) return AsFile(FileOfPipedOutput(), FormatOfName("GeoJSONSeq"));
    if (IsServer()) return OnServer();
    if (const std::size_t colon = FindColon(); colon != std::string::npos) {
      return In(fs::absolute(text_.substr(0, colon)).lexically_normal(), {text_.substr(colon + 1)});
    }
    fs::path path = fs::absolute(text_).lexically_normal();
    if (!path.has_filename()) path = path.parent_path();
    if (format_ != nullptr && format_->container) return In(path, {});
    if (format_ != nullptr) return AsFile(path, format_);
    if (const auto found = InContainer(path)) return *found;
    std::error_code error;
    if (const Format* format = FormatToWrite(path.string()); format != nullptr) return AsFile(path, format);
    if (folders == Folders::Allowed && fs::is_directory(path, error)) return {{nullptr, path.string(), "", ""}, false};
    throw Refusal("The output '" + text_ +
                  "' names no format that is known, and no folder that exists: name a .gpkg, "
                  ".shp, .gdb/CLASS, .geojson or another file that GDAL writes, or tell the --format. 'tessarine "
                  "formats' lists them.");
  }

 private:
  [[nodiscard]] bool IsServer() const {
    const Format* format = format_ != nullptr ? format_ : FormatOfPath(text_);
    return format != nullptr && format->server;
  }

  // The table stands after the last colon.
  [[nodiscard]] NamedOutput OnServer() const {
    const Format& format = *FormatOfName("PostgreSQL");
    const std::size_t colon = text_.rfind(':');
    std::string table = text_.substr(colon + 1);
    const bool named = text_.starts_with(format.ending) && colon > format.ending.size() && !table.empty() &&
                       table.find_first_of("=/@") == std::string::npos;
    if (!named) throw Refusal("-o " + text_ + " names no table: write PG:CONNECTION:SCHEMA.TABLE.");
    constexpr std::string_view kUsual = "public.";
    if (table.starts_with(kUsual)) table.erase(0, kUsual.size());
    return {{&format, text_.substr(0, colon), "", table}, false};
  }

  [[nodiscard]] std::optional<NamedOutput> InContainer(const fs::path& path) const {
    fs::path walked;
    for (auto part = path.begin(); part != path.end(); ++part) {
      walked /= *part;
      if (ContainerFormat(part->string()) == nullptr) continue;
      std::vector<std::string> rest;
      for (auto behind = std::next(part); behind != path.end(); ++behind) rest.push_back(behind->string());
      // Folders may be called like files.
      const bool is_folder_on_the_way =
          !rest.empty() && !ContainerFormat(walked.string())->folder && fs::is_directory(walked);
      if (!is_folder_on_the_way) return In(walked, rest);
    }
    return std::nullopt;
  }

  // "town.gpkg" of "town.gpkg:roads"; nothing where the text isn't of this form.
  [[nodiscard]] std::size_t FindColon() const {
    const std::size_t last = text_.rfind(':');
    if (last == std::string::npos || last == 0) return std::string::npos;
    if (format_ != nullptr) return format_->container ? last : std::string::npos;
    // Layers may have colons in their names.
    for (std::size_t colon = text_.find(':'); colon != std::string::npos; colon = text_.find(':', colon + 1)) {
      if (colon > 0 && ContainerFormat(text_.substr(0, colon)) != nullptr) return colon;
    }
    return std::string::npos;
  }

  [[nodiscard]] NamedOutput In(const fs::path& container, const std::vector<std::string>& rest) const {
    NamedOutput named;
    named.place.format = format_ != nullptr ? format_ : ContainerFormat(container.string());
    named.place.container = container.string();
    if (rest.size() > (named.place.format->feature_datasets ? 2U : 1U)) {
      throw Refusal("-o " + text_ +
                    " names no layer: write CONTAINER, CONTAINER:LAYER or GEODATABASE.gdb/DATASET/LAYER.");
    }
    named.whole_container = rest.empty();
    named.place.name = rest.empty() ? container.stem().string() : rest.back();
    if (rest.size() == 2) named.place.dataset = rest.front();
    RefuseDatasetName(named.place);
    return named;
  }

  // A dataset that is there already may be called as others called it.
  static void RefuseDatasetName(const OutputPlace& place) {
    if (place.dataset.empty() || place.format->class_names.characters != NameRule::Characters::AsciiWord) return;
    const std::string legal = LegalName(place.format->class_names, place.dataset);
    if (legal == place.dataset || FeatureDatasetReference(place.container, place.dataset)) return;
    throw Refusal("'" + place.dataset + "' is no name for a feature dataset of a " + std::string(place.format->name) +
                  ": call it '" + legal + "', for example.");
  }

  static NamedOutput AsFile(fs::path path, const Format* format) {
    // The ending of another format would name that one.
    if (format->HasOwnWorkspace() && FormatOfPath(path.string()) != nullptr) path.replace_extension(format->ending);
    return {{format, path.parent_path().string(), "", path.filename().string()}, false};
  }

  const std::string& text_;
  const Format* format_;
};

const Format* AskedFormat(const std::string& name) {
  if (name.empty()) return nullptr;
  if (const Format* format = FormatToWriteAs(name)) return format;
  throw Refusal("--format: '" + name + "' is no format that can be written. 'tessarine formats' lists them.");
}

[[noreturn]] void RefuseStamp(const Format* format) {
  std::string keeping;
  for (const Format& other : AllFormats()) {
    if (other.stamp != StampPlace::None) keeping += (keeping.empty() ? "" : ", ") + std::string(other.name);
  }
  throw Refusal("--stamp: " + (format == nullptr ? "a shapefile" : "'" + std::string(format->name) + "'") +
                " keeps no text about a layer. These do: " + keeping + ".");
}

}  // namespace

SpatialReferenceRef ReadReference(const std::string& option, const std::string& text) {
  SpatialReferenceRef reference;
  try {
    reference = SpatialReferenceEnvironment::CreateFromText(text);
  } catch (const Fault& fault) {
    throw Refusal(option + ": " + fault.Description());
  }
  if (!Is<const UnknownCoordinateSystem>(reference)) return reference;
  throw Refusal(option + ": '" + text + "' is neither geographic nor projected.");
}

void AddFormatOption(CLI::App& command, OutputOptions& options) {
  command.add_option("--format", options.format, "The format of the output, where its ending doesn't tell it")
      ->type_name("NAME");
  command.add_flag("--stamp", options.stamp,
                   "Write into the output's metadata how it was made: command line, version, spheroid and time");
}

NamedOutput ParseOutput(const OutputOptions& options, Folders folders) {
  if (Trim(options.text).empty()) throw Refusal("-o needs a place: " + std::string(kOutputHelp) + ".");
  NamedOutput named = OutputText(options, AskedFormat(options.format)).Parse(folders);
  if (!options.to.empty()) named.wished = ReadReference("--to", options.to);
  named.stamp = options.stamp;
  const Format* format = named.place.format;
  if (options.stamp && (format == nullptr || format->stamp == StampPlace::None)) RefuseStamp(format);
  if (format == nullptr) return named;
  if (!format->writable || !CanWrite(*format)) {
    throw Refusal("The output '" + options.text + "' can't be made: the GDAL of this machine doesn't write " +
                  std::string(format->name) + ". Name another format; 'tessarine formats' lists them.");
  }
  return named;
}

void RefuseBrokenContainer(const OutputPlace& place) {
  if (!place.InContainer() || (!place.format->server && !fs::exists(place.container))) return;
  try {
    if (place.format->server) return RequireWritableServer(place.container);
    (void)Stands(place);
    if (!engine::IsPersonalGeodatabase(place.container)) return;
    engine::RequireWritableGeodatabase(place.container, engine::PersonalUse::NewClass);
  } catch (const Fault& fault) {
    throw Refusal("The output '" + place.NativePath() + "' can't be made. " + fault.Description());
  }
}

void RefuseUnwritableSource(const std::shared_ptr<IFeatureClass>& features) {
  const auto data = Cast<IDatasetFiles>(features);
  if (!data) return;
  try {
    for (const std::string& file : data->Files().files) {
      if (engine::IsPersonalGeodatabase(file)) engine::RequireWritableGeodatabase(file, engine::PersonalUse::Rows);
    }
  } catch (const Fault& fault) {
    throw Refusal(fault.Description());
  }
}

}  // namespace tessarine
